#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvin {

// Text in UTF-8. A name is any bytes; what is not UTF-8 in it is dealt with byte by byte. Any
// thread.

/// One character at the beginning of a text.
struct Utf8Character {
    char32_t codePoint = 0;  ///< of a bad byte: the byte
    std::size_t length = 1;  ///< bytes
    bool valid = false;      ///< false for a byte that begins no character
};

/// The first character of `text`, which must not be empty.
[[nodiscard]] Utf8Character firstCharacter(std::string_view text);

[[nodiscard]] bool isValidUtf8(std::string_view text);

/// The same text with U+FFFD in place of each bad byte.
[[nodiscard]] std::string withBadBytesReplaced(std::string_view text);

/// Appends a code point, which is none of the surrogates and at most U+10FFFF.
void appendCharacter(char32_t codePoint, std::string& text);

/// How many columns of a terminal a character takes: 2 for those of East Asia and for pictographs,
/// 0 for what is put on the character before it.
[[nodiscard]] std::size_t columnsOf(char32_t codePoint);

}  // namespace tarvin
