#include "cli/scan_options.h"

#include "cli/choice.h"
#include "cli/color_option.h"
#include "cli/file_option.h"

#include <CLI/CLI.hpp>

#include <array>

namespace tarvin {

namespace {

constexpr std::array formats{Choice<ResultFormat>{"text", ResultFormat::text},
                             Choice<ResultFormat>{"json", ResultFormat::json},
                             Choice<ResultFormat>{"csv", ResultFormat::csv}};

constexpr std::array progressTimes{Choice<ProgressWhen>{"auto", ProgressWhen::automatic},
                                   Choice<ProgressWhen>{"always", ProgressWhen::always},
                                   Choice<ProgressWhen>{"never", ProgressWhen::never}};

}  // namespace

void addScanOptions(CLI::App& command, ScanOptions& options) {
    command.add_option("FOLDER", options.folders, "Where to look, everything below included")
        ->type_name("")
        ->required();
    addChoice(
        command, "-f,--format", formats,
        [&options](ResultFormat format) { options.format = format; },
        "How the result is written; text, the default,\nis meant to be read by people");
    addOutputOption(command, options.output);
    CLI::Option* none = command.add_flag(
        "--no-exceptions", [&options](std::int64_t /*times*/) { options.useExceptions = false; },
        "Look at every file, also at those on the\nexceptions list");
    addFileOption(
        command, "--exceptions",
        [&options](const std::string& file) { options.exceptionsFile = file; },
        "Leave out the files on the list in FILE instead\nof those on your own list")
        ->excludes(none);
    addChoice(
        command, "--progress", progressTimes,
        [&options](ProgressWhen when) { options.progress = when; },
        "Whether to show progress on standard error; auto,\n"
        "the default, shows it if that is a terminal");
    addColorOption(command);
}

}  // namespace tarvin
