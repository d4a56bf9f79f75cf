#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvin {

/// What a note's name has behind that of its file.
inline constexpr std::string_view trashNoteEnding = ".trashinfo";

/// The name that a file gets in the Trash at the `number`th try: its own at the first, then with
/// the number in front of the extension. Shortened to `longest` bytes between two characters of
/// UTF-8, or between two bytes of anything else; an extension of usual length is kept. `longest` is
/// at least 64.
[[nodiscard]] std::string nameInTrash(std::string_view name, std::uint64_t number,
                                      std::size_t longest);

/// Whether `inTrash` is the name that a file gets at some try.
[[nodiscard]] bool isNameInTrashOf(std::string_view name, std::string_view inTrash,
                                   std::size_t longest);

/// A path as a note holds it: bytes other than letters, digits, '/' and -_.!~*'() as "%XX".
[[nodiscard]] std::string percentEncoded(std::string_view path);

/// The whole text of a note. `path` in native bytes, `date` as in "2024-02-29T23:59:59".
[[nodiscard]] std::string trashNote(std::string_view path, std::string_view date);

/// The path that a note tells, as it stands there; none if the note is not whole, as where a power
/// failure came before the disk had it. The view is into `note`.
[[nodiscard]] std::optional<std::string_view> notedPath(std::string_view note);

/// From which number on names are likely to be free in one Trash, so that many files of one name
/// cost one try each. One thread at a time.
class TrashNumbers final {
 public:
    /// The number to begin with; 1 for a name of which nothing is known.
    [[nodiscard]] std::uint64_t firstFor(const std::string& name) const;
    /// `number` was free and is taken now.
    void take(const std::string& name, std::uint64_t number);

 private:
    std::unordered_map<std::string, std::uint64_t> next_;
};

}  // namespace tarvin
