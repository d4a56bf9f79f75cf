#pragma once

#include "store/sqlite_database.h"

#include <string>

namespace tarvin {

/// Creates our schema in an empty database and checks it in any other: an unknown schema makes the
/// database fail, and the file does not change.
void prepareSchema(SqliteDatabase& database, const std::string& path);

}  // namespace tarvin
