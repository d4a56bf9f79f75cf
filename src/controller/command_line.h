#pragma once

#include <span>
#include <string>
#include <vector>

namespace tarvin {

/// What the program with a window was started with.
struct CommandLine {
    bool help = false;
    bool version = false;
    bool choosesDisplay = false;       ///< by an option of Qt
    std::string unknownOption;         ///< the first one; empty if there is none
    std::vector<std::string> folders;  ///< as given, native bytes
};

/// Reads the arguments, the program's name first. Everything behind "--" is a folder. Pure.
[[nodiscard]] CommandLine readCommandLine(std::span<const char* const> arguments);

/// What "--help" prints.
[[nodiscard]] std::string helpText();

/// The absolute paths of those that are folders. Adds a line for each that is none to `complaints`.
[[nodiscard]] std::vector<std::string> givenFolders(const std::vector<std::string>& folders,
                                                    std::string& complaints);

}  // namespace tarvin
