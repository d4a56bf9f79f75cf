#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvin {

enum class ColorWhen : std::uint8_t {
    automatic,  ///< on a terminal that supports it, unless NO_COLOR is set
    always,
    never
};

/// The capabilities of an output's target.
struct Display {
    bool isTerminal = false;
    bool isColored = false;
};

// Escape sequences for the text that follows. Written only where there is colour; the text is the
// same without.
constexpr std::string_view bold = "\x1B[1m";
constexpr std::string_view red = "\x1B[31m";
constexpr std::string_view plain = "\x1B[0m";

/// Sets when the process uses colour. The default is automatic. Any thread.
void useColor(ColorWhen when);

/// The capabilities of an open file, pipe or terminal. Any thread.
[[nodiscard]] Display displayOf(int descriptor);

/// Whether the descriptor is a terminal on which a line can be redrawn.
[[nodiscard]] bool isDrawable(int descriptor);

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
