#include "text/utf8.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace tarvin {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

bool isAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char byte : text) {
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(byte));
    }
    return all < 0x80;
}

}  // namespace

Utf8Character firstCharacter(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) {
        return {first, 1, true};
    }
    const void* const bytes = text.data();
    utf8proc_int32_t code = -1;
    const utf8proc_ssize_t length =
        utf8proc_iterate(static_cast<const utf8proc_uint8_t*>(bytes),
                         static_cast<utf8proc_ssize_t>(text.size()), &code);
    return length > 0
               ? Utf8Character{static_cast<char32_t>(code), static_cast<std::size_t>(length), true}
               : Utf8Character{first, 1, false};
}

bool isValidUtf8(std::string_view text) {
    if (isAscii(text)) {
        return true;
    }
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        if (!character.valid) {
            return false;
        }
        text.remove_prefix(character.length);
    }
    return true;
}

std::string withBadBytesReplaced(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        result += character.valid ? text.substr(0, character.length) : replacementCharacter;
        text.remove_prefix(character.length);
    }
    return result;
}

void appendCharacter(char32_t codePoint, std::string& text) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const utf8proc_ssize_t length =
        utf8proc_encode_char(static_cast<utf8proc_int32_t>(codePoint), bytes.data());
    std::transform(bytes.begin(), bytes.begin() + length, std::back_inserter(text),
                   [](utf8proc_uint8_t byte) { return static_cast<char>(byte); });
}

std::size_t columnsOf(char32_t codePoint) {
    const int columns = utf8proc_charwidth(static_cast<utf8proc_int32_t>(codePoint));
    return columns < 0 ? 0 : static_cast<std::size_t>(columns);
}

}  // namespace tarvin
