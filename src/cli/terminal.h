#pragma once

#include <cstddef>

namespace tarvin {

/// Whether the descriptor is a terminal on which a line can be redrawn.
[[nodiscard]] bool isDrawable(int descriptor);

/// The columns of the terminal; 80 if unknown. May change when its window is resized.
[[nodiscard]] std::size_t columnsOf(int descriptor);

/// Opens standard input, output and error if they are closed, so that no other file gets their
/// number and their text. Writing to the replacement fails. Call before any file is opened.
void reserveStandardStreams();

}  // namespace tarvin
