#pragma once

#include <string>

namespace tarvin {

struct CommandResult {
    int status = -1;     ///< as the shell gives it; -1 if the command did not run or did not exit
    std::string output;  ///< standard output and standard error, in the order they were written
};

/// Runs `command` in the project's root with /bin/sh and an empty standard input. Blocks until it
/// ends.
[[nodiscard]] CommandResult runCommand(const std::string& command);

}  // namespace tarvin
