#include "cli/restore_choice.h"

#include <utility>
#include <variant>

namespace tarvin {

StoreResult<RestoreProspect> prospectOf(PutBack& putBack, CleanUpId cleanUp) {
    RestoreProspect prospect;
    std::optional<StoreError> failure = putBack.examine(cleanUp, [&](const PutBackFile& file) {
        ++prospect.all;
        if (isBack(file.outcome)) {
            ++prospect.files;
            prospect.bytes += file.size;
        }
        prospect.lost += file.outcome == PutBackOutcome::lost ? 1 : 0;
        return true;
    });
    if (failure) {
        return std::move(*failure);
    }
    return prospect;
}

StoreResult<std::vector<KnownCleanUp>> knownCleanUps(PutBack& putBack) {
    auto summaries = putBack.cleanUps();
    if (auto* error = std::get_if<StoreError>(&summaries)) {
        return std::move(*error);
    }
    std::vector<KnownCleanUp> known;
    for (const CleanUpSummary& summary : std::get<std::vector<CleanUpSummary>>(summaries)) {
        auto prospect = prospectOf(putBack, summary.id);
        if (auto* error = std::get_if<StoreError>(&prospect)) {
            return std::move(*error);
        }
        const RestoreProspect& now = std::get<RestoreProspect>(prospect);
        known.push_back({summary, summary.movedFiles - summary.lostFiles - now.all,
                         summary.lostFiles + now.lost});
    }
    return known;
}

StoreResult<std::optional<CleanUpSummary>> cleanUpNumbered(PutBack& putBack, CleanUpId number) {
    auto summaries = putBack.cleanUps();
    if (auto* error = std::get_if<StoreError>(&summaries)) {
        return std::move(*error);
    }
    for (const CleanUpSummary& summary : std::get<std::vector<CleanUpSummary>>(summaries)) {
        if (summary.id == number) {
            return std::optional(summary);
        }
    }
    return std::optional<CleanUpSummary>();
}

}  // namespace tarvin
