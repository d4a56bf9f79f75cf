#pragma once

#include <string_view>

namespace tarvin {

/// Whether the user can be asked: standard input and standard error are terminals.
[[nodiscard]] bool isInteractive();

/// Asks on standard error and reads one line from standard input. True only for "y", "Y", "yes",
/// "Yes" and "YES"; the end of the input means no. Main thread only.
[[nodiscard]] bool confirm(std::string_view question);

}  // namespace tarvin
