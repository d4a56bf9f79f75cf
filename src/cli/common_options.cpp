#include "cli/common_options.h"

#include "cli/choice.h"
#include "cli/messages.h"
#include "cli/usage_texts.h"
#include "platform/result.h"
#include "report/display.h"
#include "text/shown_name.h"

#include <CLI/CLI.hpp>

#include <array>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

/// Why a word cannot be the name of a file or folder, as `kind` says, that `option` takes; empty if
/// it can. The parser takes
/// whatever follows as the value, so a forgotten name would swallow the next option.
std::string nameError(const std::string& word, const std::string& option, const std::string& kind) {
    if (word.empty()) {
        return missingValueText(option);
    }
    return word.size() > 1 && word.starts_with('-')
               ? invalidValueText(word, option,
                                  "looks like an option; write " + quotedName("./" + word) +
                                      " for a " + kind + " of that name")
               : std::string();
}

constexpr std::array times{Choice<ColorWhen>{"auto", ColorWhen::automatic},
                           Choice<ColorWhen>{"always", ColorWhen::always},
                           Choice<ColorWhen>{"never", ColorWhen::never}};

}  // namespace

CLI::Option* addFileOption(CLI::App& command, const std::string& name,
                           const std::function<void(const std::string&)>& take,
                           const std::string& help) {
    const std::string option = name.substr(name.rfind(',') + 1);
    const auto check = [option](const std::string& word) {
        return nameError(word, option, "file");
    };
    return command.add_option_function<std::string>(name, take, help)
        ->type_name("FILE")
        ->check(CLI::Validator(check, "", ""))
        ->take_last();
}

void addFoldersOption(CLI::App& command, const std::string& name, std::vector<std::string>& folders,
                      const std::string& help) {
    const auto check = [name](const std::string& word) { return nameError(word, name, "folder"); };
    command.add_option(name, folders, help)
        ->type_name("FOLDER")
        ->check(CLI::Validator(check, "", ""))
        ->allow_extra_args(false);
}

void addOutputOption(CLI::App& command, std::string& output) {
    addFileOption(
        command, "-o,--output", [&output](const std::string& file) { output = file; },
        "Write to FILE [default: standard output]");
}

std::string shownOutput(const std::string& output) {
    return output == "-" ? "standard output" : quotedName(output);
}

std::unique_ptr<OutputFile> openOutput(const std::string& output) {
    Result<std::unique_ptr<OutputFile>, std::string> opened = OutputFile::open(output);
    if (!opened) {
        printError(failureText("write", shownOutput(output), opened.error()));
        return nullptr;
    }
    return std::move(*opened);
}

ExitStatus commitOutput(const std::string& output, OutputFile& file) {
    const std::optional<SystemError> failure = file.commit();
    return failure ? statusOfFailure(shownOutput(output), *failure) : ExitStatus::done;
}

void addColorOption(CLI::App& command) {
    addChoice(command, "--color", times, useColor,
              "When to use colour [default: auto, on a terminal\nthat supports it]")
        ->trigger_on_parse();
}

}  // namespace tarvin
