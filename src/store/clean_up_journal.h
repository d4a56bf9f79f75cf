#pragma once

#include "platform/file_lock.h"
#include "platform/timestamp.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace tarvin {

class SqliteDatabase;

/// The number of a clean-up, from 1 up; newer ones have larger numbers, and none is used twice.
using CleanUpId = std::int64_t;
/// The number of a move, unique in its journal; its upper half is the clean-up.
using MoveRow = std::int64_t;

/// planned becomes moved or left; moved becomes putBack or lost, and lost becomes putBack.
enum class MoveState : std::uint8_t {
    planned,  ///< no outcome has been recorded
    moved,    ///< in the Trash
    left,     ///< was not moved
    putBack,  ///< was in the Trash and has been put back
    lost      ///< no longer in the Trash, and not put back by tarvin
};

/// A set of states.
class MoveStates final {
 public:
    constexpr MoveStates(std::initializer_list<MoveState> states) {
        for (const MoveState state : states) {
            bits_ |= bitOf(state);
        }
    }
    static constexpr MoveStates all() {
        return {MoveState::planned, MoveState::moved, MoveState::left, MoveState::putBack,
                MoveState::lost};
    }
    [[nodiscard]] constexpr bool has(MoveState state) const { return (bits_ & bitOf(state)) != 0; }
    [[nodiscard]] constexpr std::uint32_t bits() const { return bits_; }

 private:
    static constexpr std::uint32_t bitOf(MoveState state) {
        return 1U << static_cast<unsigned>(state);
    }
    std::uint32_t bits_ = 0;
};

/// The file of a set that stays in its place while its duplicates are moved.
struct StayingFile {
    std::string path;  ///< absolute, native bytes
    std::uint64_t inode = 0;
    std::optional<Timestamp> modified;

    bool operator==(const StayingFile&) const = default;
};

/// A file that is about to be moved to the Trash.
struct PlannedMove {
    std::string path;  ///< absolute, native bytes
    std::uint64_t inode = 0;
    std::uint64_t size = 0;  ///< bytes, at most 2^63 - 1
    std::optional<Timestamp> modified;
    /// Has the same size; nullopt if the whole set is moved.
    std::optional<StayingFile> staying = std::nullopt;
};

/// The outcome of a planned move.
struct RecordedOutcome {
    MoveRow row = 0;
    MoveState state = MoveState::moved;  ///< moved or left
    std::string trashFolder;             ///< moved: absolute path of the Trash folder
    std::string trashName;               ///< moved: its name in "files"; empty if unchanged
    std::string reason;                  ///< left: free text of the caller
};

/// A move as stored in the journal.
struct JournalMove {
    MoveRow row = 0;
    std::string path;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;  ///< bytes
    std::optional<Timestamp> modified;
    std::optional<StayingFile> staying;
    MoveState state = MoveState::planned;
    std::string trashFolder;  ///< as recorded; empty if it was not moved
    std::string trashName;
    std::string reason;  ///< as recorded; empty if it was not left
};

/// One clean-up. Moved files still count as moved after they have been put back or lost.
struct CleanUpSummary {
    CleanUpId id = 0;
    Timestamp begun;
    bool finished = false;
    bool isReturning = false;        ///< its files are being put back, or were when a process ended
    std::uint64_t plannedFiles = 0;  ///< all moves
    std::uint64_t unsettledFiles = 0;  ///< in state planned
    std::uint64_t movedFiles = 0;
    std::uint64_t movedBytes = 0;
    std::uint64_t leftFiles = 0;
    std::uint64_t putBackFiles = 0;
    std::uint64_t putBackBytes = 0;
    std::uint64_t lostFiles = 0;
};

/// The part of a clean-up that the totals include, and the part that they should.
struct TotalsOfCleanUp {
    CleanUpId id = 0;
    std::uint64_t countedFiles = 0;
    std::uint64_t countedBytes = 0;
    std::uint64_t files = 0;  ///< moved and not put back
    std::uint64_t bytes = 0;
};

/// A change of the totals that is about to be made: once the data file holds `after`,
/// `change.files` and `change.bytes` of the clean-up are counted.
struct TotalsIntent {
    TotalsOfCleanUp change;
    StoredTotals before;
    StoredTotals after;
};

/// The journal of clean-ups, "clean-ups.sqlite" with "clean-ups.lock" in the data folder. Each move
/// to the Trash is stored here before it is made, and its outcome afterwards. Put Back reads it,
/// and so does the next start after a crash. A clean-up belongs to the process that holds its lock;
/// the object or the end of the process releases its locks. Several processes can use the file at
/// once.
///
/// One thread at a time; an object must not be used across a fork(). Calls wait for other processes
/// for the `patience` of open(). A call that fails has changed nothing. The kind of its error is
/// "unusable" if the file is damaged or belongs to another program, otherwise "passing" (no space,
/// read-only, in use, written by a newer version). Only moveAside() replaces or renames the file.
class CleanUpJournal final {
 public:
    /// Creates a missing folder and file, private to the user. The caller must not hold the
    /// FolderLock of `folder`, which this call takes.
    static StoreResult<CleanUpJournal> open(
        const std::string& folder, std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// Whether `folder` has a journal, usable or not. Opens and creates nothing.
    static bool isIn(const std::string& folder);

    /// Appends ".unreadable" to the names of the journal in `folder` and of its rollback journal,
    /// so that open() creates a new one. Returns the new path. Fails ("passing") while any process
    /// has the journal open. Its clean-ups can no longer be put back or counted afterwards.
    static StoreResult<std::string> moveAside(const std::string& folder);

    CleanUpJournal(CleanUpJournal&& other) noexcept;
    CleanUpJournal& operator=(CleanUpJournal&& other) noexcept;
    /// Writes pending outcomes if possible and releases all locks: an unfinished clean-up then
    /// counts as crashed.
    ~CleanUpJournal();

    [[nodiscard]] const std::string& path() const { return path_; }

    /// Begins a clean-up and holds its lock until finish(), release() or destruction. To be called
    /// only if there is something to plan: only the newest 30 finished clean-ups are kept. Older
    /// ones are deleted unless the totals do not include them yet or their lock is held.
    StoreResult<CleanUpId> begin(Timestamp now);

    /// Plans moves of a clean-up whose lock this object holds. They get consecutive numbers, in
    /// order; returns the first. One transaction: on return it is durable, and so are all outcomes
    /// recorded before.
    StoreResult<MoveRow> plan(CleanUpId id, std::span<const PlannedMove> moves);

    /// Records outcomes of planned moves. Cheap: they are kept in memory and written by the next
    /// plan() or any other call of this object, on destruction, or once there are 4,096. Recovery
    /// determines those that a crash has lost from the files. The first outcome of a move wins.
    [[nodiscard]] std::optional<StoreError> record(std::span<const RecordedOutcome> outcomes);

    /// Marks a clean-up as finished and releases its lock; deletes old ones like begin(). Each of
    /// its moves should have an outcome. On failure the lock is kept.
    [[nodiscard]] std::optional<StoreError> finish(CleanUpId id);

    /// Takes the lock of any clean-up, so that only this process puts its files back; fails with
    /// "in use by another process" if another one holds it. Does nothing if this object holds it.
    [[nodiscard]] std::optional<StoreError> claim(CleanUpId id);
    /// Releases the lock of a clean-up, finished or not, if this object holds it.
    void release(CleanUpId id);

    /// Marks a clean-up whose lock is held as being put back: if the process ends before
    /// endReturn(), it counts as crashed. An unfinished one stays unfinished. Durable on return.
    [[nodiscard]] std::optional<StoreError> beginReturn(CleanUpId id);
    [[nodiscard]] std::optional<StoreError> endReturn(CleanUpId id);

    /// Returns the clean-ups that no process holds and that are unfinished or were being put back,
    /// oldest first. Takes the lock of each until finish(), release() or destruction, so that only
    /// one process recovers it.
    StoreResult<std::vector<CleanUpSummary>> crashed();

    /// Returns all clean-ups, newest first.
    StoreResult<std::vector<CleanUpSummary>> cleanUps();

    enum class Order : std::uint8_t { asPlanned, lastFirst };

    /// Returns up to `limit` moves of a clean-up in any of `states`, in order, that follow (with
    /// lastFirst: precede) the row `after`; with 0 from the beginning.
    StoreResult<std::vector<JournalMove>> moves(CleanUpId id, MoveStates states, std::size_t limit,
                                                MoveRow after = 0, Order order = Order::asPlanned);

    /// Calls `visit` with each move in any of `states`, until it returns false. Reads in batches:
    /// memory is bounded, nothing is locked during a visit, and `visit` may use this object.
    /// Changes of state that `visit` makes are seen from the next batch on (1,024 moves).
    [[nodiscard]] std::optional<StoreError> forEachMove(
        CleanUpId id, MoveStates states, Order order,
        const std::function<bool(const JournalMove&)>& visit);

    /// Mark moves whose files were put back, or are no longer in the Trash. One transaction each,
    /// durable on return. Moves that are marked already, or were never made, stay as they are.
    [[nodiscard]] std::optional<StoreError> markPutBack(std::span<const MoveRow> rows);
    [[nodiscard]] std::optional<StoreError> markLost(std::span<const MoveRow> rows);

    // Only for settleTotals(), which holds the FolderLock.

    /// Returns the clean-ups that the totals do not include as they should, oldest first.
    StoreResult<std::vector<TotalsOfCleanUp>> uncounted();
    /// Returns the pending change, if there is one.
    StoreResult<std::optional<TotalsIntent>> totalsIntent();
    /// Durable on return. Requires that no change is pending.
    [[nodiscard]] std::optional<StoreError> setTotalsIntent(const TotalsIntent& intent);
    /// Removes the intent and, if the change was made, counts its clean-up, in one transaction.
    [[nodiscard]] std::optional<StoreError> clearTotalsIntent(bool wasMade);
    /// Counts a clean-up without a change of the data file.
    [[nodiscard]] std::optional<StoreError> setCounted(const TotalsOfCleanUp& counted);

 private:
    CleanUpJournal(std::string path, LockFile locks, FileLock presence,
                   std::unique_ptr<SqliteDatabase> database);

    std::optional<StoreError> setFinished(CleanUpId id, const char* statement);
    std::optional<StoreError> writeOutcomes();
    void applyOutcomes();
    std::optional<StoreError> mark(std::span<const MoveRow> rows, MoveState state);
    void prune();

    std::string path_;
    LockFile locks_;
    FileLock presence_;  // shared; moveAside() needs it exclusively
    std::unique_ptr<SqliteDatabase> database_;
    std::map<CleanUpId, FileLock> held_;
    std::vector<RecordedOutcome> outcomes_;  // pending
};

}  // namespace tarvin
