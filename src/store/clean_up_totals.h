#pragma once

#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <functional>
#include <optional>

namespace tarvin {

/// Updates the lifetime totals from the journal: each moved file counts once, and no longer after
/// it was put back, even if processes are killed at any point of a clean-up or of this function. It
/// never lowers totals below 0. Several processes may call it at once; each settles all clean-ups.
/// To be called after a clean-up, after putting back and at the start. If there is nothing to
/// settle, it reads the data file and writes nothing.
///
/// Afterwards the totals in memory are the stored ones. If they could not be stored, they are those
/// that should have been, and the journal keeps the difference for the next call. Returns the first
/// failure.
///
/// `betweenSteps` is for tests: called before each write and after the last one.
[[nodiscard]] std::optional<StoreError> settleTotals(
    DataFile& data, CleanUpJournal& journal, const std::function<void()>& betweenSteps = [] {});

}  // namespace tarvin
