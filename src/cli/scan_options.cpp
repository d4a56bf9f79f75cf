#include "cli/scan_options.h"

#include "cli/choice.h"
#include "cli/common_options.h"
#include "cli/filter_options.h"

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

/// Adds the folders and the lists of more, which take the place of required ones.
void addLocations(CLI::App& command, ScanOptions& options) {
    CLI::Option* folders =
        command
            .add_option("FOLDER", options.folders, "Folder to scan, with all subfolders, or file")
            ->type_name("")
            ->required();
    CLI::Option* list = addFileOption(
        command, "--files-from",
        [&options, folders](const std::string& file) {
            options.filesFrom.push_back(file);
            folders->required(false);
        },
        "Scan also the folders and files listed in FILE,\none a line; - is standard input; may be\n"
        "repeated");
    list->trigger_on_parse();
    command
        .add_flag("-0,--null", options.listIsNullTerminated,
                  "Names of --files-from end with a null character")
        ->needs(list);
}

}  // namespace

void addScanOptions(CLI::App& command, ScanOptions& options) {
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
    addFilterOptions(command, options.filter);
    addLocations(command, options);
    command.add_flag("--remember", options.remembers,
                     "Remember what was compared, and do not read files\nagain that are unchanged");
    addChoice(
        command, "--progress", progressTimes,
        [&options](ProgressWhen when) { options.progress = when; },
        "When to show progress on standard error\n[default: auto, if it is a terminal]");
    addColorOption(command);
}

}  // namespace tarvin
