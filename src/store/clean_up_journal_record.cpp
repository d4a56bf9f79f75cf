#include "store/clean_up_journal.h"
#include "store/clean_up_journal_rows.h"

#include <cerrno>
#include <iterator>
#include <utility>

namespace tarvin {

namespace {

constexpr std::size_t maxUnwrittenOutcomes = 4096;

/// Splits a path into folder and name.
std::pair<std::string_view, std::string_view> partsOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return {path.substr(0, slash), path.substr(slash + 1)};
}

std::int64_t plannedIn(SqliteDatabase& database, CleanUpId id) {
    SqliteStatement read = database.statement("SELECT planned FROM clean_up WHERE id = ?");
    return read.with(id).step() ? read.number(0) : 0;
}

bool canBeStored(const PlannedMove& move) {
    return move.path.starts_with('/') && move.size <= static_cast<std::uint64_t>(maxNumber) &&
           (!move.staying || move.staying->path.starts_with('/'));
}

void insertMove(SqliteStatement& insert, FolderNumbers& folders, MoveRow row,
                const PlannedMove& move) {
    const auto [folder, name] = partsOf(move.path);
    insert.again();
    insert.with(row).with(folders.numberOf(folder)).with(name);
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

/// Returns the row after the last one.
MoveRow insertMoves(SqliteDatabase& database, CleanUpId id, MoveRow row,
                    std::span<const PlannedMove> moves) {
    FolderNumbers folders(database, id);
    SqliteStatement insert = database.statement(
        "INSERT INTO move VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, NULL, NULL)");
    for (const PlannedMove& move : moves) {
        if (!canBeStored(move)) {
            database.fail(passingError(move.path, SystemError{EINVAL}));
            break;
        }
        insertMove(insert, folders, row++, move);
    }
    folders.storeCount();
    return row;
}

/// Writes the outcomes of one clean-up in a transaction of the caller.
class OutcomeWriter final {
 public:
    OutcomeWriter(SqliteDatabase& database, CleanUpId id)
        : database_(database), id_(id), folders_(database, id) {}

    void write(const RecordedOutcome& outcome) {
        SqliteStatement read =
            database_.statement("SELECT state, size, name FROM move WHERE id = ?");
        if (!read.with(outcome.row).step()) {
            database_.failDamaged();  // plan() stored it durably
            return;
        }
        if (read.number(0) != static_cast<std::int64_t>(MoveState::planned)) {
            return;
        }
        SqliteStatement update = database_.statement(
            "UPDATE move SET state = ?, trash = ?, trash_name = ?, reason = ? WHERE id = ?");
        if (outcome.state == MoveState::moved) {
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

    /// Writes moves of consecutive rows to one Trash, each under its own name. Much cheaper than
    /// single writes. Returns false and writes nothing if one of them has an outcome already.
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

/// Returns the end of the outcomes that OutcomeWriter::writeRun() can write together; at least one.
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

// The SQL statements contain these numbers.
static_assert(static_cast<int>(MoveState::planned) == 0 && static_cast<int>(MoveState::moved) == 1);

}  // namespace

StoreResult<MoveRow> CleanUpJournal::plan(CleanUpId id, std::span<const PlannedMove> moves) {
    if (!held_.contains(id)) {
        return passingError(path_, SystemError{ENOLCK});
    }
    SqliteTransaction planning(*database_);
    applyOutcomes();
    const MoveRow first = firstRowOf(id) + plannedIn(*database_, id) + 1;
    const MoveRow end = insertMoves(*database_, id, first, moves);
    database_->statement("UPDATE clean_up SET planned = ? WHERE id = ?")
        .with(end - firstRowOf(id) - 1)
        .with(id)
        .run();
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

}  // namespace tarvin
