#include "store/clean_up_totals.h"

#include <algorithm>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {

namespace {

/// Returns `old` minus `less`, at least 0; a negative count does not change.
template <typename Number>
Number lowered(Number old, std::uint64_t less) {
    if (old <= 0) {
        return old;
    }
    const auto count = static_cast<std::uint64_t>(old);
    return static_cast<Number>(count - std::min(count, less));
}

template <typename Number>
Number moved(Number total, std::uint64_t from, std::uint64_t to) {
    return to >= from ? raised(total, to - from) : lowered(total, from - to);
}

StoredTotals afterChange(const StoredTotals& before, const TotalsOfCleanUp& change) {
    return {moved(before.count, change.countedFiles, change.files),
            moved(before.size, change.countedBytes, change.bytes)};
}

/// Shows totals in memory that could not be stored.
void showUnstored(DataFile& data, CleanUpJournal& journal) {
    const auto read = journal.uncounted();
    const auto* changes = std::get_if<std::vector<TotalsOfCleanUp>>(&read);
    if (changes == nullptr) {
        return;
    }
    StoredTotals totals = data.known();
    for (const TotalsOfCleanUp& change : *changes) {
        totals = afterChange(totals, change);
    }
    data.showInMemory(totals);
}

/// Returns false also if the journal cannot be read: the caller then reads it again for the error.
bool hasNothingToSettle(CleanUpJournal& journal) {
    const auto intent = journal.totalsIntent();
    const auto* none = std::get_if<std::optional<TotalsIntent>>(&intent);
    const auto changes = journal.uncounted();
    const auto* empty = std::get_if<std::vector<TotalsOfCleanUp>>(&changes);
    return none != nullptr && !none->has_value() && empty != nullptr && empty->empty();
}

/// Completes a change that a process began before it ended.
std::optional<StoreError> endIntent(const LockedTotals& totals, CleanUpJournal& journal,
                                    const std::function<void()>& betweenSteps) {
    const auto read = journal.totalsIntent();
    if (const auto* error = std::get_if<StoreError>(&read)) {
        return *error;
    }
    const auto& intent = std::get<std::optional<TotalsIntent>>(read);
    if (!intent) {
        return std::nullopt;
    }
    betweenSteps();
    // If the totals are neither the old nor the new ones, another program has changed them since,
    // most likely after our change.
    return journal.clearTotalsIntent(totals.stored() != intent->before);
}

std::optional<StoreError> countCleanUp(LockedTotals& totals, CleanUpJournal& journal,
                                       const TotalsOfCleanUp& change,
                                       const std::function<void()>& betweenSteps) {
    const StoredTotals before = totals.stored();
    const StoredTotals after = afterChange(before, change);
    betweenSteps();
    if (after == before) {
        // At a limit: the file could not show whether the change was made.
        return journal.setCounted(change);
    }
    if (auto error = journal.setTotalsIntent({change, before, after})) {
        return error;
    }
    betweenSteps();
    if (auto error = totals.store(after)) {
        // If the intent stays, the next call finds the old totals.
        static_cast<void>(journal.clearTotalsIntent(false));
        return error;
    }
    betweenSteps();
    return journal.clearTotalsIntent(true);
}

std::optional<StoreError> settleLocked(LockedTotals& totals, CleanUpJournal& journal,
                                       const std::function<void()>& betweenSteps) {
    if (auto error = endIntent(totals, journal, betweenSteps)) {
        return error;
    }
    const auto read = journal.uncounted();
    if (const auto* error = std::get_if<StoreError>(&read)) {
        return *error;
    }
    for (const TotalsOfCleanUp& change : std::get<std::vector<TotalsOfCleanUp>>(read)) {
        if (auto error = countCleanUp(totals, journal, change, betweenSteps)) {
            return error;
        }
    }
    betweenSteps();
    return std::nullopt;
}

}  // namespace

std::optional<StoreError> settleTotals(DataFile& data, CleanUpJournal& journal,
                                       const std::function<void()>& betweenSteps) {
    if (hasNothingToSettle(journal)) {
        // Another process may have settled it.
        data.refresh();
        return std::nullopt;
    }
    auto locked = data.lock();
    std::optional<StoreError> error;
    if (auto* refused = std::get_if<StoreError>(&locked)) {
        error = std::move(*refused);
    } else {
        error = settleLocked(std::get<LockedTotals>(locked), journal, betweenSteps);
    }
    if (error) {
        showUnstored(data, journal);
    }
    return error;
}

}  // namespace tarvin
