#pragma once

#include "cli/command.h"

#include <string_view>

namespace tarvin {

/// Writes the text to standard output, and a complaint if that fails. Main thread.
ExitStatus print(std::string_view text);

}  // namespace tarvin
