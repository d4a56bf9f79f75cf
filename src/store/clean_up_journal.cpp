#include "store/clean_up_journal.h"

#include "platform/durable_file.h"
#include "store/clean_up_journal_rows.h"
#include "store/stored_list.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* journalName = "/clean-ups.sqlite";
constexpr const char* journalLockName = "/clean-ups.lock";
constexpr std::string_view rollbackSuffix = "-journal";
constexpr std::string_view asideSuffix = ".unreadable";

/// Lock shared by all objects that have the journal open. Clean-ups use their numbers, from 1.
constexpr std::uint64_t presenceLock = 0;

constexpr std::int64_t maxKeptCleanUps = 30;
constexpr int maxLockedNumbers = 1000;

StoreError lockError(const LockFile& locks, SystemError reason) {
    if (reason.code == EBUSY) {
        return {locks.path(), "in use by another process", StoreError::Kind::passing};
    }
    return passingError(locks.path(), reason);
}

CleanUpId nextIdIn(SqliteDatabase& database) {
    SqliteStatement last =
        database.statement("SELECT seq FROM sqlite_sequence WHERE name = 'clean_up'");
    return last.step() ? last.number(0) + 1 : 1;
}

/// Takes the lock of `id` or, if it is held, of the next free number, which becomes `id`: a process
/// that used a journal since moved aside may still hold the lock of a number.
Result<FileLock> takeUnheld(const LockFile& locks, CleanUpId& id) {
    Result<FileLock> lock = locks.tryTake(static_cast<std::uint64_t>(id));
    for (int tries = 0; !lock && lock.error().code == EBUSY && tries < maxLockedNumbers; ++tries) {
        ++id;
        lock = locks.tryTake(static_cast<std::uint64_t>(id));
    }
    return lock;
}

/// Whether it needs no recovery.
bool isSettled(const CleanUpSummary& cleanUp) {
    return cleanUp.finished && !cleanUp.isReturning;
}

}  // namespace

StoreResult<CleanUpJournal> CleanUpJournal::open(const std::string& folder,
                                                 std::chrono::milliseconds patience) {
    const Result<FolderLock> folderLock = FolderLock::take(folder, patience);
    if (!folderLock) {
        return passingError(folder, folderLock.error());
    }
    // Symlinks above the file are resolved here, since SQLite opens it with SQLITE_OPEN_NOFOLLOW.
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

StoreResult<std::string> CleanUpJournal::moveAside(const std::string& folder) {
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
    // First, and even if the second rename fails: a new journal must never find the rollback
    // journal of the old one.
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
        // Outcomes that cannot be written are recovered as after a crash.
        static_cast<void>(writeOutcomes());
    }
}

StoreResult<CleanUpId> CleanUpJournal::begin(Timestamp now) {
    if (auto error = writeOutcomes()) {
        return std::move(*error);
    }
    prune();
    SqliteTransaction beginning(*database_);
    CleanUpId id = nextIdIn(*database_);
    // Locked before other processes can see the clean-up.
    Result<FileLock> lock = takeUnheld(locks_, id);
    if (!lock) {
        database_->fail(lockError(locks_, lock.error()));
    }
    if (id >= rowsOfCleanUp / 2) {
        database_->failDamaged();  // 2^31 clean-ups are impossible in practice
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

/// Deletes old clean-ups. Failures are ignored: the next call tries again.
void CleanUpJournal::prune() {
    std::vector<CleanUpId> old;
    {
        SqliteStatement read = database_->statement(
            "SELECT id FROM (SELECT * FROM clean_up WHERE finished ORDER BY id DESC"
            " LIMIT -1 OFFSET ?) AS old WHERE counted_files = moved_files - put_back_files"
            " AND counted_bytes = moved_bytes - put_back_bytes"
            " AND NOT EXISTS (SELECT 1 FROM intent WHERE intent.clean_up = old.id)");
        for (read.with(maxKeptCleanUps); read.step();) {
            old.push_back(read.number(0));
        }
    }
    for (const CleanUpId id : old) {
        const Result<FileLock> lock = locks_.tryTake(static_cast<std::uint64_t>(id));
        if (!lock) {
            continue;  // a process is putting it back
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
    // Read again: a process may have finished its clean-up between the first reading and the lock.
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

}  // namespace tarvin
