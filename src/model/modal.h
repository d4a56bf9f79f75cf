#pragma once

#include "model/extensions.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvin {

/// One result list: the extensions of a category, or those of all categories joined. Owned by
/// whoever runs the scan; one thread at a time changes a result tree.
///
/// Changes go through the highest level that contains them, which is this one. Two lists may share
/// their extensions: what is done through one is seen through the other, except in the totals of
/// the other list itself, which go stale (calculateTotalFilesAndSize). Marking, removing and
/// excepting set by set costs what the sets cost, not what their extension holds.
class Modal final {
 public:
    Modal() = default;
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    /// Appends one extension. Touches no counter.
    void addExtension(std::shared_ptr<Extensions> extension);
    /// Appends every element of a list, which may be this list's own, in order.
    void addExtensionFromArray(std::vector<std::shared_ptr<Extensions>> extensions);
    /// The list itself: valid until the next change of this object.
    [[nodiscard]] const std::vector<std::shared_ptr<Extensions>>& extensions() const {
        return extensionsArray_;
    }
    [[nodiscard]] std::size_t extensionCount() const { return extensionsArray_.size(); }
    /// The first extension of exactly this name, byte for byte, or none. Costs the same however
    /// many extensions there are; only the first call after a renaming goes through all of them.
    [[nodiscard]] std::shared_ptr<Extensions> getExtensionWithName(std::string_view name) const;

    /// Marks every copy in every set; position 0 of each set survives.
    void markAllExtension();
    /// Clears every mark.
    void unmarkAllExtension();
    /// What a click on a check box does. With a file: its mark turns over (`set` is its set).
    /// Else with a set: the set's check box. Else the check box of the extension. `extension` is
    /// never none and holds the set; counters and states follow on every level.
    void changeStateOfExtension(const std::shared_ptr<Extensions>& extension,
                                const std::shared_ptr<Set>& set, const std::shared_ptr<File>& file);

    /// Moves the marked files of one set to the Trash (Set::removeSelectedFilesInSet); all four
    /// counters follow on every level.
    RemovalResult removeSelectedFilesInSet(const std::shared_ptr<Set>& set,
                                           const std::shared_ptr<Extensions>& extension,
                                           FileMover& mover);
    /// Takes the marked files of one set out and answers their paths in set order
    /// (Set::addSelectedFilesInSetToException); only the marked counters follow.
    std::vector<std::string> addSelectedFilesToExceptionInSet(
        const std::shared_ptr<Set>& set, const std::shared_ptr<Extensions>& extension);

    /// Sums the totals anew from the extensions. Leaves the marked counters alone.
    void calculateTotalFilesAndSize();

    /// The same list as extensions().
    [[nodiscard]] const std::vector<std::shared_ptr<Extensions>>& extensionsArray() const {
        return extensionsArray_;
    }
    /// Touches no counter.
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
    mutable PositionsByName firstPosition_;  ///< follows from `extensionsArray_` and the names
    mutable std::uint64_t indexedRenamings_ = Extensions::renamings();
    std::uint64_t totalFiles_ = 0;
    std::uint64_t totalFilesSize_ = 0;
    std::uint64_t totalFilesSelected_ = 0;
    std::uint64_t totalFilesSelectedSize_ = 0;
};

}  // namespace tarvin
