#include "cli/utf8.h"

#include <array>

namespace tarvin {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";
constexpr char32_t lastCodePoint = 0x10FFFF;

unsigned char byteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

bool isAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char byte : text) {
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(byte));
    }
    return all < 0x80;
}

/// How many bytes the character has that begins with `lead`; 0 if none does.
std::size_t lengthAfter(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    if (lead < 0xE0) {
        return 2;
    }
    return lead < 0xF0 ? 3 : 4;
}

/// Whether a sequence of `length` bytes may stand for the code point.
bool isAllowed(char32_t codePoint, std::size_t length) {
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return codePoint >= smallest[length] && codePoint <= lastCodePoint && !isSurrogate;
}

}  // namespace

Utf8Character firstCharacter(std::string_view text) {
    const unsigned char lead = byteAt(text, 0);
    const Utf8Character badByte{lead, 1, false};
    const std::size_t length = lengthAfter(lead);
    if (length == 1) {
        return {lead, 1, true};
    }
    if (length == 0 || length > text.size()) {
        return badByte;
    }
    char32_t codePoint = lead & (0x7FU >> length);
    for (std::size_t position = 1; position < length; ++position) {
        const unsigned char byte = byteAt(text, position);
        if ((byte & 0xC0U) != 0x80U) {
            return badByte;
        }
        codePoint = (codePoint << 6U) | (byte & 0x3FU);
    }
    return isAllowed(codePoint, length) ? Utf8Character{codePoint, length, true} : badByte;
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
    std::string answer;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        answer += character.valid ? text.substr(0, character.length) : replacementCharacter;
        text.remove_prefix(character.length);
    }
    return answer;
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string answer;
    answer.reserve(bytes.size() * 2);
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        const unsigned char byte = byteAt(bytes, position);
        answer += digits[byte >> 4U];
        answer += digits[byte & 0x0FU];
    }
    return answer;
}

}  // namespace tarvin
