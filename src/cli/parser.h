#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

// Questions about the commands that a parser knows. Main thread.

/// The command of that name below `command`, or none.
[[nodiscard]] const CLI::App* subcommandOf(const CLI::App& command, const std::string& name);

/// The names of the commands below `command`.
[[nodiscard]] std::vector<std::string> subcommandNamesOf(const CLI::App& command);

/// The long names of its options, with their dashes.
[[nodiscard]] std::vector<std::string> optionNamesOf(const CLI::App& command);

/// The words that lead to a command, the program's name first: "tarvin exceptions add".
[[nodiscard]] std::string commandLineOf(const CLI::App& command);

/// What "--help" behind these words prints.
[[nodiscard]] std::string helpOf(const CLI::App& command);

}  // namespace tarvin
