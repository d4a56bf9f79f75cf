#pragma once

#include "cli/command.h"

#include <string>

namespace tarvin {

/// Reports a usage error and refers to the help of `helpCommand`, such as "tarvin scan". Returns
/// ExitStatus::wrongUsage. Main thread only.
ExitStatus refuse(const std::string& reason, const std::string& helpCommand);

}  // namespace tarvin
