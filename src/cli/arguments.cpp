#include "cli/arguments.h"

#include <string_view>

namespace tarvin {

namespace {

bool isInterpreted(std::string_view argument, bool optionsEnded) {
    return argument.starts_with('[') || argument.starts_with('{') || argument == "++" ||
           (optionsEnded && argument.starts_with('-'));
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
        std::string spelling(isInterpreted(argument, optionsEnded) ? "./" : "");
        escaped.push_back(spelling += argument);
    }
    return escaped;
}

}  // namespace tarvin
