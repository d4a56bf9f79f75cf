#include "store/clean_up_journal.h"
#include "store/clean_up_journal_rows.h"

#include <map>

namespace tarvin {

namespace {

void markOne(SqliteDatabase& database, MoveRow row, MoveState state, CounterChanges& change) {
    SqliteStatement read = database.statement("SELECT state, size FROM move WHERE id = ?");
    if (!read.with(row).step()) {
        database.failDamaged();
        return;
    }
    const auto old = static_cast<MoveState>(read.number(0));
    if (state == MoveState::putBack && (old == MoveState::moved || old == MoveState::lost)) {
        ++change.putBackFiles;
        change.putBackBytes = cappedSum(change.putBackBytes, read.number(1));
        change.lostFiles -= old == MoveState::lost ? 1 : 0;
    } else if (state == MoveState::lost && old == MoveState::moved) {
        ++change.lostFiles;
    } else {
        return;
    }
    read.again();
    database.statement("UPDATE move SET state = ? WHERE id = ?")
        .with(static_cast<std::int64_t>(state))
        .with(row)
        .run();
}

}  // namespace

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

std::optional<StoreError> CleanUpJournal::mark(std::span<const MoveRow> rows, MoveState state) {
    SqliteTransaction marking(*database_);
    applyOutcomes();
    std::map<CleanUpId, CounterChanges> changes;
    for (const MoveRow row : rows) {
        markOne(*database_, row, state, changes[cleanUpOf(row)]);
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

}  // namespace tarvin
