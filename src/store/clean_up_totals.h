#pragma once

#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <functional>
#include <optional>

namespace tarvin {

/// Brings the lifetime totals up to what the journal knows: each file counts once after it was
/// moved, and no longer after it was put back, whichever process dies at whatever moment of a
/// clean-up or of this function. Totals never fall below 0 by it. Any number of processes may call
/// it; each settles the clean-ups of all. To be called after a clean-up, after putting back and at
/// the start. Where there is nothing to settle, the data file is read and nothing is written.
///
/// In memory the totals are those that were stored. Where they could not be stored, they are what
/// would have been, and the journal keeps what is missing for the next call. The first failure is
/// returned.
///
/// `betweenSteps` is for tests: called before each write and after the last one.
[[nodiscard]] std::optional<StoreError> settleTotals(
    DataFile& data, CleanUpJournal& journal, const std::function<void()>& betweenSteps = [] {});

}  // namespace tarvin
