#include "cli/scan_options.h"

#include "cli/choice.h"
#include "cli/color_option.h"
#include "cli/shown_name.h"

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

/// Why a word cannot be the name of a file that an option wants; empty if it can. The parser takes
/// whatever follows for it, so that a forgotten name would swallow the next option.
std::string refusalOfFile(const std::string& word) {
    if (word.empty()) {
        return "the value is empty";
    }
    return word.size() > 1 && word.starts_with('-')
               ? shownName(word) + " looks like an option; a file of that name is " +
                     shownName("./" + word)
               : std::string();
}

/// An option whose value is the name of a file; of several on one command line the last counts.
template <typename Target>
CLI::Option* addFile(CLI::App& command, const std::string& name, Target& target,
                     const std::string& help) {
    return command.add_option(name, target, help)
        ->type_name("FILE")
        ->check(CLI::Validator(refusalOfFile, "", ""))
        ->take_last();
}

}  // namespace

std::string shownOutput(const ScanOptions& options) {
    return options.output == "-" ? "standard output" : shownName(options.output);
}

void addScanOptions(CLI::App& command, ScanOptions& options) {
    command.add_option("FOLDER", options.folders, "Where to look, everything below included")
        ->type_name("")
        ->required();
    addChoice(
        command, "-f,--format", formats,
        [&options](ResultFormat format) { options.format = format; },
        "How the result is written; text, the default,\nis meant to be read by people");
    addFile(command, "-o,--output", options.output,
            "Write the result to FILE instead of standard\noutput");
    CLI::Option* none = command.add_flag(
        "--no-exceptions", [&options](std::int64_t /*times*/) { options.useExceptions = false; },
        "Look at every file, also at those on the\nexceptions list");
    addFile(command, "--exceptions", options.exceptionsFile,
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
