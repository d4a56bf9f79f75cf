#include "cli/usage_texts.h"

#include "cli/parser.h"
#include "cli/suggestion.h"
#include "text/shown_name.h"

#include <CLI/CLI.hpp>

namespace tarvin {

namespace {

/// The parser's own messages begin with the name of the option and a colon.
std::string optionIn(std::string_view message) {
    return std::string(message.substr(0, message.find(':')));
}

/// The texts of our own checks, which are complete.
std::string withoutOption(std::string_view message) {
    const std::size_t colon = message.find(": ");
    return std::string(colon == std::string_view::npos ? message : message.substr(colon + 2));
}

std::string missingArgumentText(const CLI::App& command) {
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_required() && option->count() == 0) {
            return "missing argument: " + option->get_name();
        }
    }
    return "missing argument";
}

std::string exclusionText(const CLI::App& command) {
    for (const CLI::Option* option : command.get_options()) {
        for (const CLI::Option* excluded : option->get_excludes()) {
            if (option->count() > 0 && excluded->count() > 0) {
                return option->get_name() + " and " + excluded->get_name() + " cannot be combined";
            }
        }
    }
    return "options cannot be combined";
}

}  // namespace

std::string missingCommandText() {
    return "missing command";
}

std::string unknownCommandText(const std::string& word, const CLI::App& command) {
    return "unknown command " + quotedName(word) + suggestionFor(word, subcommandNamesOf(command));
}

std::string unexpectedArgumentText(const std::string& word, const CLI::App& command) {
    if (!word.starts_with('-') && !subcommandNamesOf(command).empty()) {
        return unknownCommandText(word, command);
    }
    // Of "--fromat=json" only the name can be misspelt.
    return "unexpected argument " + quotedName(word) +
           (word.starts_with('-')
                ? suggestionFor(word.substr(0, word.find('=')), optionNamesOf(command))
                : std::string());
}

std::string noValueText(std::string_view option) {
    return std::string(option).append(" takes no value");
}

std::string missingValueText(std::string_view option) {
    return std::string("missing value for ").append(option);
}

std::string invalidValueText(std::string_view value, std::string_view option,
                             std::string_view reason) {
    return std::string("invalid value ")
        .append(quotedName(value))
        .append(" for ")
        .append(option)
        .append(": ")
        .append(reason);
}

std::string usageErrorText(const CLI::Error& error, const CLI::App& command) {
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return missingArgumentText(command);
    }
    if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
        return exclusionText(command);
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return missingValueText(optionIn(error.what()));
    }
    if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr) {
        return withoutOption(error.what());
    }
    return error.what();
}

}  // namespace tarvin
