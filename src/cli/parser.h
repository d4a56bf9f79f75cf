#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

// The commands and options that a parser knows. Main thread only.

/// The subcommand of that name; nullptr if there is none.
[[nodiscard]] const CLI::App* subcommandOf(const CLI::App& command, const std::string& name);

/// The names of the subcommands of `command`.
[[nodiscard]] std::vector<std::string> subcommandNamesOf(const CLI::App& command);

/// The long names of the options of `command`, with dashes.
[[nodiscard]] std::vector<std::string> optionNamesOf(const CLI::App& command);

/// The command with its parents: "tarvin exceptions add".
[[nodiscard]] std::string commandLineOf(const CLI::App& command);

/// The text that the command's "--help" prints.
[[nodiscard]] std::string helpOf(const CLI::App& command);

}  // namespace tarvin
