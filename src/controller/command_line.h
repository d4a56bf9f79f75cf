#pragma once

#include <span>
#include <string>
#include <vector>

namespace tarvin {

inline constexpr const char* programName = "tarvin-duplicate-file-remover";

/// The arguments of the program with a window.
struct CommandLine {
    bool help = false;
    bool version = false;
    bool choosesDisplay = false;       ///< by an option of Qt
    std::string unknownOption;         ///< the first one; empty if there is none
    std::vector<std::string> folders;  ///< as given, native bytes
};

/// Reads the arguments, the program's name first. All arguments after "--" are folders. Pure.
[[nodiscard]] CommandLine readCommandLine(std::span<const char* const> arguments);

/// The output of "--help".
[[nodiscard]] std::string helpText();

/// The error message for an unknown option, two lines. Safe to print on a terminal.
[[nodiscard]] std::string unknownOptionText(const std::string& option);

/// Returns the absolute paths of the arguments that are folders. Adds a line to `errors`, safe to
/// print on a terminal, for each that is not.
[[nodiscard]] std::vector<std::string> givenFolders(const std::vector<std::string>& folders,
                                                    std::string& errors);

}  // namespace tarvin
