#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tarvin {

/// Which paths the rows of the location list cover. Asking takes as long as the path has parts,
/// whatever the number of rows. Paths are native bytes.
class LocationIndex final {
 public:
    void add(const std::string& name) { names_.insert(name); }
    void clear() { names_.clear(); }

    /// Whether a name is the path itself, or has no extension and the path begins with it and a
    /// slash. A folder such as "photos.old" does not cover what is in it.
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
