#pragma once

#include "store/sqlite_database.h"

#include <string>

namespace tarvin {

/// Brings an open file to our schema, or fails with the reason why it must not be touched.
void prepareSchema(SqliteDatabase& database, const std::string& path);

}  // namespace tarvin
