#include "cli/scan_setup.h"

#include "cli/common_options.h"
#include "cli/messages.h"
#include "cli/scan_inputs.h"

#include <utility>

namespace tarvin {

namespace {

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

}  // namespace

std::optional<ScanSetup> setUpScan(const ScanOptions& options, Platform& platform,
                                   UnusableExceptions unusable) {
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

}  // namespace tarvin
