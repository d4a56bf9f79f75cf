#pragma once

#include <cstddef>
#include <string_view>

namespace tarvin {

/// The columns of the terminal; 80 if unknown. May change when its window is resized.
[[nodiscard]] std::size_t columnsOf(int descriptor);

/// Opens standard input, output and error if they are closed, so that no other file gets their
/// number and their text. Writing to the replacement fails. Call before any file is opened.
void reserveStandardStreams();

/// Whether the user can be asked: standard input and standard error are terminals.
[[nodiscard]] bool isInteractive();

/// Asks on standard error and reads one line from standard input. True only for "y", "Y", "yes",
/// "Yes" and "YES"; the end of the input means no. Main thread only.
[[nodiscard]] bool confirm(std::string_view question);

}  // namespace tarvin
