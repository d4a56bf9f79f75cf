#include "cli/parser.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tarvin {

const CLI::App* subcommandOf(const CLI::App& command, const std::string& name) {
    const auto all = command.get_subcommands({});
    const auto found = std::find_if(
        all.begin(), all.end(), [&name](const CLI::App* each) { return each->get_name() == name; });
    return found == all.end() ? nullptr : *found;
}

std::vector<std::string> subcommandNamesOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::App* each : command.get_subcommands({})) {
        names.push_back(each->get_name());
    }
    return names;
}

std::vector<std::string> optionNamesOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

std::string commandLineOf(const CLI::App& command) {
    const CLI::App* const parent = command.get_parent();
    return parent == nullptr ? command.get_name()
                             : commandLineOf(*parent) + ' ' + command.get_name();
}

std::string helpOf(const CLI::App& command) {
    // Not help(), which returns the help of the parsed subcommand instead.
    return command.get_formatter()->make_help(&command, commandLineOf(command),
                                              CLI::AppFormatMode::Normal);
}

}  // namespace tarvin
