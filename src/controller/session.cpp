#include "controller/session.h"

namespace tarvin {

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
        // The totals are written also where nothing was moved: somebody may have removed the file.
        static_cast<void>(data.addDeleted(0, 0));
    }
}

void Session::addExceptions(const std::vector<std::string>& paths) {
    static_cast<void>(exceptions.addExceptions(paths));
}

void Session::removeExceptions() {
    static_cast<void>(exceptions.removeExceptions());
}

}  // namespace tarvin
