#include "store/sqlite_schema.h"

#include <utility>

namespace tarvin {

namespace {

/// The identification of a database file.
struct StoredSchema {
    std::int64_t application = 0;
    std::int64_t version = 0;
    std::int64_t tables = 0;
};

StoredSchema storedSchemaIn(SqliteDatabase& database) {
    SqliteStatement read = database.statement(
        "SELECT (SELECT application_id FROM pragma_application_id),"
        " (SELECT user_version FROM pragma_user_version),"
        " (SELECT count(*) FROM sqlite_master)");
    return read.step() ? StoredSchema{read.number(0), read.number(1), read.number(2)}
                       : StoredSchema();
}

/// Fails unless the file has our schema.
void expectOurSchema(SqliteDatabase& database, const std::string& path, const SqliteSchema& ours,
                     std::int64_t application, std::int64_t version) {
    if (application != ours.applicationId) {
        database.fail({path, "a database of another program", StoreError::Kind::unusable});
    } else if (version > ours.version) {
        database.fail(
            {path, "written by a newer version of the program", StoreError::Kind::passing});
    } else if (version < ours.version) {
        database.failDamaged();
    }
}

void createSchema(SqliteDatabase& database, const char* statements) {
    SqliteTransaction making(database);
    database.execute(statements);
    if (auto error = making.commit()) {
        database.fail(std::move(*error));
    }
}

}  // namespace

void prepareSchema(SqliteDatabase& database, const std::string& path, const SqliteSchema& ours) {
    // Checked before SQLite accesses the file, since it might write to its rollback journal.
    if (const auto header = database.header()) {
        expectOurSchema(database, path, ours, header->applicationId, header->userVersion);
    }
    database.execute(ours.settings);
    const StoredSchema stored = storedSchemaIn(database);
    if (!database.ok()) {
        return;
    }
    if (stored.application == 0 && stored.version == 0 && stored.tables == 0) {
        createSchema(database, ours.statements);
    } else {
        expectOurSchema(database, path, ours, stored.application, stored.version);
    }
}

}  // namespace tarvin
