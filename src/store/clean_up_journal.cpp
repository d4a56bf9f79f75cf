#include "store/clean_up_journal.h"

#include "platform/durable_file.h"
#include "store/sqlite_database.h"
#include "store/stored_list.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* journalName = "/clean-ups.sqlite";
constexpr const char* journalLockName = "/clean-ups.lock";
constexpr std::string_view rollbackSuffix = "-journal";
constexpr std::string_view asideSuffix = ".unreadable";

/// Held, shared, by all that have the journal open. Clean-ups are numbered from 1.
constexpr std::uint64_t presenceLock = 0;

constexpr std::int64_t keptCleanUps = 30;
constexpr std::size_t maxUnwrittenOutcomes = 4096;
constexpr std::size_t movesReadAtOnce = 1024;
constexpr int maxLockedNumbers = 1000;

constexpr std::uint32_t applicationId = 0x54414355;  // "TACU"
constexpr std::uint32_t schemaVersion = 2;

constexpr auto maxNumber = std::numeric_limits<std::int64_t>::max();

// Rows of moves and folders have the number of their clean-up in the upper half. So those of one
// clean-up are neighbours, are found and deleted without an index, and new ones are appended.
constexpr unsigned rowBits = 32;
constexpr std::int64_t rowsOfCleanUp = std::int64_t{1} << rowBits;

// The folder may be on a network volume, so no write-ahead log: its shared memory works on one
// machine only. The rollback journal is truncated, and with "full" that is flushed to disk, too; a
// removed one could be there again after a power failure and undo what was committed.
constexpr const char* settings =
    "PRAGMA journal_mode = TRUNCATE;"
    "PRAGMA synchronous = FULL;"
    "PRAGMA foreign_keys = ON;"
    "PRAGMA cell_size_check = ON;"
    "PRAGMA secure_delete = FAST;"
    "PRAGMA temp_store = MEMORY;";

// Sizes of a data file are of 64 bits without a sign and stand in intent with the same bits. A
// move's name in the Trash is null if it is its own. States are those of MoveState.
constexpr const char* schema =
    "CREATE TABLE clean_up ("
    " id INTEGER PRIMARY KEY AUTOINCREMENT,"
    " begun INTEGER NOT NULL,"               // nanoseconds since 1970
    " finished INTEGER NOT NULL DEFAULT 0,"  // 2 while files of a finished one are put back
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
    " stays_folder INTEGER NOT NULL,"  // 0 if no file of the content is to stay
    " stays_name BLOB,"                // null if it is that of the file that is moved
    " stays_inode INTEGER,"
    " stays_modified INTEGER,"
    " state INTEGER NOT NULL,"
    " trash INTEGER NOT NULL,"  // the lower half of a folder's row; 0 if it was not moved
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
static_assert(applicationId == 1413563221 && schemaVersion == 2, "as the schema says");

StoreError passingError(const std::string& path, SystemError reason) {
    return {path, reason.text(), StoreError::Kind::passing};
}

StoreError lockError(const LockFile& locks, SystemError reason) {
    if (reason.code == EBUSY) {
        return {locks.path(), "in use by another process", StoreError::Kind::passing};
    }
    return passingError(locks.path(), reason);
}

CleanUpId cleanUpOf(MoveRow row) {
    return row >> rowBits;
}

std::int64_t firstRowOf(CleanUpId id) {
    return id << rowBits;
}

std::uint64_t asCount(std::int64_t number) {
    return number < 0 ? 0 : static_cast<std::uint64_t>(number);
}

std::int64_t asNumber(std::uint64_t count) {
    return static_cast<std::int64_t>(std::min(count, static_cast<std::uint64_t>(maxNumber)));
}

/// Of two numbers that are not negative; ends at the largest one.
std::int64_t cappedSum(std::int64_t one, std::int64_t other) {
    return one > maxNumber - other ? maxNumber : one + other;
}

/// The folder, and the name in it.
std::pair<std::string_view, std::string_view> partsOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return {path.substr(0, slash), path.substr(slash + 1)};
}

void withDate(SqliteStatement& statement, const std::optional<Timestamp>& date) {
    date ? statement.with(date->time_since_epoch().count()) : statement.withNull();
}

std::optional<Timestamp> dateIn(const SqliteStatement& row, int column) {
    return row.isNull(column)
               ? std::nullopt
               : std::optional(Timestamp(std::chrono::nanoseconds(row.number(column))));
}

CleanUpSummary summaryOf(const SqliteStatement& row) {
    CleanUpSummary summary;
    summary.id = row.number(0);
    summary.begun = Timestamp(std::chrono::nanoseconds(row.number(1)));
    summary.finished = row.number(2) != 0;
    summary.isReturning = row.number(2) == 2;
    summary.plannedFiles = asCount(row.number(3));
    summary.movedFiles = asCount(row.number(4));
    summary.movedBytes = asCount(row.number(5));
    summary.leftFiles = asCount(row.number(6));
    summary.putBackFiles = asCount(row.number(7));
    summary.putBackBytes = asCount(row.number(8));
    summary.lostFiles = asCount(row.number(9));
    summary.unsettledFiles =
        asCount(row.number(3) - std::min(row.number(3), row.number(4) + row.number(6)));
    return summary;
}

/// Whether nothing of it is to be found out at the next start.
bool isSettled(const CleanUpSummary& cleanUp) {
    return cleanUp.finished && !cleanUp.isReturning;
}

/// The numbers of the folders of one clean-up, as a transaction asks for them.
class FolderNumbers final {
 public:
    FolderNumbers(SqliteDatabase& database, CleanUpId id) : database_(database), id_(id) {
        SqliteStatement read = database.statement("SELECT folders FROM clean_up WHERE id = ?");
        if (read.with(id).step()) {
            count_ = read.number(0);
        }
    }

    std::int64_t numberOf(std::string_view path) {
        if (const auto known = known_.find(path); known != known_.end()) {
            return known->second;
        }
        if (known_.size() == maxKnown) {
            known_.clear();
        }
        const std::int64_t number = storedNumberOf(path);
        known_.emplace(path, number);
        return number;
    }

    /// To be called once, at the end.
    void storeCount() {
        database_.statement("UPDATE clean_up SET folders = ? WHERE id = ?")
            .with(count_)
            .with(id_)
            .run();
    }

 private:
    /// Paths are looked up by views, whose texts outlive the transaction.
    static constexpr std::size_t maxKnown = 4096;

    std::int64_t storedNumberOf(std::string_view path) {
        SqliteStatement find =
            database_.statement("SELECT id FROM folder WHERE clean_up = ? AND path = ?");
        if (find.with(id_).with(path).step()) {
            return find.number(0) - firstRowOf(id_);
        }
        ++count_;
        database_.statement("INSERT INTO folder VALUES (?, ?, ?)")
            .with(firstRowOf(id_) + count_)
            .with(id_)
            .with(path)
            .run();
        return count_;
    }

    SqliteDatabase& database_;
    const CleanUpId id_;
    std::int64_t count_ = 0;
    std::unordered_map<std::string_view, std::int64_t> known_;
};

/// What changes of a clean-up's counters in a transaction.
struct CounterChanges {
    std::int64_t movedFiles = 0;
    std::int64_t movedBytes = 0;
    std::int64_t leftFiles = 0;
    std::int64_t putBackFiles = 0;
    std::int64_t putBackBytes = 0;
    std::int64_t lostFiles = 0;
};

void storeCounters(SqliteDatabase& database, CleanUpId id, const CounterChanges& changes) {
    std::int64_t movedBytes = 0;
    std::int64_t putBackBytes = 0;
    {
        SqliteStatement read =
            database.statement("SELECT moved_bytes, put_back_bytes FROM clean_up WHERE id = ?");
        if (!read.with(id).step()) {
            if (database.ok()) {
                database.failDamaged();
            }
            return;
        }
        movedBytes = cappedSum(read.number(0), changes.movedBytes);
        putBackBytes = cappedSum(read.number(1), changes.putBackBytes);
    }
    database
        .statement(
            "UPDATE clean_up SET moved_files = moved_files + ?, moved_bytes = ?,"
            " left_files = left_files + ?, put_back_files = put_back_files + ?,"
            " put_back_bytes = ?, lost_files = lost_files + ? WHERE id = ?")
        .with(changes.movedFiles)
        .with(movedBytes)
        .with(changes.leftFiles)
        .with(changes.putBackFiles)
        .with(putBackBytes)
        .with(changes.lostFiles)
        .with(id)
        .run();
}

/// Brings an open file to our schema, or fails with the reason why it must not be touched.
void prepareSchema(SqliteDatabase& database, const std::string& path) {
    const auto isOurs = [&](std::int64_t application, std::int64_t version) {
        if (application != applicationId) {
            database.fail({path, "a database of another program", StoreError::Kind::unusable});
        } else if (version > schemaVersion) {
            database.fail(
                {path, "written by a newer version of the program", StoreError::Kind::passing});
        } else if (version < schemaVersion) {
            database.failDamaged();
        }
    };
    // Before SQLite itself looks into the file: it might begin to write beside it.
    if (const auto header = database.header()) {
        isOurs(header->applicationId, header->userVersion);
    }
    database.execute(settings);
    std::int64_t application = 0;
    std::int64_t version = 0;
    std::int64_t tables = 0;
    {
        SqliteStatement read = database.statement(
            "SELECT (SELECT application_id FROM pragma_application_id),"
            " (SELECT user_version FROM pragma_user_version),"
            " (SELECT count(*) FROM sqlite_master)");
        if (read.step()) {
            application = read.number(0);
            version = read.number(1);
            tables = read.number(2);
        }
    }
    if (!database.ok()) {
        return;
    }
    if (application != 0 || version != 0 || tables != 0) {
        isOurs(application, version);
        return;
    }
    SqliteTransaction making(database);
    database.execute(schema);
    if (auto error = making.commit()) {
        database.fail(std::move(*error));
    }
}

}  // namespace

StoreResult<CleanUpJournal> CleanUpJournal::open(const std::string& folder,
                                                 std::chrono::milliseconds patience) {
    const Result<FolderLock> folderLock = FolderLock::take(folder, patience);
    if (!folderLock) {
        return passingError(folder, folderLock.error());
    }
    // Links above the file are followed here; SQLite is told to follow none.
    std::error_code unresolved;
    const std::filesystem::path real = std::filesystem::canonical(folder, unresolved);
    if (unresolved) {
        return passingError(folder, SystemError{unresolved.value()});
    }
    std::string path = real.native() + journalName;
    LockFile locks(real.native() + journalLockName);
    Result<FileLock> presence = locks.tryTake(presenceLock, LockSharing::shared);
    if (!presence) {
        return lockError(locks, presence.error());
    }
    if (const auto failure = makePrivateFile(path)) {
        StoreError error = storeErrorOf(path, *failure);
        if (failure->code == ELOOP) {
            error.text = "is a link";
        }
        return error;
    }
    auto database = std::make_unique<SqliteDatabase>(path, patience);
    prepareSchema(*database, path);
    if (auto error = database->takeError()) {
        return std::move(*error);
    }
    return CleanUpJournal(std::move(path), std::move(locks), std::move(*presence),
                          std::move(database));
}

bool CleanUpJournal::isIn(const std::string& folder) {
    std::error_code unknown;
    const auto status = std::filesystem::symlink_status(folder + journalName, unknown);
    return status.type() != std::filesystem::file_type::not_found;
}

StoreResult<std::string> CleanUpJournal::putAside(const std::string& folder) {
    const Result<FolderLock> folderLock = FolderLock::take(folder);
    if (!folderLock) {
        return passingError(folder, folderLock.error());
    }
    const LockFile locks(folder + journalLockName);
    const Result<FileLock> alone = locks.tryTake(presenceLock);
    if (!alone) {
        return lockError(locks, alone.error());
    }
    const std::string path = folder + journalName;
    // First, and even if the other one fails: a new journal must never find the old one's.
    const std::string rollback = path + std::string(rollbackSuffix);
    const Result<std::string> rollbackAside = tarvin::putAside(rollback, asideSuffix);
    if (!rollbackAside && rollbackAside.error().code != ENOENT) {
        return passingError(rollback, rollbackAside.error());
    }
    const Result<std::string> aside = tarvin::putAside(path, asideSuffix);
    if (!aside) {
        return storeErrorOf(path, aside.error());
    }
    return *aside;
}

CleanUpJournal::CleanUpJournal(std::string path, LockFile locks, FileLock presence,
                               std::unique_ptr<SqliteDatabase> database)
    : path_(std::move(path)),
      locks_(std::move(locks)),
      presence_(std::move(presence)),
      database_(std::move(database)) {}

CleanUpJournal::CleanUpJournal(CleanUpJournal&& other) noexcept = default;

CleanUpJournal& CleanUpJournal::operator=(CleanUpJournal&& other) noexcept {
    std::swap(path_, other.path_);
    std::swap(locks_, other.locks_);
    std::swap(presence_, other.presence_);
    std::swap(database_, other.database_);
    std::swap(held_, other.held_);
    std::swap(outcomes_, other.outcomes_);
    return *this;
}

CleanUpJournal::~CleanUpJournal() {
    if (database_ != nullptr) {
        // What is lost here is found out again like after a crash.
        static_cast<void>(writeOutcomes());
    }
}

StoreResult<CleanUpId> CleanUpJournal::begin(Timestamp now) {
    if (auto error = writeOutcomes()) {
        return std::move(*error);
    }
    prune();
    SqliteTransaction beginning(*database_);
    CleanUpId id = 1;
    {
        SqliteStatement last =
            database_->statement("SELECT seq FROM sqlite_sequence WHERE name = 'clean_up'");
        if (last.step()) {
            id = last.number(0) + 1;
        }
    }
    // Taken before others can see the clean-up. Who used a journal that was put aside since may
    // still hold the lock of a number.
    Result<FileLock> lock = locks_.tryTake(static_cast<std::uint64_t>(id));
    for (int tries = 0; !lock && lock.error().code == EBUSY && tries < maxLockedNumbers; ++tries) {
        ++id;
        lock = locks_.tryTake(static_cast<std::uint64_t>(id));
    }
    if (!lock) {
        database_->fail(lockError(locks_, lock.error()));
    }
    if (id >= rowsOfCleanUp / 2) {
        database_->failDamaged();  // nobody has cleaned up so often
    }
    database_->statement("INSERT INTO clean_up (id, begun) VALUES (?, ?)")
        .with(id)
        .with(now.time_since_epoch().count())
        .run();
    if (auto error = beginning.commit()) {
        return std::move(*error);
    }
    held_.emplace(id, std::move(*lock));
    return id;
}

StoreResult<MoveRow> CleanUpJournal::plan(CleanUpId id, std::span<const PlannedMove> moves) {
    if (!held_.contains(id)) {
        return passingError(path_, SystemError{ENOLCK});
    }
    SqliteTransaction planning(*database_);
    applyOutcomes();
    std::int64_t planned = 0;
    {
        SqliteStatement read = database_->statement("SELECT planned FROM clean_up WHERE id = ?");
        if (read.with(id).step()) {
            planned = read.number(0);
        }
    }
    const MoveRow first = firstRowOf(id) + planned + 1;
    MoveRow row = first;
    FolderNumbers folders(*database_, id);
    SqliteStatement insert = database_->statement(
        "INSERT INTO move VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, NULL, NULL)");
    for (const PlannedMove& move : moves) {
        if (!move.path.starts_with('/') || move.size > static_cast<std::uint64_t>(maxNumber) ||
            (move.staying && !move.staying->path.starts_with('/'))) {
            database_->fail(passingError(move.path, SystemError{EINVAL}));
            break;
        }
        const auto [folder, name] = partsOf(move.path);
        insert.again();
        insert.with(row++).with(folders.numberOf(folder)).with(name);
        insert.with(static_cast<std::int64_t>(move.inode));
        insert.with(static_cast<std::int64_t>(move.size));
        withDate(insert, move.modified);
        if (move.staying) {
            const auto [stayingFolder, stayingName] = partsOf(move.staying->path);
            insert.with(folders.numberOf(stayingFolder));
            stayingName == name ? insert.withNull() : insert.with(stayingName);
            insert.with(static_cast<std::int64_t>(move.staying->inode));
            withDate(insert, move.staying->modified);
        } else {
            insert.with(0).withNull().withNull().withNull();
        }
        insert.with(static_cast<std::int64_t>(MoveState::planned)).run();
    }
    folders.storeCount();
    database_->statement("UPDATE clean_up SET planned = ? WHERE id = ?")
        .with(row - firstRowOf(id) - 1)
        .with(id)
        .run();
    insert.again();
    if (auto error = planning.commit()) {
        return std::move(*error);
    }
    outcomes_.clear();
    return first;
}

std::optional<StoreError> CleanUpJournal::record(std::span<const RecordedOutcome> outcomes) {
    outcomes_.insert(outcomes_.end(), outcomes.begin(), outcomes.end());
    return outcomes_.size() < maxUnwrittenOutcomes ? std::nullopt : writeOutcomes();
}

std::optional<StoreError> CleanUpJournal::writeOutcomes() {
    if (outcomes_.empty()) {
        return std::nullopt;
    }
    SqliteTransaction writing(*database_);
    applyOutcomes();
    auto error = writing.commit();
    if (!error) {
        outcomes_.clear();
    }
    return error;
}

namespace {

/// Writes the outcomes of one clean-up, inside a transaction.
class OutcomeWriter final {
 public:
    OutcomeWriter(SqliteDatabase& database, CleanUpId id)
        : database_(database), id_(id), folders_(database, id) {}

    void write(const RecordedOutcome& outcome) {
        SqliteStatement read =
            database_.statement("SELECT state, size, name FROM move WHERE id = ?");
        if (!read.with(outcome.row).step()) {
            if (database_.ok()) {
                database_.failDamaged();  // it was planned, and durably so
            }
            return;
        }
        if (read.number(0) != static_cast<std::int64_t>(MoveState::planned)) {
            return;
        }
        const bool isMoved = outcome.state == MoveState::moved;
        SqliteStatement update = database_.statement(
            "UPDATE move SET state = ?, trash = ?, trash_name = ?, reason = ? WHERE id = ?");
        if (isMoved) {
            const bool hasOwnName = outcome.trashName.empty() || read.bytes(2) == outcome.trashName;
            update.with(static_cast<std::int64_t>(MoveState::moved));
            update.with(folders_.numberOf(outcome.trashFolder));
            hasOwnName ? update.withNull() : update.with(std::string_view(outcome.trashName));
            update.withNull();
            ++changes_.movedFiles;
            changes_.movedBytes = cappedSum(changes_.movedBytes, read.number(1));
        } else {
            update.with(static_cast<std::int64_t>(MoveState::left)).with(0).withNull();
            update.with(std::string_view(outcome.reason));
            ++changes_.leftFiles;
        }
        read.again();
        update.with(outcome.row).run();
    }

    /// Moves of consecutive rows to one Trash, each under its own name. Much cheaper than one by
    /// one. False if one of them has an outcome already; nothing is written then.
    bool writeRun(MoveRow first, MoveRow last, const std::string& trash) {
        {
            SqliteStatement read = database_.statement(
                "SELECT count(*), sum(size >> 32), sum(size & 4294967295) FROM move"
                " WHERE id BETWEEN ? AND ? AND state = 0");
            if (!read.with(first).with(last).step() || read.number(0) != last - first + 1) {
                return false;
            }
            const std::int64_t high = read.number(1);
            const std::int64_t bytes = high > maxNumber >> 32 ? maxNumber : high << 32;
            changes_.movedBytes = cappedSum(changes_.movedBytes, cappedSum(bytes, read.number(2)));
        }
        changes_.movedFiles += last - first + 1;
        database_.statement("UPDATE move SET state = 1, trash = ? WHERE id BETWEEN ? AND ?")
            .with(folders_.numberOf(trash))
            .with(first)
            .with(last)
            .run();
        return true;
    }

    void storeCounts() {
        folders_.storeCount();
        storeCounters(database_, id_, changes_);
    }

 private:
    SqliteDatabase& database_;
    const CleanUpId id_;
    FolderNumbers folders_;
    CounterChanges changes_;
};

using Outcomes = std::vector<RecordedOutcome>;

/// Behind the last of those that OutcomeWriter::writeRun() takes together; at least one.
Outcomes::const_iterator endOfRun(Outcomes::const_iterator first, Outcomes::const_iterator end) {
    const auto joins = [&](const RecordedOutcome& outcome) {
        return outcome.state == MoveState::moved && outcome.trashName.empty() &&
               outcome.trashFolder == first->trashFolder;
    };
    auto last = first;
    for (auto next = std::next(first);
         next != end && joins(*last) && joins(*next) && next->row == last->row + 1 &&
         cleanUpOf(next->row) == cleanUpOf(first->row);
         ++next) {
        last = next;
    }
    return std::next(last);
}

// As the statements say.
static_assert(static_cast<int>(MoveState::planned) == 0 && static_cast<int>(MoveState::moved) == 1);

}  // namespace

void CleanUpJournal::applyOutcomes() {
    std::map<CleanUpId, OutcomeWriter> writers;
    for (auto outcome = outcomes_.begin(); outcome != outcomes_.end();) {
        const auto end = endOfRun(outcome, outcomes_.end());
        const CleanUpId id = cleanUpOf(outcome->row);
        OutcomeWriter& writer = writers.try_emplace(id, *database_, id).first->second;
        const bool isWritten =
            end - outcome > 1 &&
            writer.writeRun(outcome->row, std::prev(end)->row, outcome->trashFolder);
        for (; outcome != end; ++outcome) {
            if (!isWritten) {
                writer.write(*outcome);
            }
        }
    }
    for (auto& [id, writer] : writers) {
        writer.storeCounts();
    }
}

std::optional<StoreError> CleanUpJournal::finish(CleanUpId id) {
    SqliteTransaction finishing(*database_);
    applyOutcomes();
    database_->statement("UPDATE clean_up SET finished = 1 WHERE id = ?").with(id).run();
    if (auto error = finishing.commit()) {
        return error;
    }
    outcomes_.clear();
    held_.erase(id);
    prune();
    return std::nullopt;
}

/// What cannot be deleted now is deleted the next time.
void CleanUpJournal::prune() {
    std::vector<CleanUpId> old;
    {
        SqliteStatement read = database_->statement(
            "SELECT id FROM (SELECT * FROM clean_up WHERE finished ORDER BY id DESC"
            " LIMIT -1 OFFSET ?) AS old WHERE counted_files = moved_files - put_back_files"
            " AND counted_bytes = moved_bytes - put_back_bytes"
            " AND NOT EXISTS (SELECT 1 FROM intent WHERE intent.clean_up = old.id)");
        for (read.with(keptCleanUps); read.step();) {
            old.push_back(read.number(0));
        }
    }
    for (const CleanUpId id : old) {
        const Result<FileLock> lock = locks_.tryTake(static_cast<std::uint64_t>(id));
        if (!lock) {
            continue;  // somebody puts it back
        }
        SqliteTransaction deleting(*database_);
        database_->statement("DELETE FROM move WHERE id BETWEEN ? AND ?")
            .with(firstRowOf(id))
            .with(firstRowOf(id) + rowsOfCleanUp - 1)
            .run();
        database_->statement("DELETE FROM clean_up WHERE id = ?").with(id).run();
        static_cast<void>(deleting.commit());
    }
    static_cast<void>(database_->takeError());
}

std::optional<StoreError> CleanUpJournal::claim(CleanUpId id) {
    if (held_.contains(id)) {
        return std::nullopt;
    }
    Result<FileLock> lock = locks_.tryTake(static_cast<std::uint64_t>(id));
    if (!lock) {
        return lockError(locks_, lock.error());
    }
    held_.emplace(id, std::move(*lock));
    return std::nullopt;
}

std::optional<StoreError> CleanUpJournal::beginReturn(CleanUpId id) {
    return setFinished(id, "UPDATE clean_up SET finished = 2 WHERE id = ? AND finished");
}

std::optional<StoreError> CleanUpJournal::endReturn(CleanUpId id) {
    return setFinished(id, "UPDATE clean_up SET finished = 1 WHERE id = ? AND finished");
}

std::optional<StoreError> CleanUpJournal::setFinished(CleanUpId id, const char* statement) {
    SqliteTransaction setting(*database_);
    database_->statement(statement).with(id).run();
    return setting.commit();
}

void CleanUpJournal::release(CleanUpId id) {
    held_.erase(id);
}

StoreResult<std::vector<CleanUpSummary>> CleanUpJournal::crashed() {
    auto before = cleanUps();
    auto* candidates = std::get_if<std::vector<CleanUpSummary>>(&before);
    if (candidates == nullptr) {
        return before;
    }
    std::map<CleanUpId, FileLock> taken;
    for (const CleanUpSummary& candidate : *candidates) {
        if (isSettled(candidate) || held_.contains(candidate.id)) {
            continue;
        }
        Result<FileLock> lock = locks_.tryTake(static_cast<std::uint64_t>(candidate.id));
        if (lock) {
            taken.emplace(candidate.id, std::move(*lock));
        } else if (lock.error().code != EBUSY) {
            return lockError(locks_, lock.error());
        }
    }
    // Their processes may have gone on, and to the end, between the reading and the locks.
    auto now = cleanUps();
    auto* all = std::get_if<std::vector<CleanUpSummary>>(&now);
    if (all == nullptr) {
        return now;
    }
    std::reverse(all->begin(), all->end());
    std::erase_if(*all, [&](const CleanUpSummary& summary) {
        return isSettled(summary) || !taken.contains(summary.id);
    });
    for (const CleanUpSummary& summary : *all) {
        held_.insert(taken.extract(summary.id));
    }
    return now;
}

StoreResult<std::vector<CleanUpSummary>> CleanUpJournal::cleanUps() {
    if (auto error = writeOutcomes()) {
        return std::move(*error);
    }
    std::vector<CleanUpSummary> found;
    SqliteStatement read = database_->statement(
        "SELECT id, begun, finished, planned, moved_files, moved_bytes, left_files,"
        " put_back_files, put_back_bytes, lost_files FROM clean_up ORDER BY id DESC");
    while (read.step()) {
        found.push_back(summaryOf(read));
    }
    if (auto error = database_->takeError()) {
        return std::move(*error);
    }
    return found;
}

namespace {

// A state that is none is read as damage, not passed over.
constexpr const char* movesForward =
    "SELECT move.id, folder.path, name, inode, size, modified, state, trash.path,"
    " coalesce(trash_name, name), reason, stays.path, coalesce(stays_name, name), stays_inode,"
    " stays_modified FROM move"
    " LEFT JOIN folder ON folder.id = (move.id >> 32 << 32 | move.folder)"
    " LEFT JOIN folder AS trash ON trash.id = (move.id >> 32 << 32 | move.trash)"
    " LEFT JOIN folder AS stays ON stays.id = (move.id >> 32 << 32 | stays_folder)"
    " WHERE move.id > ? AND move.id < ? AND (state NOT BETWEEN 0 AND 4 OR ? >> state & 1)"
    " ORDER BY move.id LIMIT ?";
constexpr const char* movesBackward =
    "SELECT move.id, folder.path, name, inode, size, modified, state, trash.path,"
    " coalesce(trash_name, name), reason, stays.path, coalesce(stays_name, name), stays_inode,"
    " stays_modified FROM move"
    " LEFT JOIN folder ON folder.id = (move.id >> 32 << 32 | move.folder)"
    " LEFT JOIN folder AS trash ON trash.id = (move.id >> 32 << 32 | move.trash)"
    " LEFT JOIN folder AS stays ON stays.id = (move.id >> 32 << 32 | stays_folder)"
    " WHERE move.id > ? AND move.id < ? AND (state NOT BETWEEN 0 AND 4 OR ? >> state & 1)"
    " ORDER BY move.id DESC LIMIT ?";

/// False if the row cannot be one of ours.
bool readMove(const SqliteStatement& row, JournalMove& move) {
    const std::int64_t state = row.number(6);
    if (row.isNull(1) || state < 0 || state > static_cast<std::int64_t>(MoveState::lost)) {
        return false;
    }
    move.row = row.number(0);
    move.path.assign(row.bytes(1)).append("/").append(row.bytes(2));
    move.inode = static_cast<std::uint64_t>(row.number(3));
    move.size = asCount(row.number(4));
    move.modified = dateIn(row, 5);
    if (!row.isNull(10)) {
        StayingFile& staying = move.staying.emplace();
        staying.path.assign(row.bytes(10)).append("/").append(row.bytes(11));
        staying.inode = static_cast<std::uint64_t>(row.number(12));
        staying.modified = dateIn(row, 13);
    }
    move.state = static_cast<MoveState>(state);
    move.reason = row.bytes(9);
    if (move.state != MoveState::planned && move.state != MoveState::left) {
        move.trashFolder = row.bytes(7);
        move.trashName = row.bytes(8);
        return !row.isNull(7);
    }
    return true;
}

}  // namespace

StoreResult<std::vector<JournalMove>> CleanUpJournal::moves(CleanUpId id, MoveStates states,
                                                            std::size_t limit, MoveRow after,
                                                            Order order) {
    if (auto error = writeOutcomes()) {
        return std::move(*error);
    }
    const bool isForward = order == Order::asPlanned;
    std::int64_t above = firstRowOf(id);
    std::int64_t below = above + rowsOfCleanUp;
    if (after != 0) {
        (isForward ? above : below) = after;
    }
    std::vector<JournalMove> found;
    SqliteStatement read = database_->statement(isForward ? movesForward : movesBackward);
    read.with(above).with(below).with(std::int64_t{states.bits()}).with(asNumber(limit));
    while (read.step()) {
        if (!readMove(read, found.emplace_back())) {
            database_->failDamaged();
        }
    }
    if (auto error = database_->takeError()) {
        return std::move(*error);
    }
    return found;
}

std::optional<StoreError> CleanUpJournal::forEachMove(
    CleanUpId id, MoveStates states, Order order,
    const std::function<bool(const JournalMove&)>& visit) {
    MoveRow last = 0;
    while (true) {
        auto read = moves(id, states, movesReadAtOnce, last, order);
        if (auto* error = std::get_if<StoreError>(&read)) {
            return std::move(*error);
        }
        const auto& found = std::get<std::vector<JournalMove>>(read);
        for (const JournalMove& move : found) {
            if (!visit(move)) {
                return std::nullopt;
            }
        }
        if (found.size() < movesReadAtOnce) {
            return std::nullopt;
        }
        last = found.back().row;
    }
}

std::optional<StoreError> CleanUpJournal::mark(std::span<const MoveRow> rows, MoveState state) {
    SqliteTransaction marking(*database_);
    applyOutcomes();
    std::map<CleanUpId, CounterChanges> changes;
    for (const MoveRow row : rows) {
        SqliteStatement read = database_->statement("SELECT state, size FROM move WHERE id = ?");
        if (!read.with(row).step()) {
            if (database_->ok()) {
                database_->failDamaged();
            }
            break;
        }
        const auto old = static_cast<MoveState>(read.number(0));
        CounterChanges& change = changes[cleanUpOf(row)];
        if (state == MoveState::putBack && (old == MoveState::moved || old == MoveState::lost)) {
            ++change.putBackFiles;
            change.putBackBytes = cappedSum(change.putBackBytes, read.number(1));
            change.lostFiles -= old == MoveState::lost ? 1 : 0;
        } else if (state == MoveState::lost && old == MoveState::moved) {
            ++change.lostFiles;
        } else {
            continue;
        }
        read.again();
        database_->statement("UPDATE move SET state = ? WHERE id = ?")
            .with(static_cast<std::int64_t>(state))
            .with(row)
            .run();
    }
    for (const auto& [id, change] : changes) {
        storeCounters(*database_, id, change);
    }
    auto error = marking.commit();
    if (!error) {
        outcomes_.clear();
    }
    return error;
}

std::optional<StoreError> CleanUpJournal::markPutBack(std::span<const MoveRow> rows) {
    return mark(rows, MoveState::putBack);
}

std::optional<StoreError> CleanUpJournal::markLost(std::span<const MoveRow> rows) {
    return mark(rows, MoveState::lost);
}

StoreResult<std::vector<TotalsOfCleanUp>> CleanUpJournal::uncounted() {
    if (auto error = writeOutcomes()) {
        return std::move(*error);
    }
    std::vector<TotalsOfCleanUp> found;
    SqliteStatement read = database_->statement(
        "SELECT id, counted_files, counted_bytes, moved_files - put_back_files,"
        " moved_bytes - put_back_bytes FROM clean_up"
        " WHERE counted_files <> moved_files - put_back_files"
        " OR counted_bytes <> moved_bytes - put_back_bytes ORDER BY id");
    while (read.step()) {
        found.push_back({read.number(0), asCount(read.number(1)), asCount(read.number(2)),
                         asCount(read.number(3)), asCount(read.number(4))});
    }
    if (auto error = database_->takeError()) {
        return std::move(*error);
    }
    return found;
}

StoreResult<std::optional<TotalsIntent>> CleanUpJournal::totalsIntent() {
    std::optional<TotalsIntent> intent;
    SqliteStatement read = database_->statement(
        "SELECT clean_up, counted_files, counted_bytes, files, bytes, before_count, before_size,"
        " after_count, after_size FROM intent");
    if (read.step()) {
        intent = TotalsIntent{{read.number(0), asCount(read.number(1)), asCount(read.number(2)),
                               asCount(read.number(3)), asCount(read.number(4))},
                              {read.number(5), static_cast<std::uint64_t>(read.number(6))},
                              {read.number(7), static_cast<std::uint64_t>(read.number(8))}};
    }
    if (auto error = database_->takeError()) {
        return std::move(*error);
    }
    return intent;
}

std::optional<StoreError> CleanUpJournal::setTotalsIntent(const TotalsIntent& intent) {
    SqliteTransaction intending(*database_);
    database_->statement("INSERT INTO intent VALUES (1, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
        .with(intent.change.id)
        .with(asNumber(intent.change.countedFiles))
        .with(asNumber(intent.change.countedBytes))
        .with(asNumber(intent.change.files))
        .with(asNumber(intent.change.bytes))
        .with(intent.before.count)
        .with(static_cast<std::int64_t>(intent.before.size))
        .with(intent.after.count)
        .with(static_cast<std::int64_t>(intent.after.size))
        .run();
    return intending.commit();
}

std::optional<StoreError> CleanUpJournal::clearTotalsIntent(bool wasMade) {
    SqliteTransaction clearing(*database_);
    if (wasMade) {
        database_->execute(
            "UPDATE clean_up SET counted_files = intent.files, counted_bytes = intent.bytes"
            " FROM intent WHERE clean_up.id = intent.clean_up");
    }
    database_->execute("DELETE FROM intent");
    return clearing.commit();
}

std::optional<StoreError> CleanUpJournal::setCounted(const TotalsOfCleanUp& counted) {
    SqliteTransaction counting(*database_);
    database_->statement("UPDATE clean_up SET counted_files = ?, counted_bytes = ? WHERE id = ?")
        .with(asNumber(counted.files))
        .with(asNumber(counted.bytes))
        .with(counted.id)
        .run();
    return counting.commit();
}

}  // namespace tarvin
