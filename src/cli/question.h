#pragma once

#include <string_view>

namespace tarvin {

/// Whether there is a person to ask: standard input and standard error are terminals.
[[nodiscard]] bool isInteractive();

/// Asks on standard error and reads one line from standard input. True only for "y" and "yes", in
/// capitals or not; the end of the input means no.
[[nodiscard]] bool confirm(std::string_view question);

}  // namespace tarvin
