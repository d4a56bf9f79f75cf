#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvin {

// Names as text. A name is any bytes; what is not UTF-8 in it is dealt with byte by byte. All pure;
// any thread.

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

/// Two digits a byte, lower case.
[[nodiscard]] std::string hexadecimal(std::string_view bytes);

}  // namespace tarvin
