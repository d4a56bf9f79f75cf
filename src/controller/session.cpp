#include "controller/session.h"

#include <variant>

namespace tarvin {

namespace {

/// Also where nothing was moved: somebody may have removed the file, or taken a total out of it.
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
        // What is missing in the journal is found out at the next start; until then memory has it.
        data.showAtLeast(before, moved.deletedFilesCount, moved.deletedFilesSize);
    } else {
        storeTotals(data);
    }
}

void Session::addExceptions(const std::vector<std::string>& paths) {
    static_cast<void>(exceptions.addExceptions(paths));
}

void Session::removeExceptions() {
    static_cast<void>(exceptions.removeExceptions());
}

}  // namespace tarvin
