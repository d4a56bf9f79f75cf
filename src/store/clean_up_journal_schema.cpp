#include "store/clean_up_journal_rows.h"
#include "store/sqlite_schema.h"

#include <cstdint>

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
    // macOS only: past the disk's own cache, too.
    "PRAGMA fullfsync = ON;"
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

}  // namespace

void prepareSchema(SqliteDatabase& database, const std::string& path) {
    prepareSchema(database, path, {applicationId, schemaVersion, settings, schema});
}

}  // namespace tarvin
