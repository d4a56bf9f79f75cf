#pragma once

#include <cstddef>

namespace tarvin {

/// Whether the descriptor is a terminal on which a line can be drawn over and over again.
[[nodiscard]] bool isDrawable(int descriptor);

/// How many characters a line of the terminal holds; 80 if it is none or does not say. May change
/// at any time, because windows do.
[[nodiscard]] std::size_t columnsOf(int descriptor);

/// Makes sure that standard input, output and error are open, so that no other file gets the number
/// of one that is closed and with it what is meant for that one. What stands in for it refuses
/// every byte. To be called before anything is opened.
void reserveStandardStreams();

}  // namespace tarvin
