#include "store/scan_memory.h"

#include "platform/durable_file.h"
#include "store/clean_up_journal_rows.h"
#include "store/sqlite_schema.h"
#include "store/stored_list.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <random>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* memoryName = "/scans.sqlite";
constexpr const char* memoryLockName = "/scans.lock";

// Rows of files that are this close by their inodes are read in one go: a search takes as long as
// reading about so many rows.
constexpr std::uint64_t maxInodeGap = 32;

// Truncated and flushed with each commit as the journal of clean-ups is: after a power failure,
// numbers must not be in rows and free as well.
constexpr SqliteSchema memorySchema{0x54415343,  // "TASC"
                                    2,
                                    "PRAGMA journal_mode = TRUNCATE;"
                                    "PRAGMA synchronous = FULL;"
                                    "PRAGMA cell_size_check = ON;"
                                    "PRAGMA temp_store = MEMORY;",
                                    "CREATE TABLE memory ("
                                    " one INTEGER PRIMARY KEY CHECK (one = 1),"
                                    " generation INTEGER NOT NULL,"
                                    " next INTEGER NOT NULL,"
                                    " files INTEGER NOT NULL,"
                                    " oldest INTEGER NOT NULL,"
                                    " sum INTEGER NOT NULL) STRICT;"
                                    "CREATE TABLE volume ("
                                    " id INTEGER PRIMARY KEY AUTOINCREMENT,"
                                    " name BLOB NOT NULL UNIQUE,"
                                    " sum INTEGER NOT NULL) STRICT;"
                                    "CREATE TABLE file ("
                                    " volume INTEGER NOT NULL,"
                                    " inode INTEGER NOT NULL,"
                                    " size INTEGER NOT NULL,"
                                    " modified INTEGER NOT NULL,"
                                    " changed INTEGER NOT NULL,"
                                    " created INTEGER NOT NULL,"
                                    " comparison INTEGER NOT NULL,"
                                    " content INTEGER NOT NULL,"
                                    " seen INTEGER NOT NULL,"
                                    " sum INTEGER NOT NULL,"
                                    " PRIMARY KEY (volume, inode)) STRICT, WITHOUT ROWID;"
                                    "PRAGMA application_id = 1413567299;"
                                    "PRAGMA user_version = 2;"};
static_assert(memorySchema.applicationId == 1413567299 && memorySchema.version == 2,
              "must equal the pragmas above");

/// The memory's folder without symbolic links, which SQLite would refuse.
StoreResult<std::string> realFolder(const std::string& folder) {
    std::error_code unresolved;
    const std::filesystem::path real = std::filesystem::canonical(folder, unresolved);
    if (unresolved) {
        return passingError(folder, SystemError{unresolved.value()});
    }
    return real.native();
}

StoreResult<FileLock> lockIn(const std::string& folder, std::chrono::milliseconds patience) {
    const LockFile locks(folder + memoryLockName);
    Result<FileLock> lock = locks.take(0, patience);
    if (lock) {
        return std::move(*lock);
    }
    return lock.error().code == EBUSY
               ? StoreError{ScanMemory::pathIn(folder), "in use by another process",
                            StoreError::Kind::passing}
               : passingError(locks.path(), lock.error());
}

std::uint64_t mixed(std::uint64_t sum, std::uint64_t with) {
    sum = (sum ^ with) * 0x9E3779B97F4A7C15U;
    return sum ^ (sum >> 29U);
}

/// Of the name of a volume. Detects that its row is not the one that belongs to the name.
std::int64_t nameSum(std::string_view name) {
    std::uint64_t sum = name.size();
    for (const char each : name) {
        sum = mixed(sum, static_cast<unsigned char>(each));
    }
    return static_cast<std::int64_t>(sum);
}

bool isOfAnOlderVersion(SqliteDatabase& database) {
    const auto header = database.header();
    return header && header->applicationId == memorySchema.applicationId &&
           header->userVersion < memorySchema.version;
}

/// The path of the memory, without symbolic links, and its lock.
struct LockedFile {
    std::string path;
    FileLock lock;
};

StoreResult<LockedFile> lockedFile(const std::string& folder, std::chrono::milliseconds patience) {
    const StoreResult<std::string> real = realFolder(folder);
    if (const auto* error = std::get_if<StoreError>(&real)) {
        return *error;
    }
    StoreResult<FileLock> lock = lockIn(std::get<std::string>(real), patience);
    if (auto* error = std::get_if<StoreError>(&lock)) {
        return std::move(*error);
    }
    return LockedFile{ScanMemory::pathIn(std::get<std::string>(real)),
                      std::get<FileLock>(std::move(lock))};
}

/// Returns whether there was a memory at the path. Requires the lock.
StoreResult<bool> removeFiles(const std::string& path) {
    bool wasThere = false;
    std::error_code failure;
    // The rollback journal goes first: a new memory must never find the one of the old.
    for (const std::string& each : {path + "-journal", path}) {
        if (std::filesystem::is_directory(each, failure)) {
            return passingError(each, SystemError{EISDIR});
        }
        wasThere = std::filesystem::remove(each, failure) || wasThere;
        if (failure) {
            return passingError(each, SystemError{failure.value()});
        }
    }
    return wasThere;
}

/// Opens the file and creates it if it is missing. Requires the lock.
StoreResult<std::unique_ptr<SqliteDatabase>> openDatabase(const std::string& path,
                                                          std::chrono::milliseconds patience) {
    if (const auto failure = makePrivateFile(path)) {
        // Nothing of ours: it is not to be replaced.
        return passingError(path, *failure);
    }
    return std::make_unique<SqliteDatabase>(path, patience);
}

bool isSameState(const RememberedFile& one, const RememberedFile& other) {
    return one.inode == other.inode && one.size == other.size && one.modified == other.modified &&
           one.changed == other.changed && one.created == other.created;
}

}  // namespace

std::string ScanMemory::pathIn(const std::string& folder) {
    return folder + memoryName;
}

StoreResult<ScanMemory> ScanMemory::open(const std::string& folder, Limits limits) {
    if (const auto failure = makeFolders(folder)) {
        return passingError(folder, *failure);
    }
    StoreResult<LockedFile> file = lockedFile(folder, limits.patience);
    if (auto* error = std::get_if<StoreError>(&file)) {
        return std::move(*error);
    }
    auto& [path, lock] = std::get<LockedFile>(file);
    return openLocked(path, limits, std::move(lock));
}

StoreResult<std::optional<ScanMemory>> ScanMemory::openIfThere(const std::string& folder,
                                                               Limits limits) {
    std::error_code unresolved;
    if (!std::filesystem::exists(pathIn(folder), unresolved) && !unresolved) {
        return std::nullopt;
    }
    StoreResult<LockedFile> file = lockedFile(folder, limits.patience);
    if (auto* error = std::get_if<StoreError>(&file)) {
        return std::move(*error);
    }
    auto& [path, lock] = std::get<LockedFile>(file);
    // Again, since it may have been removed while this waited.
    if (!std::filesystem::exists(path, unresolved) && !unresolved) {
        return std::nullopt;
    }
    StoreResult<ScanMemory> memory = openLocked(path, limits, std::move(lock));
    if (auto* error = std::get_if<StoreError>(&memory)) {
        return std::move(*error);
    }
    return std::get<ScanMemory>(std::move(memory));
}

StoreResult<ScanMemory> ScanMemory::openLocked(const std::string& path, Limits limits,
                                               FileLock lock) {
    StoreResult<std::unique_ptr<SqliteDatabase>> database = openDatabase(path, limits.patience);
    using Opened = std::unique_ptr<SqliteDatabase>;
    if (auto* opened = std::get_if<Opened>(&database); opened && isOfAnOlderVersion(**opened)) {
        // Closed first: SQLite would write to a file that is gone.
        opened->reset();
        StoreResult<bool> removed = removeFiles(path);
        if (auto* error = std::get_if<StoreError>(&removed)) {
            return std::move(*error);
        }
        database = openDatabase(path, limits.patience);
    }
    if (auto* error = std::get_if<StoreError>(&database)) {
        return std::move(*error);
    }
    prepareSchema(*std::get<Opened>(database), path, memorySchema);
    ScanMemory memory(limits, std::move(lock), std::get<Opened>(std::move(database)));
    memory.makeReady();
    if (auto error = memory.database_->takeError()) {
        return std::move(*error);
    }
    return memory;
}

StoreResult<bool> ScanMemory::remove(const std::string& folder, Limits limits) {
    std::error_code failure;
    if (!std::filesystem::is_directory(folder, failure)) {
        return false;
    }
    StoreResult<FileLock> lock = lockIn(folder, limits.patience);
    if (auto* error = std::get_if<StoreError>(&lock)) {
        return std::move(*error);
    }
    return removeFiles(pathIn(folder));
}

ScanMemory::ScanMemory(Limits limits, FileLock lock, std::unique_ptr<SqliteDatabase> database)
    : limits_(limits), lock_(std::move(lock)), database_(std::move(database)) {}

/// Reads the memory's own row, and writes it in a new memory.
void ScanMemory::makeReady() {
    {
        SqliteStatement own =
            database_->statement("SELECT generation, next, files, oldest, sum FROM memory");
        if (own.step()) {
            generation_ = own.number(0);
            own_ = {own.number(1), own.number(2), own.number(3)};
            // Numbers that are given out twice would join files of different contents.
            if (own.number(4) != sumOf(own_)) {
                database_->failDamaged();
            }
            return;
        }
    }
    std::random_device random;
    generation_ = std::uniform_int_distribution<std::int64_t>(1, maxNumber)(random);
    SqliteTransaction making(*database_);
    writeOwn(own_);
    if (auto error = making.commit()) {
        database_->fail(std::move(*error));
    }
}

void ScanMemory::writeOwn(const Own& own) {
    database_->statement("INSERT OR REPLACE INTO memory VALUES (1, ?, ?, ?, ?, ?)")
        .with(generation_)
        .with(own.next)
        .with(own.files)
        .with(own.oldest)
        .with(sumOf(own))
        .run();
}

std::int64_t ScanMemory::sumOf(const Own& own) const {
    std::uint64_t sum = static_cast<std::uint64_t>(generation_);
    for (const std::int64_t part : {own.next, own.files, own.oldest}) {
        sum = mixed(sum, static_cast<std::uint64_t>(part));
    }
    return static_cast<std::int64_t>(sum);
}

/// 0 if it is not stored.
std::int64_t ScanMemory::volumeNumber(std::string_view name) {
    SqliteStatement row = database_->statement("SELECT id, sum FROM volume WHERE name = ?");
    if (!row.with(name).step()) {
        return 0;
    }
    if (row.number(1) != nameSum(name)) {
        database_->failDamaged();
    }
    return row.number(0);
}

std::optional<StoreError> ScanMemory::find(std::string_view volume,
                                           std::span<RememberedFile> files) {
    const std::int64_t number = volumeNumber(volume);
    while (number != 0 && !files.empty()) {
        std::size_t count = 1;
        while (count < files.size() && files[count].inode - files[count - 1].inode <= maxInodeGap) {
            ++count;
        }
        findBetween(number, files.first(count));
        files = files.subspan(count);
    }
    return database_->takeError();
}

void ScanMemory::findBetween(std::int64_t volume, std::span<RememberedFile> files) {
    SqliteStatement rows = database_->statement(
        "SELECT inode, size, modified, changed, created, comparison, content, seen, sum FROM file"
        " WHERE volume = ? AND inode BETWEEN ? AND ? ORDER BY inode");
    rows.with(volume)
        .with(static_cast<std::int64_t>(files.front().inode))
        .with(static_cast<std::int64_t>(files.back().inode));
    std::size_t at = 0;
    while (rows.step()) {
        const RememberedFile row{static_cast<std::uint64_t>(rows.number(0)),
                                 static_cast<std::uint64_t>(rows.number(1)),
                                 rows.number(2),
                                 rows.number(3),
                                 rows.number(4),
                                 static_cast<std::uint64_t>(rows.number(5)),
                                 static_cast<std::uint64_t>(rows.number(6)),
                                 rows.number(7)};
        const bool isIntact = sumOf(volume, row) == rows.number(8);
        const auto next = static_cast<std::uint64_t>(own_.next);
        if (isIntact && (row.comparison >= next || row.content >= next)) {
            // The number would be given to other files as well.
            database_->failDamaged();
            return;
        }
        while (at < files.size() && files[at].inode < row.inode) {
            ++at;
        }
        for (; at < files.size() && files[at].inode == row.inode; ++at) {
            if (isIntact && isSameState(files[at], row)) {
                files[at] = row;
            }
        }
    }
}

/// Detects a row that is not as it was written: SQLite detects damage of its pages only where they
/// no longer fit together.
std::int64_t ScanMemory::sumOf(std::int64_t volume, const RememberedFile& file) const {
    std::uint64_t sum = static_cast<std::uint64_t>(generation_);
    for (const std::uint64_t part :
         {static_cast<std::uint64_t>(volume), file.inode, file.size,
          static_cast<std::uint64_t>(file.modified), static_cast<std::uint64_t>(file.changed),
          static_cast<std::uint64_t>(file.created), file.comparison, file.content,
          static_cast<std::uint64_t>(file.seen)}) {
        sum = mixed(sum, part);
    }
    return static_cast<std::int64_t>(sum);
}

void ScanMemory::begin(std::uint64_t newNumbers, std::int64_t today) {
    today_ = today;
    stored_ = own_;
    storing_ = std::make_unique<SqliteTransaction>(*database_);
    const std::uint64_t left = firstNewNumber - static_cast<std::uint64_t>(own_.next);
    if (newNumbers >= left) {
        // Never in the life of a disk.
        database_->failDamaged();
        return;
    }
    stored_.next += static_cast<std::int64_t>(newNumbers);
}

void ScanMemory::add(std::string_view volume, std::span<const RememberedFile> files) {
    database_->statement("INSERT OR IGNORE INTO volume (name, sum) VALUES (?, ?)")
        .with(volume)
        .with(nameSum(volume))
        .run();
    const std::int64_t number = volumeNumber(volume);
    const auto stored = [this](std::uint64_t scanned) {
        return scanned < firstNewNumber
                   ? scanned
                   : scanned - firstNewNumber + static_cast<std::uint64_t>(own_.next);
    };
    SqliteStatement insert = database_->statement(
        "INSERT OR REPLACE INTO file (volume, inode, size, modified, changed, created, comparison,"
        " content, seen, sum) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (const RememberedFile& file : files) {
        RememberedFile row = file;
        row.comparison = stored(file.comparison);
        row.content = stored(file.content);
        row.seen = today_;
        insert.again();
        insert.with(number)
            .with(static_cast<std::int64_t>(row.inode))
            .with(static_cast<std::int64_t>(row.size))
            .with(row.modified)
            .with(row.changed)
            .with(row.created)
            .with(static_cast<std::int64_t>(row.comparison))
            .with(static_cast<std::int64_t>(row.content))
            .with(row.seen)
            .with(sumOf(number, row))
            .run();
    }
    if (!files.empty()) {
        stored_.oldest = stored_.files == 0 ? today_ : std::min(stored_.oldest, today_);
        stored_.files += static_cast<std::int64_t>(files.size());
    }
}

std::optional<StoreError> ScanMemory::commit() {
    dropOld();
    writeOwn(stored_);
    std::optional<StoreError> error = storing_->commit();
    storing_ = nullptr;
    if (!error) {
        own_ = stored_;
    }
    return error;
}

/// Reads all rows, but only if the bounds say that some may have to go: at most once a day because
/// of their age, and after many new ones because of their number.
void ScanMemory::dropOld() {
    const std::int64_t firstKept = today_ - limits_.maxDays;
    const auto most = static_cast<std::int64_t>(limits_.maxFiles);
    if (stored_.files <= most && stored_.oldest >= firstKept) {
        return;
    }
    database_->statement("DELETE FROM file WHERE seen < ?").with(firstKept).run();
    countFiles();
    if (stored_.files > most) {
        database_
            ->statement(
                "DELETE FROM file WHERE (volume, inode) IN"
                " (SELECT volume, inode FROM file ORDER BY seen LIMIT ?)")
            .with(stored_.files - (most - most / 16))
            .run();
        countFiles();
    }
}

/// Makes the bounds exact.
void ScanMemory::countFiles() {
    SqliteStatement all = database_->statement("SELECT count(*), min(seen) FROM file");
    if (all.step()) {
        stored_.files = all.number(0);
        stored_.oldest = all.number(1);
    }
}

}  // namespace tarvin
