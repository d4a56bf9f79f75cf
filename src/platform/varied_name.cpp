#include "platform/varied_name.h"

#include <algorithm>

namespace tarvin {

namespace {

/// Bytes, the period included. What is longer is no file type, but a name with a period in it.
constexpr std::size_t longestExtension = 32;

/// The extension with its period; empty if there is none. Periods at the front are no extension's.
std::string_view extensionOf(std::string_view name) {
    const std::size_t period = name.rfind('.');
    if (period == std::string_view::npos || period + 1 == name.size() ||
        name.find_first_not_of('.') > period || name.size() - period > longestExtension) {
        return {};
    }
    return name.substr(period);
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How many bytes the character of UTF-8 has that begins with this one; 1 if none does.
std::size_t lengthOfCharacter(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte >= 0xF0U && byte <= 0xF4U) {
        return 4;
    }
    if (byte >= 0xE0U && byte < 0xF0U) {
        return 3;
    }
    return byte >= 0xC2U && byte < 0xE0U ? 2 : 1;
}

/// Whether a character of UTF-8 stands whole at the front.
bool beginsWithCharacter(std::string_view text) {
    const std::size_t length = lengthOfCharacter(text.front());
    return length > 1 && length <= text.size() &&
           std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
                       isContinuation);
}

/// The front of `text`, at most `most` bytes, without a part of a character at its end.
std::string_view shortened(std::string_view text, std::size_t most) {
    if (text.size() <= most) {
        return text;
    }
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, most); ++back) {
        const std::string_view rest = text.substr(most - back);
        if (!isContinuation(rest.front())) {
            const bool cuts = beginsWithCharacter(rest) && lengthOfCharacter(rest.front()) > back;
            return text.substr(0, cuts ? most - back : most);
        }
    }
    return text.substr(0, most);
}

}  // namespace

std::string variedName(std::string_view name, std::string_view addition, std::size_t longest) {
    const std::string_view extension = extensionOf(name);
    const std::string_view stem = name.substr(0, name.size() - extension.size());
    std::string whole(shortened(stem, longest - addition.size() - extension.size()));
    whole += addition;
    whole += extension;
    return whole;
}

}  // namespace tarvin
