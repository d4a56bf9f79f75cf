#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvin {

// UTF-8 text. File names may contain any bytes; a byte that is not UTF-8 counts as one character.
// Any thread.

/// The first character of a text.
struct Utf8Character {
    char32_t codePoint = 0;  ///< of an invalid byte: the byte
    std::size_t length = 1;  ///< bytes
    bool valid = false;      ///< false for a byte that does not begin a character
};

/// The first character of `text`, which must not be empty.
[[nodiscard]] Utf8Character firstCharacter(std::string_view text);

[[nodiscard]] bool isValidUtf8(std::string_view text);

/// Replaces each invalid byte with U+FFFD.
[[nodiscard]] std::string withBadBytesReplaced(std::string_view text);

/// Appends a code point, not a surrogate, at most U+10FFFF.
void appendCharacter(char32_t codePoint, std::string& text);

/// The number of terminal columns of a character: 2 for East Asian wide characters and emoji, 0 for
/// combining characters.
[[nodiscard]] std::size_t columnsOf(char32_t codePoint);

}  // namespace tarvin
