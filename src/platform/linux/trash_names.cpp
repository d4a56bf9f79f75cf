#include "platform/linux/trash_names.h"

#include "platform/varied_name.h"

#include <array>
#include <cstddef>

namespace tarvin {

namespace {

/// Beyond it all are forgotten, which costs each name that comes again a few tries: a clean-up of
/// millions of names takes no more memory than this.
constexpr std::size_t mostNumbers = 10'000;

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
    return variedName(name, number > 1 ? '.' + std::to_string(number) : std::string(), longest);
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
