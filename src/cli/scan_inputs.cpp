#include "cli/scan_inputs.h"

#include "platform/file_paths.h"

#include <optional>

namespace tarvin {

namespace {

/// The user's list, shared with the window; empty if missing.
ExceptionList ownExceptions(Platform& platform) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder) {
        return {};
    }
    ExceptionList list = readExceptionFile(*folder + "/exception.plist");
    if (list.error && list.error->kind == StoreError::Kind::missing) {
        list.error = std::nullopt;
    }
    return list;
}

}  // namespace

ScanFolders foldersOf(const ScanOptions& options) {
    ScanFolders folders;
    for (const std::string& given : options.folders) {
        const Result<std::string> path = absolutePath(given);
        if (path) {
            LocationRow row;
            row.name = *path;
            row.state = true;
            row.folder = true;
            folders.rows.push_back(row);
        } else {
            folders.unreadable.push_back({given, path.error()});
        }
    }
    return folders;
}

ExceptionList exceptionsOf(const ScanOptions& options, Platform& platform) {
    if (!options.useExceptions) {
        return {};
    }
    return options.exceptionsFile ? readExceptionFile(*options.exceptionsFile)
                                  : ownExceptions(platform);
}

}  // namespace tarvin
