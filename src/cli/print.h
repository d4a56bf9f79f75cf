#pragma once

#include "cli/command.h"
#include "platform/result.h"

#include <string_view>

namespace tarvin {

/// Writes the text to standard output, and a complaint if that fails. Main thread.
ExitStatus print(std::string_view text);

/// What a failure to write the result to `place` comes to. Complains, unless the reader has gone
/// away, as "head" does once it has read enough: then nobody wants to know. `place` is safe to
/// print.
[[nodiscard]] ExitStatus statusOfFailure(std::string_view place, const SystemError& failure);

}  // namespace tarvin
