#pragma once

#include "cli/command.h"
#include "platform/result.h"

#include <string_view>

namespace tarvin {

/// Writes the text to standard output; reports a failure. Main thread only.
ExitStatus print(std::string_view text);

/// Reports a failure to write to `place`, which must be safe to print, and returns the exit status.
/// A reader that has closed the pipe, as "head" does, is not reported.
[[nodiscard]] ExitStatus statusOfFailure(std::string_view place, const SystemError& failure);

}  // namespace tarvin
