#pragma once

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

}  // namespace tarvin
