#include "store/clean_up_journal.h"
#include "store/clean_up_journal_rows.h"

#include <algorithm>
#include <utility>

namespace tarvin {

namespace {

constexpr std::size_t readBatch = 1024;

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

/// Parameters: the row before the first, the row after the last, the bits of a MoveStates and a
/// limit. Also selects rows with an invalid state, which readMove() reports as damage.
const char* selectMoves(CleanUpJournal::Order order) {
    static const std::string select =
        "SELECT move.id, folder.path, name, inode, size, modified, state, trash.path,"
        " coalesce(trash_name, name), reason, stays.path, coalesce(stays_name, name), stays_inode,"
        " stays_modified FROM move"
        " LEFT JOIN folder ON folder.id = (move.id >> 32 << 32 | move.folder)"
        " LEFT JOIN folder AS trash ON trash.id = (move.id >> 32 << 32 | move.trash)"
        " LEFT JOIN folder AS stays ON stays.id = (move.id >> 32 << 32 | stays_folder)"
        " WHERE move.id > ? AND move.id < ? AND (state NOT BETWEEN 0 AND 4 OR ? >> state & 1)"
        " ORDER BY move.id ";
    static const std::string asPlanned = select + "LIMIT ?";
    static const std::string lastFirst = select + "DESC LIMIT ?";
    return (order == CleanUpJournal::Order::asPlanned ? asPlanned : lastFirst).c_str();
}

/// Returns false if the row is damaged.
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
    SqliteStatement read = database_->statement(selectMoves(order));
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
        auto read = moves(id, states, readBatch, last, order);
        if (auto* error = std::get_if<StoreError>(&read)) {
            return std::move(*error);
        }
        const auto& found = std::get<std::vector<JournalMove>>(read);
        for (const JournalMove& move : found) {
            if (!visit(move)) {
                return std::nullopt;
            }
        }
        if (found.size() < readBatch) {
            return std::nullopt;
        }
        last = found.back().row;
    }
}

}  // namespace tarvin
