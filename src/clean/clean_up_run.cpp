#include "clean/clean_up_run.h"

#include "store/clean_up_totals.h"

#include <string>
#include <utility>

namespace tarvin {

std::variant<std::unique_ptr<CleanUpRun>, StoreError> CleanUpRun::open(Platform& platform,
                                                                       CleanUp::Settings settings) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder) {
        return StoreError{"", "there is no home folder to keep the journal in",
                          StoreError::Kind::passing};
    }
    auto journal = CleanUpJournal::open(*folder);
    if (auto* error = std::get_if<StoreError>(&journal)) {
        return std::move(*error);
    }
    return std::unique_ptr<CleanUpRun>(new CleanUpRun(
        platform, *folder, std::get<CleanUpJournal>(std::move(journal)), std::move(settings)));
}

std::optional<StoreError> CleanUpRun::finish(DataFile& totals) {
    std::optional<StoreError> failure = cleanUp_.finish();
    std::optional<StoreError> unsettled = settleTotals(totals, journal_);
    return failure ? failure : unsettled;
}

CleanUpRun::CleanUpRun(Platform& platform, const std::string& folder, CleanUpJournal journal,
                       CleanUp::Settings settings)
    : journal_(std::move(journal)),
      turns_(folder + "/clean-up.turn"),
      trash_(platform.makeTrashMover()),
      cleanUp_(platform.fileSystem(), *trash_, journal_, turns_, platform.clock(),
               std::move(settings)) {}

}  // namespace tarvin
