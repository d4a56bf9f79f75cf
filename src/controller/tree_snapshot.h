#pragma once

#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvin {

/// The displayed data of a result tree at one moment, 16 bytes a set: the check states of all rows,
/// and the number of files of each set and what its copies take. Row numbers are the positions in
/// Modal::extensions() and Extensions::sets(). Immutable. Taking it reads every set, so a long list
/// is copied on another thread.
class TreeSnapshot final {
 public:
    /// Any thread, while no thread changes the tree.
    explicit TreeSnapshot(const Modal& modal);

    // Require a row that existed when the snapshot was taken.

    [[nodiscard]] CheckState stateOfExtension(int extension) const;
    [[nodiscard]] CheckState stateOfSet(int extension, int set) const;
    [[nodiscard]] std::string nameOfSet(int extension, int set) const;
    [[nodiscard]] std::size_t filesOfSet(int extension, int set) const;
    /// Set::sizeOfCopies().
    [[nodiscard]] std::uint64_t sizeOfCopies(int extension, int set) const;

 private:
    struct ExtensionRow {
        std::size_t firstSet;  // index into `sets_`
        CheckState state;
    };
    struct SetRow {
        std::uint64_t sizeOfCopies;
        std::uint32_t files;
        CheckState state;
    };
    static_assert(sizeof(SetRow) == 16);

    [[nodiscard]] const SetRow& at(int extension, int set) const;

    std::vector<ExtensionRow> extensions_;
    std::vector<SetRow> sets_;
};

}  // namespace tarvin
