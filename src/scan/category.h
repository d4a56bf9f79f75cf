#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvin {

/// The kind of a file, by its extension. Sets of duplicates never mix categories.
enum class Category : std::uint8_t { image, video, audio, documents, other };

/// All of them, in the order in which results are shown.
inline constexpr std::array<Category, 5> allCategories{
    Category::image, Category::video, Category::audio, Category::documents, Category::other};

/// "Image", "Video", "Audio", "Documents" or "Other".
[[nodiscard]] std::string_view categoryName(Category category);

// The rules. Pure. Any thread. Paths and names are native bytes: valid UTF-8 in them is Unicode
// text, and each other byte is one character.

/// Whether `haystack` contains `needle`, byte for byte. Always false for a needle of less than
/// three UTF-16 code units (a byte that is not UTF-8 counts as one).
[[nodiscard]] bool isStringPresent(std::string_view haystack, std::string_view needle);

/// The text after the last dot of the path's last component, trailing slashes ignored. Empty if
/// there is no dot, or if the last dot ends the name or begins it (".hidden"). May contain spaces.
[[nodiscard]] std::string_view pathExtension(std::string_view path);

/// The extension in lower case up to its first space: "jpg" for "Photo.JPG copy".
[[nodiscard]] std::string extensionKey(std::string_view path);

/// Whether the list of that kind contains the path's key; false for everything inside an
/// application or framework bundle. The key may match inside an entry of the list or across two,
/// and keys of one or two characters match nothing.
[[nodiscard]] bool isValidImageFile(std::string_view path);
[[nodiscard]] bool isValidAudioFile(std::string_view path);
[[nodiscard]] bool isValidVideoFile(std::string_view path);
[[nodiscard]] bool isValidDocFile(std::string_view path);
/// The same for the list of other types. Not used for sorting: a file is Category::other if none of
/// the four rules above accepts it.
[[nodiscard]] bool isValidOtherFile(std::string_view path);

/// Whether a path dropped on the location list is an image: its extension in lower case, spaces
/// included, is an entry of a separate list.
[[nodiscard]] bool isSupportedImage(std::string_view path);

/// Sorts collected files by the rules above. Caches the category of each extension, up to a limit.
/// One thread.
class Classifier final {
 public:
    Classifier() = default;
    Classifier(const Classifier&) = delete;
    Classifier& operator=(const Classifier&) = delete;

    /// The category of a file with this name. `insideBundle`: whether its path contains ".app/" or
    /// ".framework/". nullopt if the name has no extension: such files are not collected.
    [[nodiscard]] std::optional<Category> classify(std::string_view fileName, bool insideBundle);

 private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    Category categoryOfKey(std::string_view key);

    std::unordered_map<std::string, Category, Hash, std::equal_to<>> known_;  // by key
};

}  // namespace tarvin
