#include "clean/clean_up_run.h"

#include "store/clean_up_totals.h"

#include <utility>

namespace tarvin {

std::variant<std::unique_ptr<CleanUpRun>, StoreError> CleanUpRun::open(Platform& platform,
                                                                       DataFile& totals,
                                                                       CleanUp::Settings settings) {
    auto opened = openRecovered(platform, totals);
    if (auto* error = std::get_if<StoreError>(&opened)) {
        return std::move(*error);
    }
    return std::unique_ptr<CleanUpRun>(new CleanUpRun(
        platform, std::get<RecoveredJournal>(std::move(opened)), std::move(settings)));
}

std::optional<StoreError> CleanUpRun::finish(DataFile& totals) {
    std::optional<StoreError> failure = cleanUp_.finish();
    std::optional<StoreError> unsettled = settleTotals(totals, journal_);
    return failure ? failure : unsettled;
}

CleanUpRun::CleanUpRun(Platform& platform, RecoveredJournal opened, CleanUp::Settings settings)
    : journal_(std::move(opened.journal)),
      turns_(std::move(opened.turns)),
      trash_(std::move(opened.trash)),
      cleanUp_(platform.fileSystem(), *trash_, journal_, turns_, platform.clock(),
               std::move(settings)) {}

}  // namespace tarvin
