#include "store/clean_up_journal_rows.h"

#include <utility>

namespace tarvin {

namespace {

constexpr std::uint32_t applicationId = 0x54414355;  // "TACU"
constexpr std::uint32_t schemaVersion = 2;

// No write-ahead log: the folder may be on a network volume, and the log's shared memory works on
// one machine only. The rollback journal is truncated, which FULL also syncs; a deleted one could
// reappear after a power failure and undo a committed transaction.
constexpr const char* settings =
    "PRAGMA journal_mode = TRUNCATE;"
    "PRAGMA synchronous = FULL;"
    "PRAGMA foreign_keys = ON;"
    "PRAGMA cell_size_check = ON;"
    "PRAGMA secure_delete = FAST;"
    "PRAGMA temp_store = MEMORY;";

// Sizes in the data file are unsigned 64-bit numbers; `intent` stores the same bits. `trash_name`
// is null if the file kept its name. `state` is a MoveState.
constexpr const char* schema =
    "CREATE TABLE clean_up ("
    " id INTEGER PRIMARY KEY AUTOINCREMENT,"
    " begun INTEGER NOT NULL,"               // nanoseconds since 1970
    " finished INTEGER NOT NULL DEFAULT 0,"  // 2 while a finished one is being put back
    " folders INTEGER NOT NULL DEFAULT 0,"
    " planned INTEGER NOT NULL DEFAULT 0,"
    " moved_files INTEGER NOT NULL DEFAULT 0,"
    " moved_bytes INTEGER NOT NULL DEFAULT 0,"
    " left_files INTEGER NOT NULL DEFAULT 0,"
    " put_back_files INTEGER NOT NULL DEFAULT 0,"
    " put_back_bytes INTEGER NOT NULL DEFAULT 0,"
    " lost_files INTEGER NOT NULL DEFAULT 0,"
    " counted_files INTEGER NOT NULL DEFAULT 0,"
    " counted_bytes INTEGER NOT NULL DEFAULT 0) STRICT;"
    "CREATE TABLE folder ("
    " id INTEGER PRIMARY KEY,"
    " clean_up INTEGER NOT NULL REFERENCES clean_up (id) ON DELETE CASCADE,"
    " path BLOB NOT NULL,"
    " UNIQUE (clean_up, path)) STRICT;"
    "CREATE TABLE move ("
    " id INTEGER PRIMARY KEY,"
    " folder INTEGER NOT NULL,"  // the lower half of its row
    " name BLOB NOT NULL,"
    " inode INTEGER NOT NULL,"
    " size INTEGER NOT NULL,"
    " modified INTEGER,"
    " stays_folder INTEGER NOT NULL,"  // 0 if no file of the set stays
    " stays_name BLOB,"                // null if it equals `name`
    " stays_inode INTEGER,"
    " stays_modified INTEGER,"
    " state INTEGER NOT NULL,"
    " trash INTEGER NOT NULL,"  // the lower half of a folder's row; 0 if not moved
    " trash_name BLOB,"
    " reason BLOB) STRICT;"
    "CREATE TABLE intent ("
    " one INTEGER PRIMARY KEY CHECK (one = 1),"
    " clean_up INTEGER NOT NULL REFERENCES clean_up (id),"
    " counted_files INTEGER NOT NULL,"
    " counted_bytes INTEGER NOT NULL,"
    " files INTEGER NOT NULL,"
    " bytes INTEGER NOT NULL,"
    " before_count INTEGER NOT NULL,"
    " before_size INTEGER NOT NULL,"
    " after_count INTEGER NOT NULL,"
    " after_size INTEGER NOT NULL) STRICT;"
    "PRAGMA application_id = 1413563221;"
    "PRAGMA user_version = 2;";
static_assert(applicationId == 1413563221 && schemaVersion == 2, "must equal the pragmas above");

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
void expectOurSchema(SqliteDatabase& database, const std::string& path, std::int64_t application,
                     std::int64_t version) {
    if (application != applicationId) {
        database.fail({path, "a database of another program", StoreError::Kind::unusable});
    } else if (version > schemaVersion) {
        database.fail(
            {path, "written by a newer version of the program", StoreError::Kind::passing});
    } else if (version < schemaVersion) {
        database.failDamaged();
    }
}

void createSchema(SqliteDatabase& database) {
    SqliteTransaction making(database);
    database.execute(schema);
    if (auto error = making.commit()) {
        database.fail(std::move(*error));
    }
}

}  // namespace

void prepareSchema(SqliteDatabase& database, const std::string& path) {
    // Checked before SQLite accesses the file, since it might write to its rollback journal.
    if (const auto header = database.header()) {
        expectOurSchema(database, path, header->applicationId, header->userVersion);
    }
    database.execute(settings);
    const StoredSchema stored = storedSchemaIn(database);
    if (!database.ok()) {
        return;
    }
    if (stored.application == 0 && stored.version == 0 && stored.tables == 0) {
        createSchema(database);
    } else {
        expectOurSchema(database, path, stored.application, stored.version);
    }
}

}  // namespace tarvin
