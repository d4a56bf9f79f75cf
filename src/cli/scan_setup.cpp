#include "cli/scan_setup.h"

#include "cli/common_options.h"
#include "cli/messages.h"
#include "platform/file_paths.h"

#include <string_view>
#include <utility>

namespace tarvin {

namespace {

/// Whether the path can only be that of a folder, as "a/" and "a/.".
bool endsAsFolder(std::string_view path) {
    return path.ends_with('/') || path.ends_with("/.");
}

std::optional<ExceptionFilter> exceptionFilterOf(const ScanOptions& options, Platform& platform,
                                                 UnusableExceptions unusable) {
    const ExceptionList list = exceptionsOf(options, platform);
    if (list.error) {
        const bool isRefusal =
            options.exceptionsFile.has_value() || unusable == UnusableExceptions::areARefusal;
        printPathError("read exceptions list", list.error->path,
                       list.error->text + (isRefusal ? "" : "; continuing without exceptions"));
        if (isRefusal) {
            return std::nullopt;
        }
    }
    return ExceptionFilter(list.paths);
}

/// The user's list, shared with the window; empty if missing.
ExceptionList ownExceptions(Platform& platform) {
    ExceptionFile file(platform.applicationSupportFolder());
    std::optional<StoreError> failure = file.load();
    return {file.exceptionArrayData(), std::move(failure)};
}

}  // namespace

std::optional<ScanSetup> setUpScan(const ScanOptions& options, Platform& platform,
                                   UnusableExceptions unusable) {
    if (options.filter.minSize > options.filter.maxSize) {
        printError("--min-size is larger than --max-size: no file would be scanned");
        return std::nullopt;
    }
    std::optional<ExceptionFilter> exceptions = exceptionFilterOf(options, platform, unusable);
    if (!exceptions) {
        return std::nullopt;
    }
    std::unique_ptr<OutputFile> output = openOutput(options.output);
    if (!output) {
        return std::nullopt;
    }
    return ScanSetup{std::move(*exceptions), std::move(output)};
}

ScanFolders foldersOf(const ScanOptions& options) {
    ScanFolders folders;
    for (const std::string& given : options.folders) {
        const Result<std::string> path = absolutePath(given);
        if (path) {
            LocationRow row;
            row.name = *path;
            row.state = true;
            row.folder = true;
            row.mayBeFile = !endsAsFolder(given);
            folders.rows.push_back(row);
        } else {
            folders.unreadable.push_back({given, path.error(), false, false});
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
