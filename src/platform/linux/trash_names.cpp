#include "platform/linux/trash_names.h"

#include "platform/varied_name.h"

#include <glib.h>

#include <charconv>
#include <cstddef>
#include <memory>
#include <system_error>

namespace tarvin {

namespace {

/// Bounds the memory of a clean-up of millions of names: at this count all are forgotten, which
/// costs each repeated name a few tries.
constexpr std::size_t maxNumbers = 10'000;

/// The beginning of each of our .trashinfo files.
constexpr std::string_view trashInfoPrefix = "[Trash Info]\nPath=";

}  // namespace

std::string nameInTrash(std::string_view name, std::uint64_t number, std::size_t maxBytes) {
    return variedName(name, number > 1 ? '.' + std::to_string(number) : std::string(), maxBytes);
}

bool isNameInTrashOf(std::string_view name, std::string_view inTrash, std::size_t maxBytes) {
    if (inTrash == nameInTrash(name, 1, maxBytes)) {
        return true;
    }
    for (std::size_t dot = inTrash.find('.'); dot != std::string_view::npos;
         dot = inTrash.find('.', dot + 1)) {
        std::uint64_t number = 0;
        const char* const begin = inTrash.data() + dot + 1;
        const auto read = std::from_chars(begin, inTrash.data() + inTrash.size(), number);
        if (read.ec == std::errc() && inTrash == nameInTrash(name, number, maxBytes)) {
            return true;
        }
    }
    return false;
}

std::string percentEncoded(std::string_view path) {
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_uri_escape_string(std::string(path).c_str(), "/!*'()", FALSE), &g_free);
    return text.get();
}

std::string trashInfoText(std::string_view path, std::string_view date) {
    std::string text(trashInfoPrefix);
    text += percentEncoded(path);
    text += "\nDeletionDate=";
    text += date;
    text += '\n';
    return text;
}

std::optional<std::string_view> trashInfoPath(std::string_view text) {
    const std::size_t end = text.find('\n', trashInfoPrefix.size());
    if (!text.starts_with(trashInfoPrefix) || end == std::string_view::npos ||
        !text.ends_with('\n')) {
        return std::nullopt;
    }
    return text.substr(trashInfoPrefix.size(), end - trashInfoPrefix.size());
}

std::uint64_t TrashNumbers::firstFor(const std::string& name) const {
    const auto known = next_.find(name);
    return known == next_.end() ? 1 : known->second;
}

void TrashNumbers::take(const std::string& name, std::uint64_t number) {
    if (number == 1) {
        return;  // most names occur once; a second file costs one more try
    }
    if (next_.size() >= maxNumbers) {
        next_.clear();
    }
    next_[name] = number + 1;
}

}  // namespace tarvin
