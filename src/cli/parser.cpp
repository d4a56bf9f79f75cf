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

std::string commandLineOf(const CLI::App& command) {
    const CLI::App* const parent = command.get_parent();
    return parent == nullptr ? command.get_name()
                             : commandLineOf(*parent) + ' ' + command.get_name();
}

std::string helpOf(const CLI::App& command) {
    // Not help(), which explains the command that was parsed instead.
    return command.get_formatter()->make_help(&command, commandLineOf(command),
                                              CLI::AppFormatMode::Normal);
}

}  // namespace tarvin
