#include "cli/file_option.h"

#include "cli/messages.h"
#include "cli/print.h"
#include "platform/result.h"
#include "text/shown_name.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <utility>

namespace tarvin {

namespace {

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

}  // namespace

CLI::Option* addFileOption(CLI::App& command, const std::string& name,
                           const std::function<void(const std::string&)>& take,
                           const std::string& help) {
    return command.add_option_function<std::string>(name, take, help)
        ->type_name("FILE")
        ->check(CLI::Validator(refusalOfFile, "", ""))
        ->take_last();
}

void addOutputOption(CLI::App& command, std::string& output) {
    addFileOption(
        command, "-o,--output", [&output](const std::string& file) { output = file; },
        "Write the result to FILE instead of standard\noutput");
}

std::string shownOutput(const std::string& output) {
    return output == "-" ? "standard output" : shownName(output);
}

std::unique_ptr<OutputFile> openOutput(const std::string& output) {
    Result<std::unique_ptr<OutputFile>> opened = OutputFile::open(output);
    if (!opened) {
        complain(shownOutput(output) + ": " + opened.error().text());
        return nullptr;
    }
    return std::move(*opened);
}

ExitStatus commitOutput(const std::string& output, OutputFile& file) {
    const std::optional<SystemError> failure = file.commit();
    return failure ? statusOfFailure(shownOutput(output), *failure) : ExitStatus::done;
}

}  // namespace tarvin
