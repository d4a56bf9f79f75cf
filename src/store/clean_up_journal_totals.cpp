#include "store/clean_up_journal.h"
#include "store/clean_up_journal_rows.h"

#include <utility>

namespace tarvin {

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
