#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tarvin {

/// The paths that the rows of the location list cover. Lookup time depends on the parts of the
/// path, not on the number of rows. Paths are native bytes. One thread at a time.
class LocationIndex final {
 public:
    void add(const std::string& name) { names_.insert(name); }
    void clear() { names_.clear(); }

    /// Whether a name equals the path, or has no extension and is a folder above it. A folder such
    /// as "photos.old" does not cover its contents.
    [[nodiscard]] bool covers(std::string_view path) const;

 private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    std::unordered_set<std::string, Hash, std::equal_to<>> names_;
};

}  // namespace tarvin
