#include "platform/varied_name.h"

#include <algorithm>

namespace tarvin {

namespace {

/// Bytes with the period. A longer one is not a file type but a name that contains a period.
constexpr std::size_t maxExtensionBytes = 32;

/// The extension with its period; empty if there is none. Leading periods do not begin one.
std::string_view extensionOf(std::string_view name) {
    const std::size_t period = name.rfind('.');
    if (period == std::string_view::npos || period + 1 == name.size() ||
        name.find_first_not_of('.') > period || name.size() - period > maxExtensionBytes) {
        return {};
    }
    return name.substr(period);
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The length of the UTF-8 character that begins with this byte; 1 if none does.
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

/// Whether `text` begins with a complete UTF-8 character.
bool beginsWithCharacter(std::string_view text) {
    const std::size_t length = lengthOfCharacter(text.front());
    return length > 1 && length <= text.size() &&
           std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
                       isContinuation);
}

/// The first `maxBytes` of `text`, without an incomplete character at the end.
std::string_view shortened(std::string_view text, std::size_t maxBytes) {
    if (text.size() <= maxBytes) {
        return text;
    }
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, maxBytes); ++back) {
        const std::string_view rest = text.substr(maxBytes - back);
        if (!isContinuation(rest.front())) {
            const bool cuts = beginsWithCharacter(rest) && lengthOfCharacter(rest.front()) > back;
            return text.substr(0, cuts ? maxBytes - back : maxBytes);
        }
    }
    return text.substr(0, maxBytes);
}

}  // namespace

std::string variedName(std::string_view name, std::string_view addition, std::size_t maxBytes) {
    const std::string_view extension = extensionOf(name);
    const std::string_view stem = name.substr(0, name.size() - extension.size());
    std::string whole(shortened(stem, maxBytes - addition.size() - extension.size()));
    whole += addition;
    whole += extension;
    return whole;
}

}  // namespace tarvin
