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

/// What a file is taken for, by the extension of its name. Sets of duplicates never mix categories.
enum class Category : std::uint8_t { image, video, audio, documents, other };

/// All of them, in the order in which results are shown.
inline constexpr std::array<Category, 5> allCategories{
    Category::image, Category::video, Category::audio, Category::documents, Category::other};

/// "Image", "Video", "Audio", "Documents" or "Other".
[[nodiscard]] std::string_view categoryName(Category category);

// The rules. All pure; any thread. Paths and names are native bytes: what is valid UTF-8 in them is
// taken as Unicode text, any other byte stands for itself.

/// Whether `needle` stands anywhere in `haystack`, byte for byte. Never true for a needle of less
/// than three characters (units of UTF-16; a byte that is not UTF-8 counts as one).
[[nodiscard]] bool isStringPresent(std::string_view haystack, std::string_view needle);

/// What follows the last dot of the path's last component; slashes at the end do not count. Empty
/// if there is no dot, the dot ends the name or the dot begins it (".hidden"). May hold blanks.
[[nodiscard]] std::string_view pathExtension(std::string_view path);

/// The extension in lower case up to its first blank: "jpg" for "Photo.JPG copy".
[[nodiscard]] std::string extensionKey(std::string_view path);

/// Whether the path's key stands in the list of that kind; false for everything inside an
/// application or framework bundle. The key may stand across two entries of the list or inside one,
/// and keys of one or two characters match nothing.
[[nodiscard]] bool isValidImageFile(std::string_view path);
[[nodiscard]] bool isValidAudioFile(std::string_view path);
[[nodiscard]] bool isValidVideoFile(std::string_view path);
[[nodiscard]] bool isValidDocFile(std::string_view path);
/// The same for the list of other types. Takes no part in sorting: a file is Category::other when
/// none of the four above accepts it.
[[nodiscard]] bool isValidOtherFile(std::string_view path);

/// Whether a path dropped on the location list is an image: its extension in lower case, blanks
/// included, is an entry of a list of its own.
[[nodiscard]] bool isSupportedImage(std::string_view path);

/// Sorts collected files: the answers of the rules above, remembered by extension, so that the
/// millionth "jpg" costs one look-up. What it remembers is bounded. Each collecting thread has one
/// of its own.
class Classifier final {
 public:
    Classifier() = default;
    Classifier(const Classifier&) = delete;
    Classifier& operator=(const Classifier&) = delete;

    /// The category of a file with this name. `insideBundle` says whether ".app/" or ".framework/"
    /// stands in its path. None if the name has no extension: such files are not collected.
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
