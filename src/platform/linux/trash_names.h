#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvin {

/// The suffix of a .trashinfo file's name.
inline constexpr std::string_view trashInfoSuffix = ".trashinfo";

/// The name of a file in the Trash at the `number`th try: its own at the first, then with the
/// number before the extension. Shortened to `maxBytes` like variedName(); `maxBytes` must be at
/// least 64.
[[nodiscard]] std::string nameInTrash(std::string_view name, std::uint64_t number,
                                      std::size_t maxBytes);

/// Whether `inTrash` is the name of a file at some try.
[[nodiscard]] bool isNameInTrashOf(std::string_view name, std::string_view inTrash,
                                   std::size_t maxBytes);

/// A path as a .trashinfo file holds it: bytes other than letters, digits, '/' and -_.!~*'() as
/// "%XX".
[[nodiscard]] std::string percentEncoded(std::string_view path);

/// The text of a .trashinfo file. `path` in native bytes, `date` as in "2024-02-29T23:59:59".
[[nodiscard]] std::string trashInfoText(std::string_view path, std::string_view date);

/// The encoded path in a .trashinfo file; nullopt if the text is incomplete, as after a power
/// failure. A view into `text`.
[[nodiscard]] std::optional<std::string_view> trashInfoPath(std::string_view text);

/// The next number to try for each name in one Trash, so that many files with one name cost one try
/// each. One thread at a time.
class TrashNumbers final {
 public:
    /// The first number to try; 1 for an unknown name.
    [[nodiscard]] std::uint64_t firstFor(const std::string& name) const;
    /// Records that `number` is in use.
    void take(const std::string& name, std::uint64_t number);

 private:
    std::unordered_map<std::string, std::uint64_t> next_;
};

}  // namespace tarvin
