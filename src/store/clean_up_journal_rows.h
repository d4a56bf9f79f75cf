#pragma once

#include "platform/result.h"
#include "platform/timestamp.h"
#include "store/clean_up_journal.h"
#include "store/sqlite_database.h"
#include "store/store_error.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

// Internal to CleanUpJournal: its schema, conversions of numbers, and rows that several of its
// sources write.

namespace tarvin {

/// Creates our schema in an empty database and checks it in any other: an unknown schema makes the
/// database fail, and the file does not change.
void prepareSchema(SqliteDatabase& database, const std::string& path);

inline constexpr auto maxNumber = std::numeric_limits<std::int64_t>::max();

// The upper half of a row number of a move or folder is its clean-up. So the rows of one clean-up
// are adjacent, are found and deleted without an index, and new rows are appended.
inline constexpr unsigned rowBits = 32;
inline constexpr std::int64_t rowsOfCleanUp = std::int64_t{1} << rowBits;

[[nodiscard]] constexpr CleanUpId cleanUpOf(MoveRow row) {
    return row >> rowBits;
}

[[nodiscard]] constexpr std::int64_t firstRowOf(CleanUpId id) {
    return id << rowBits;
}

/// Returns 0 for a negative number.
[[nodiscard]] std::uint64_t asCount(std::int64_t number);
/// Returns at most the largest number.
[[nodiscard]] std::int64_t asNumber(std::uint64_t count);
/// Adds two numbers >= 0; returns at most the largest number.
[[nodiscard]] std::int64_t cappedSum(std::int64_t one, std::int64_t other);

void withDate(SqliteStatement& statement, const std::optional<Timestamp>& date);
[[nodiscard]] std::optional<Timestamp> dateIn(const SqliteStatement& row, int column);

[[nodiscard]] StoreError passingError(const std::string& path, SystemError reason);

/// Numbers the folders of one clean-up, in a transaction of the caller, who must keep the paths
/// until its end.
class FolderNumbers final {
 public:
    FolderNumbers(SqliteDatabase& database, CleanUpId id);

    std::int64_t numberOf(std::string_view path);
    /// Call once, at the end.
    void storeCount();

 private:
    /// Cached paths.
    static constexpr std::size_t maxKnown = 4096;

    std::int64_t storedNumberOf(std::string_view path);

    SqliteDatabase& database_;
    const CleanUpId id_;
    std::int64_t count_ = 0;
    std::unordered_map<std::string_view, std::int64_t> known_;
};

/// The changes of a clean-up's counters in a transaction.
struct CounterChanges {
    std::int64_t movedFiles = 0;
    std::int64_t movedBytes = 0;
    std::int64_t leftFiles = 0;
    std::int64_t putBackFiles = 0;
    std::int64_t putBackBytes = 0;
    std::int64_t lostFiles = 0;
};

void storeCounters(SqliteDatabase& database, CleanUpId id, const CounterChanges& changes);

}  // namespace tarvin
