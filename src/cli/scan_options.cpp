#include "cli/scan_options.h"

#include "cli/choice.h"
#include "cli/common_options.h"

#include <CLI/CLI.hpp>

#include <array>

namespace tarvin {

namespace {

constexpr std::array scanFormats{Choice<ResultFormat>{"text", ResultFormat::text},
                                 Choice<ResultFormat>{"json", ResultFormat::json},
                                 Choice<ResultFormat>{"csv", ResultFormat::csv}};

constexpr std::array progressTimes{Choice<ProgressWhen>{"auto", ProgressWhen::automatic},
                                   Choice<ProgressWhen>{"always", ProgressWhen::always},
                                   Choice<ProgressWhen>{"never", ProgressWhen::never}};

}  // namespace

void addScanOptions(CLI::App& command, ScanOptions& options) {
    command.add_option("FOLDER", options.folders, "Folder to scan, with all subfolders")
        ->type_name("")
        ->required();
    addKeepOptions(command, options.keep);
    addChoice(
        command, "-f,--format", scanFormats,
        [&options](ResultFormat format) { options.format = format; },
        "Output format [default: text]");
    addOutputOption(command, options.output);
    CLI::Option* none = command.add_flag(
        "--no-exceptions", [&options](std::int64_t /*times*/) { options.useExceptions = false; },
        "Ignore the exceptions list");
    addFileOption(
        command, "--exceptions",
        [&options](const std::string& file) { options.exceptionsFile = file; },
        "Read exceptions from FILE instead of your own list")
        ->excludes(none);
    addChoice(
        command, "--progress", progressTimes,
        [&options](ProgressWhen when) { options.progress = when; },
        "When to show progress on standard error\n[default: auto, if it is a terminal]");
    addColorOption(command);
}

}  // namespace tarvin
