#include "cli/scan_setup.h"

#include "cli/messages.h"
#include "cli/print.h"
#include "cli/scan_inputs.h"
#include "platform/result.h"

#include <utility>

namespace tarvin {

namespace {

std::optional<ExceptionFilter> exceptionFilterOf(const ScanOptions& options, Platform& platform,
                                                 UnusableExceptions unusable) {
    const ExceptionList list = exceptionsOf(options, platform);
    if (list.error) {
        const bool isRefusal =
            options.exceptionsFile.has_value() || unusable == UnusableExceptions::areARefusal;
        complainAbout(list.error->path,
                      list.error->text + (isRefusal ? "" : "; no file is left out"));
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
    Result<std::unique_ptr<OutputFile>> output = OutputFile::open(options.output);
    if (!output) {
        complain(shownOutput(options) + ": " + output.error().text());
        return std::nullopt;
    }
    return ScanSetup{std::move(*exceptions), std::move(*output)};
}

ExitStatus commitOutput(const ScanOptions& options, OutputFile& output) {
    const std::optional<SystemError> failure = output.commit();
    return failure ? statusOfFailure(shownOutput(options), *failure) : ExitStatus::done;
}

}  // namespace tarvin
