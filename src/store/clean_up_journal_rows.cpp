#include "store/clean_up_journal_rows.h"

#include <algorithm>

namespace tarvin {

std::uint64_t asCount(std::int64_t number) {
    return number < 0 ? 0 : static_cast<std::uint64_t>(number);
}

std::int64_t asNumber(std::uint64_t count) {
    return static_cast<std::int64_t>(std::min(count, static_cast<std::uint64_t>(maxNumber)));
}

std::int64_t cappedSum(std::int64_t one, std::int64_t other) {
    return one > maxNumber - other ? maxNumber : one + other;
}

void withDate(SqliteStatement& statement, const std::optional<Timestamp>& date) {
    date ? statement.with(date->time_since_epoch().count()) : statement.withNull();
}

std::optional<Timestamp> dateIn(const SqliteStatement& row, int column) {
    return row.isNull(column)
               ? std::nullopt
               : std::optional(Timestamp(std::chrono::nanoseconds(row.number(column))));
}

StoreError passingError(const std::string& path, SystemError reason) {
    return {path, reason.text(), StoreError::Kind::passing};
}

FolderNumbers::FolderNumbers(SqliteDatabase& database, CleanUpId id)
    : database_(database), id_(id) {
    SqliteStatement read = database.statement("SELECT folders FROM clean_up WHERE id = ?");
    if (read.with(id).step()) {
        count_ = read.number(0);
    }
}

std::int64_t FolderNumbers::numberOf(std::string_view path) {
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

void FolderNumbers::storeCount() {
    database_.statement("UPDATE clean_up SET folders = ? WHERE id = ?")
        .with(count_)
        .with(id_)
        .run();
}

std::int64_t FolderNumbers::storedNumberOf(std::string_view path) {
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

void storeCounters(SqliteDatabase& database, CleanUpId id, const CounterChanges& changes) {
    std::int64_t movedBytes = 0;
    std::int64_t putBackBytes = 0;
    {
        SqliteStatement read =
            database.statement("SELECT moved_bytes, put_back_bytes FROM clean_up WHERE id = ?");
        if (!read.with(id).step()) {
            database.failDamaged();
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

}  // namespace tarvin
