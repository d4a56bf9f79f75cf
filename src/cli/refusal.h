#pragma once

#include "cli/command.h"

#include <string>

namespace tarvin {

/// Complains of a command line that is wrong, and tells which help explains it: that of the words
/// in `helpCommand`, such as "tarvin scan". Answers ExitStatus::wrongUsage. Main thread.
ExitStatus refuse(const std::string& reason, const std::string& helpCommand);

}  // namespace tarvin
