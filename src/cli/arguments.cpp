#include "cli/arguments.h"

#include "cli/parser.h"
#include "cli/usage_texts.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace tarvin {

namespace {

// Options whose value is a pattern.
constexpr std::array<std::string_view, 1> patternOptions{"--exclude"};

bool takesPattern(std::string_view option) {
    return std::find(patternOptions.begin(), patternOptions.end(), option) != patternOptions.end();
}

bool isInterpreted(std::string_view argument, bool optionsEnded) {
    return argument.starts_with('[') || argument.starts_with('{') || argument == "++" ||
           (optionsEnded && argument.starts_with('-'));
}

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

/// The error in "--name=value" if the value is empty or the option takes none.
std::optional<std::string> valueError(const CLI::App& command, std::string_view word) {
    const std::size_t equals = word.find('=');
    if (equals == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string name(word.substr(0, equals));
    const CLI::Option* const option = command.get_option_no_throw(name);
    if (option == nullptr) {
        return std::nullopt;  // the parser reports it
    }
    if (!takesValue(*option)) {
        return noValueText(name);
    }
    return equals + 1 == word.size() ? std::optional(missingValueText(name)) : std::nullopt;
}

/// Whether a word such as "-ny" or "-ofile" consists of short options, the last one with its value.
bool isBundle(const CLI::App& command, std::string_view word) {
    for (const char letter : word.substr(1)) {
        const CLI::Option* const option = command.get_option_no_throw(std::string{'-', letter});
        if (option == nullptr) {
            return std::isalnum(static_cast<unsigned char>(letter)) != 0;  // the parser reports it
        }
        if (takesValue(*option)) {
            return true;
        }
    }
    return true;
}

std::optional<std::string> spellingError(const CLI::App& command, const std::string& word) {
    if (word.starts_with("--")) {
        return valueError(command, word);
    }
    const bool isLongName = word.size() > 2 && command.get_option_no_throw('-' + word) != nullptr;
    if (isLongName) {
        return unexpectedArgumentText(word, command);
    }
    return isBundle(command, word) ? std::nullopt
                                   : std::optional(unexpectedArgumentText(word, command));
}

}  // namespace

std::vector<std::string> escapedForParser(std::span<const char* const> arguments) {
    std::vector<std::string> escaped;
    bool optionsEnded = false;
    for (const std::string_view argument : arguments) {
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
            continue;
        }
        if (!optionsEnded && !escaped.empty() && takesPattern(escaped.back())) {
            escaped.back().append("=").append(argument);
            continue;
        }
        std::string spelling(isInterpreted(argument, optionsEnded) ? "./" : "");
        escaped.push_back(spelling += argument);
    }
    return escaped;
}

std::optional<Misspelling> misspellingIn(const CLI::App& program,
                                         const std::vector<std::string>& arguments) {
    const CLI::App* command = &program;
    for (const std::string& word : arguments) {
        if (!word.starts_with('-')) {
            const CLI::App* const named = subcommandOf(*command, word);
            command = named != nullptr ? named : command;
        } else if (auto reason = spellingError(*command, word)) {
            return Misspelling{command, std::move(*reason)};
        }
    }
    return std::nullopt;
}

}  // namespace tarvin
