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
/// The number of a move, unique in its journal; it says of which clean-up it is.
using MoveRow = std::int64_t;

/// planned becomes moved or left; moved becomes putBack or lost, and lost becomes putBack.
enum class MoveState : std::uint8_t {
    planned,  ///< what came of it has not been recorded
    moved,    ///< in the Trash
    left,     ///< stayed where it was
    putBack,  ///< was in the Trash and has been put back
    lost      ///< is in the Trash no longer, and was not put back by us
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

/// The file of a content that is to stay in its place while copies of it are moved.
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
    std::optional<StayingFile> staying = std::nullopt;  ///< as large; none if all copies go
};

/// What came of a planned move.
struct RecordedOutcome {
    MoveRow row = 0;
    MoveState state = MoveState::moved;  ///< moved or left
    std::string trashFolder;             ///< moved: absolute path of the Trash folder
    std::string trashName;  ///< moved: its name in "files"; empty if it is the file's own
    std::string reason;     ///< left: why, in the caller's own words
};

/// A move as the journal knows it.
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

/// One clean-up. Files that were moved count as moved also after they were put back or lost.
struct CleanUpSummary {
    CleanUpId id = 0;
    Timestamp begun;
    bool finished = false;
    bool isReturning = false;  ///< files of it are being put back, or were when a process ended
    std::uint64_t plannedFiles = 0;    ///< all moves
    std::uint64_t unsettledFiles = 0;  ///< in state planned
    std::uint64_t movedFiles = 0;
    std::uint64_t movedBytes = 0;
    std::uint64_t leftFiles = 0;
    std::uint64_t putBackFiles = 0;
    std::uint64_t putBackBytes = 0;
    std::uint64_t lostFiles = 0;
};

/// What the totals include of a clean-up, and what they should.
struct TotalsOfCleanUp {
    CleanUpId id = 0;
    std::uint64_t countedFiles = 0;
    std::uint64_t countedBytes = 0;
    std::uint64_t files = 0;  ///< moved and not put back
    std::uint64_t bytes = 0;
};

/// A change of the totals that is about to be made: `change.files` and `bytes` are what will be
/// counted of the clean-up once the data file says `after`.
struct TotalsIntent {
    TotalsOfCleanUp change;
    StoredTotals before;
    StoredTotals after;
};

template <typename Value>
using StoreResult = std::variant<Value, StoreError>;

/// The journal of clean-ups, "clean-ups.sqlite" with "clean-ups.lock" in the application-support
/// folder: each move to the Trash is written here before it happens, and what came of it after.
/// Read by Put Back and, after a crash, by the next start. A clean-up belongs to the process that
/// holds its lock; locks end with the object or the process. Several processes use the file at
/// once.
///
/// One thread at a time, and the same object not across a fork(). Calls wait for other processes as
/// long as open() was told. A call that fails has changed nothing; its error says why: "unusable"
/// if the file is damaged or another program's, "passing" in all other cases (no room, read-only,
/// in use, written by a newer version). Nothing is overwritten or put aside unless moveAside() is
/// asked.
class CleanUpJournal final {
 public:
    /// Makes folder and file where they are missing, for the user alone. Holds the folder's
    /// FolderLock meanwhile, so the caller must not.
    static StoreResult<CleanUpJournal> open(
        const std::string& folder, std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// Whether there is a journal in `folder`, usable or not. Opens and makes nothing.
    static bool isIn(const std::string& folder);

    /// Gives the journal in `folder`, and the rollback journal beside it, names with ".unreadable"
    /// behind, so that open() makes a new one; returns the new path. Refused ("passing") while any
    /// process has it open. What it counted and planned is out of reach then.
    static StoreResult<std::string> moveAside(const std::string& folder);

    CleanUpJournal(CleanUpJournal&& other) noexcept;
    CleanUpJournal& operator=(CleanUpJournal&& other) noexcept;
    /// Writes outcomes that are still to be written, as far as that can be done, and gives back all
    /// locks: an unfinished clean-up then counts as crashed.
    ~CleanUpJournal();

    [[nodiscard]] const std::string& path() const { return path_; }

    /// Begins a clean-up and holds its lock until finish(), release() or destruction. Begin one
    /// only when there is something to plan: each takes one of the 30 places. Finished clean-ups
    /// beyond the newest 30 are deleted, except those that the totals do not include yet and those
    /// whose lock is held.
    StoreResult<CleanUpId> begin(Timestamp now);

    /// Plans moves of a clean-up whose lock is held here. They get consecutive numbers, in order;
    /// the first is returned. One transaction: on return it outlives a power failure, and so do all
    /// outcomes recorded before.
    StoreResult<MoveRow> plan(CleanUpId id, std::span<const PlannedMove> moves);

    /// Notes what came of planned moves. Cheap: kept in memory, and written with the next plan(),
    /// with any other call of this object, with its destruction, or once there are 4,096. What a
    /// crash takes is found out again by looking at the planned moves. Of two outcomes of one move
    /// the first counts.
    [[nodiscard]] std::optional<StoreError> record(std::span<const RecordedOutcome> outcomes);

    /// Marks a clean-up complete and gives back its lock; deletes old ones like begin(). Each of
    /// its moves should have an outcome. On failure the lock stays.
    [[nodiscard]] std::optional<StoreError> finish(CleanUpId id);

    /// Takes the lock of any clean-up, so that this process alone puts back what it moved; "in use
    /// by another process" if another one has it. Does nothing if it is held here already.
    [[nodiscard]] std::optional<StoreError> claim(CleanUpId id);
    /// Gives back the lock of a clean-up, finished or not, if it is held here.
    void release(CleanUpId id);

    /// Files of a clean-up whose lock is held are being put back: until endReturn() it counts as
    /// crashed if the process ends. An unfinished one stays so. Durable on return.
    [[nodiscard]] std::optional<StoreError> beginReturn(CleanUpId id);
    [[nodiscard]] std::optional<StoreError> endReturn(CleanUpId id);

    /// The clean-ups that nobody works on and that are unfinished or were being put back, oldest
    /// first. Each comes with its lock, held until finish(), release() or destruction: only one
    /// process recovers it.
    StoreResult<std::vector<CleanUpSummary>> crashed();

    /// All clean-ups, newest first.
    StoreResult<std::vector<CleanUpSummary>> cleanUps();

    enum class Order : std::uint8_t { asPlanned, lastFirst };

    /// Up to `limit` moves of a clean-up in any of `states`, in order, behind (or, lastFirst,
    /// before) the row `after`; 0 begins at the first.
    StoreResult<std::vector<JournalMove>> moves(CleanUpId id, MoveStates states, std::size_t limit,
                                                MoveRow after = 0, Order order = Order::asPlanned);

    /// Calls `visit` with each move in any of `states`, until it returns false. Reads in portions:
    /// memory is bounded, nothing is locked during a visit, and `visit` may use this object. A
    /// change of state that `visit` makes ahead is seen.
    [[nodiscard]] std::optional<StoreError> forEachMove(
        CleanUpId id, MoveStates states, Order order,
        const std::function<bool(const JournalMove&)>& visit);

    /// Moves that were put back, or that are no longer in the Trash. One transaction each, durable
    /// on return; a move that is so already, or was never moved, stays as it is.
    [[nodiscard]] std::optional<StoreError> markPutBack(std::span<const MoveRow> rows);
    [[nodiscard]] std::optional<StoreError> markLost(std::span<const MoveRow> rows);

    // For settleTotals(), which alone may call these; the caller holds the FolderLock.

    /// The clean-ups of which the totals do not include what they should, oldest first.
    StoreResult<std::vector<TotalsOfCleanUp>> uncounted();
    /// The change that was about to be made, if one was.
    StoreResult<std::optional<TotalsIntent>> totalsIntent();
    /// Durable on return. There must be no other.
    [[nodiscard]] std::optional<StoreError> setTotalsIntent(const TotalsIntent& intent);
    /// Ends the intent; if the change was made, its clean-up is counted as it says, in one
    /// transaction.
    [[nodiscard]] std::optional<StoreError> clearTotalsIntent(bool wasMade);
    /// Marks as counted without a change of the data file.
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
    FileLock presence_;  // shared, so that moveAside() sees that the file is in use
    std::unique_ptr<SqliteDatabase> database_;
    std::map<CleanUpId, FileLock> held_;
    std::vector<RecordedOutcome> outcomes_;  // not written yet
};

}  // namespace tarvin
