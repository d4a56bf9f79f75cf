#include "cli/scan_options.h"

#include "cli/shown_name.h"
#include "cli/suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace tarvin {

namespace {

template <typename Value>
struct Choice {
    std::string_view name;
    Value value;
};

constexpr std::array formats{Choice<ResultFormat>{"text", ResultFormat::text},
                             Choice<ResultFormat>{"json", ResultFormat::json},
                             Choice<ResultFormat>{"csv", ResultFormat::csv}};

constexpr std::array progressTimes{Choice<ProgressWhen>{"auto", ProgressWhen::automatic},
                                   Choice<ProgressWhen>{"always", ProgressWhen::always},
                                   Choice<ProgressWhen>{"never", ProgressWhen::never}};

template <typename Value, std::size_t count>
const Choice<Value>* choiceNamed(const std::array<Choice<Value>, count>& choices,
                                 std::string_view name) {
    const auto* found = std::find_if(choices.begin(), choices.end(),
                                     [name](const auto& choice) { return choice.name == name; });
    return found == choices.end() ? nullptr : found;
}

template <typename Value, std::size_t count>
std::vector<std::string> namesOf(const std::array<Choice<Value>, count>& choices) {
    std::vector<std::string> names;
    for (const Choice<Value>& choice : choices) {
        names.emplace_back(choice.name);
    }
    return names;
}

/// An option whose value is one of a few words; of several on one command line the last counts.
template <typename Value, std::size_t count>
void addChoice(CLI::App& command, const std::string& name,
               const std::array<Choice<Value>, count>& choices, Value& target,
               const std::string& help) {
    const std::vector<std::string> names = namesOf(choices);
    const auto refusal = [names](const std::string& word) {
        return std::find(names.begin(), names.end(), word) != names.end()
                   ? std::string()
                   : shownName(word) + " is none of " + CLI::detail::join(names, ", ") +
                         suggestionFor(word, names);
    };
    const auto take = [&choices, &target](const std::string& word) {
        target = choiceNamed(choices, word)->value;
    };
    command.add_option_function<std::string>(name, take, help)
        ->type_name(CLI::detail::join(names, "|"))
        ->check(CLI::Validator(refusal, "", ""))
        ->take_last();
}

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
    addChoice(command, "-f,--format", formats, options.format,
              "How the result is written; text, the default,\nis meant to be read by people");
    addFile(command, "-o,--output", options.output,
            "Write the result to FILE instead of standard\noutput");
    CLI::Option* none = command.add_flag(
        "--no-exceptions", [&options](std::int64_t /*times*/) { options.useExceptions = false; },
        "Look at every file, also at those on the\nexceptions list");
    addFile(command, "--exceptions", options.exceptionsFile,
            "Leave out the files on the list in FILE instead\nof those on your own list")
        ->excludes(none);
    addChoice(command, "--progress", progressTimes, options.progress,
              "Whether to show progress on standard error; auto,\n"
              "the default, shows it if that is a terminal");
}

}  // namespace tarvin
