#pragma once

#include <cstdint>
#include <string_view>

namespace tarvin {

enum class ColorWhen : std::uint8_t {
    automatic,  ///< on a terminal that has it, unless NO_COLOR is set
    always,
    never
};

/// What a place that text is written to can show.
struct Display {
    bool isTerminal = false;
    bool isColored = false;
};

// Marks of a terminal for text that follows. Where there is no colour none of them is written, and
// the text is the same letter for letter.
constexpr std::string_view bold = "\x1B[1m";
constexpr std::string_view red = "\x1B[31m";
constexpr std::string_view plain = "\x1B[0m";

/// Says when the process uses colour; automatic until then. Any thread.
void useColor(ColorWhen when);

/// What an open file, pipe or terminal can show. Any thread.
[[nodiscard]] Display displayOf(int descriptor);

}  // namespace tarvin
