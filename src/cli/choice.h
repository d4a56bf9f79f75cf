#pragma once

#include "cli/suggestion.h"
#include "cli/usage_texts.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// One of the words that an option accepts, and its value.
template <typename Value>
struct Choice {
    std::string_view name;
    Value value;
};

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
    names.reserve(choices.size());
    for (const Choice<Value>& choice : choices) {
        names.emplace_back(choice.name);
    }
    return names;
}

/// "text, json or csv".
[[nodiscard]] inline std::string alternatives(const std::vector<std::string>& names) {
    const std::vector<std::string> first(names.begin(), names.end() - 1);
    return CLI::detail::join(first, ", ") + " or " + names.back();
}

/// Adds an option that accepts one of a few words and calls `take` with the value of the last one
/// given. `choices` must outlive `command`.
template <typename Value, std::size_t count, typename Take>
CLI::Option* addChoice(CLI::App& command, const std::string& name,
                       const std::array<Choice<Value>, count>& choices, const Take& take,
                       const std::string& help) {
    const std::vector<std::string> names = namesOf(choices);
    const std::string option = name.substr(name.rfind(',') + 1);
    const auto usageError = [names, option](const std::string& word) {
        if (std::find(names.begin(), names.end(), word) != names.end()) {
            return std::string();
        }
        return word.empty() ? missingValueText(option)
                            : invalidValueText(
                                  word, option,
                                  "expected " + alternatives(names) + suggestionFor(word, names));
    };
    const auto takeWord = [&choices, take](const std::string& word) {
        take(choiceNamed(choices, word)->value);
    };
    return command.add_option_function<std::string>(name, takeWord, help)
        ->type_name(CLI::detail::join(names, "|"))
        ->check(CLI::Validator(usageError, "", ""))
        ->take_last();
}

}  // namespace tarvin
