#pragma once

#include "model/extensions.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// One result list: the extensions of a category, or those of all categories joined. One thread at
/// a time may change a result tree.
///
/// Changes must go through this class, so that the counters of all levels follow. Two lists may
/// share their extensions: changes made through one are visible through the other, except in the
/// other list's own totals, which become stale (calculateTotalFilesAndSize()). The cost of marking,
/// removing or excluding one set does not depend on the size of its extension.
class Modal final {
 public:
    Modal() = default;
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    /// Appends one extension. Changes no counter.
    void addExtension(std::shared_ptr<Extensions> extension);
    /// Appends every element of a list, which may be this list's own, in order.
    void addExtensionFromArray(std::vector<std::shared_ptr<Extensions>> extensions);
    /// Valid until the next change of this object.
    [[nodiscard]] const std::vector<std::shared_ptr<Extensions>>& extensions() const {
        return extensionsArray_;
    }
    [[nodiscard]] std::size_t extensionCount() const { return extensionsArray_.size(); }
    /// Returns the first extension with exactly this name, byte for byte, or nullptr. Takes
    /// constant time, except for the first call after a renaming.
    [[nodiscard]] std::shared_ptr<Extensions> getExtensionWithName(std::string_view name) const;

    /// Marks all files of every set except the one at position 0.
    void markAllExtension();
    /// Clears every mark.
    void unmarkAllExtension();
    /// Toggles a check box: that of `file` in `set`; without a file that of `set`; without a set
    /// that of `extension`. `extension` is never nullptr and contains the set. Updates counters and
    /// states on every level.
    void changeStateOfExtension(const std::shared_ptr<Extensions>& extension,
                                const std::shared_ptr<Set>& set, const std::shared_ptr<File>& file);

    /// Calls `change` with each set, which may change its marks (Set::setMarks()), then updates
    /// counters and states on every level.
    void changeMarksOfSets(const std::function<void(Set&)>& change);
    /// The same, if `change` does not look into most sets, which is faster then.
    void changeMarksOfFewSets(const std::function<void(Set&)>& change);

    /// Moves the marked files of one set to the Trash (Set::removeSelectedFilesInSet()). Updates
    /// all four counters on every level.
    RemovalResult removeSelectedFilesInSet(const std::shared_ptr<Set>& set,
                                           const std::shared_ptr<Extensions>& extension,
                                           FileMover& mover);
    /// Removes the marked files of one set and returns their paths in set order
    /// (Set::addSelectedFilesInSetToException()). Updates only the marked counters.
    std::vector<std::string> addSelectedFilesToExceptionInSet(
        const std::shared_ptr<Set>& set, const std::shared_ptr<Extensions>& extension);

    /// Recomputes the totals from the extensions. Does not change the marked counters.
    void calculateTotalFilesAndSize();

    /// The same list as extensions().
    [[nodiscard]] const std::vector<std::shared_ptr<Extensions>>& extensionsArray() const {
        return extensionsArray_;
    }
    /// Changes no counter.
    void setExtensionsArray(std::vector<std::shared_ptr<Extensions>> extensions);

    /// Sum of the extensions' totalFilesInExtension.
    [[nodiscard]] std::uint64_t totalFiles() const { return totalFiles_; }
    void setTotalFiles(std::uint64_t count) { totalFiles_ = count; }

    /// Sum of the extensions' totalFilesInExtensionSize, bytes.
    [[nodiscard]] std::uint64_t totalFilesSize() const { return totalFilesSize_; }
    void setTotalFilesSize(std::uint64_t bytes) { totalFilesSize_ = bytes; }

    /// Sum of the extensions' totalFilesSelectedInExtension; 0 when nothing is marked.
    [[nodiscard]] std::uint64_t totalFilesSelected() const { return totalFilesSelected_; }
    void setTotalFilesSelected(std::uint64_t count) { totalFilesSelected_ = count; }

    /// Sum of the extensions' totalFilesSelectedInExtensionSize, bytes.
    [[nodiscard]] std::uint64_t totalFilesSelectedSize() const { return totalFilesSelectedSize_; }
    void setTotalFilesSelectedSize(std::uint64_t bytes) { totalFilesSelectedSize_ = bytes; }

 private:
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const noexcept {
            return std::hash<std::string_view>{}(name);
        }
    };
    using PositionsByName = std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>>;

    void rebuildIndex() const;
    void subtractMarksOf(const Extensions& extension);
    void addMarksOf(const Extensions& extension);
    void subtractTotalsOf(const Extensions& extension);
    void addTotalsOf(const Extensions& extension);

    std::vector<std::shared_ptr<Extensions>> extensionsArray_;
    mutable PositionsByName firstPosition_;  ///< an index of `extensionsArray_`
    mutable std::uint64_t indexedRenamings_ = Extensions::renamings();
    std::uint64_t totalFiles_ = 0;
    std::uint64_t totalFilesSize_ = 0;
    std::uint64_t totalFilesSelected_ = 0;
    std::uint64_t totalFilesSelectedSize_ = 0;
};

}  // namespace tarvin
