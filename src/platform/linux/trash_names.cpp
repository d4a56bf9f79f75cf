#include "platform/linux/trash_names.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarvin {

namespace {

/// Bytes, the period included. What is longer is no file type, but a name with a period in it.
constexpr std::size_t longestExtension = 32;

/// Beyond it all are forgotten, which costs each name that comes again a few tries: a clean-up of
/// millions of names takes no more memory than this.
constexpr std::size_t mostNumbers = 10'000;

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

/// The bytes that stand for themselves in a note.
constexpr auto plainBytes = [] {
    std::array<bool, 256> plain{};
    for (const char byte : std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                            "0123456789/-_.!~*'()")) {
        plain[static_cast<unsigned char>(byte)] = true;
    }
    return plain;
}();

}  // namespace

std::string nameInTrash(std::string_view name, std::uint64_t number, std::size_t longest) {
    const std::string_view extension = extensionOf(name);
    const std::string_view stem = name.substr(0, name.size() - extension.size());
    std::string middle;
    if (number > 1) {
        middle = '.' + std::to_string(number);
    }
    std::string whole(shortened(stem, longest - middle.size() - extension.size()));
    whole += middle;
    whole += extension;
    return whole;
}

std::string percentEncoded(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(path.size() + path.size() / 2);
    for (const char byte : path) {
        const auto value = static_cast<unsigned char>(byte);
        if (plainBytes[value]) {
            text += byte;
            continue;
        }
        text += '%';
        text += digits[value / 16];
        text += digits[value % 16];
    }
    return text;
}

std::string trashNote(std::string_view path, std::string_view date) {
    std::string text("[Trash Info]\nPath=");
    text += percentEncoded(path);
    text += "\nDeletionDate=";
    text += date;
    text += '\n';
    return text;
}

std::uint64_t TrashNumbers::firstFor(const std::string& name) const {
    const auto known = next_.find(name);
    return known == next_.end() ? 1 : known->second;
}

void TrashNumbers::take(const std::string& name, std::uint64_t number) {
    if (number == 1) {
        return;  // most names come once; the second file of one has one try more
    }
    if (next_.size() >= mostNumbers) {
        next_.clear();
    }
    next_[name] = number + 1;
}

}  // namespace tarvin
