#pragma once

#include "store/sqlite_database.h"

#include <cstdint>
#include <string>

namespace tarvin {

/// The identification and the tables of one of our databases. Texts are literals.
struct SqliteSchema {
    std::uint32_t applicationId = 0;
    std::uint32_t version = 0;
    const char* settings = nullptr;  ///< pragmas of each connection
    /// Creates the tables and sets both numbers.
    const char* statements = nullptr;
};

/// Creates the schema in an empty database and checks it in any other: an unknown schema makes the
/// database fail, and the file does not change.
void prepareSchema(SqliteDatabase& database, const std::string& path, const SqliteSchema& ours);

}  // namespace tarvin
