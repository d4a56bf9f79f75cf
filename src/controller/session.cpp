#include "controller/session.h"

#include <variant>

namespace tarvin {

namespace {

/// Even if nothing was moved: the file may have been removed, or a total deleted from it.
void storeTotals(DataFile& data) {
    auto locked = data.lock();
    if (auto* totals = std::get_if<LockedTotals>(&locked)) {
        static_cast<void>(totals->store(totals->stored()));
    }
}

}  // namespace

Session::Session(Platform& thePlatform)
    : platform(thePlatform), data(appSupportPath()), exceptions(appSupportPath()) {}

void Session::loadDataFile() {
    currentLoggedInUser = getUserName().value_or(std::string());
    static_cast<void>(data.loadDataFile());
    static_cast<void>(exceptions.load());
}

void Session::finishCleanUp(CleanUpRun& cleanUp, const StoredTotals& before,
                            const RemovalResult& moved) {
    if (cleanUp.finish(data)) {
        // The next start recovers the outcomes that the journal lacks; until then only memory has
        // them.
        data.showAtLeast(before, moved.deletedFilesCount, moved.deletedFilesSize);
    } else {
        storeTotals(data);
    }
}

}  // namespace tarvin
