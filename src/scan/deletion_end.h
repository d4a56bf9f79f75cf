#pragma once

#include "model/set.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tarvin {

/// What was moved to the Trash over all runs.
struct LifetimeTotals {
    std::int64_t alreadyDeletedCount = 0;
    std::uint64_t alreadyDeletedSize = 0;  ///< bytes
};

/// The line about all earlier runs as the program begins with it; none, and it is hidden, while
/// nothing was ever moved. Pure.
[[nodiscard]] std::optional<std::string> cleanHistoryAtStart(const LifetimeTotals& totals);

/// What is shown when a deletion is over.
struct DeletionEnd {
    std::string cleanHistory;       ///< the line about all runs, this one included
    std::string duplicatesCleaned;  ///< first line of the report on this one
    std::string spaceRegained;      ///< second line; ends with a blank
};

/// Adds what one run has moved to the lifetime totals, wherever they are kept, and answers the new
/// ones.
using AddDeleted = std::function<LifetimeTotals(std::uint64_t count, std::uint64_t size)>;

/// Ends a deletion, also one that was stopped or moved nothing: `addDeleted` is called once, on
/// this thread, and the texts follow from what it answers.
[[nodiscard]] DeletionEnd endDeletion(const RemovalResult& moved, const AddDeleted& addDeleted);

}  // namespace tarvin
