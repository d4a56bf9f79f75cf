#include "cli/arguments.h"

#include <string_view>

namespace tarvin {

namespace {

bool isMistakable(std::string_view argument, bool optionsEnded) {
    return argument.starts_with('[') || argument.starts_with('{') || argument == "++" ||
           (optionsEnded && argument.starts_with('-'));
}

}  // namespace

std::vector<std::string> escapedForParser(std::span<const char* const> arguments) {
    std::vector<std::string> answer;
    bool optionsEnded = false;
    for (const std::string_view argument : arguments) {
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
            continue;
        }
        std::string spelling(isMistakable(argument, optionsEnded) ? "./" : "");
        answer.push_back(spelling += argument);
    }
    return answer;
}

}  // namespace tarvin
