#pragma once

#include <string>

namespace tarvin {

struct CommandResult {
    int status = -1;     ///< as the shell gives it; -1 if the command did not run or did not exit
    std::string output;  ///< standard output and standard error, in the order they were written
};

/// Runs `command` with /bin/sh in the project's root, with empty standard input, and waits until
/// the shell has ended. Then kills the processes of its group that are left, so that none outlives
/// the test. A daemon that has left the group continues; its output is not waited for.
[[nodiscard]] CommandResult runCommand(const std::string& command);

}  // namespace tarvin
