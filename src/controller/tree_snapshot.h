#pragma once

#include "model/modal.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tarvin {

/// The displayed data of a result tree at one moment, 16 bytes a set: the check states of all rows
/// and the number of files of each set. Row numbers are the positions in Modal::extensions() and
/// Extensions::sets(). Immutable.
class TreeSnapshot final {
 public:
    explicit TreeSnapshot(const Modal& modal);

    // Require a row that existed when the snapshot was taken.

    [[nodiscard]] CheckState stateOfExtension(int extension) const;
    [[nodiscard]] CheckState stateOfSet(int extension, int set) const;
    [[nodiscard]] std::string nameOfSet(int extension, int set) const;

 private:
    struct ExtensionRow {
        std::size_t firstSet;  // index into `sets_`
        CheckState state;
    };
    struct SetRow {
        std::size_t files;
        CheckState state;
    };

    [[nodiscard]] const SetRow& at(int extension, int set) const;

    std::vector<ExtensionRow> extensions_;
    std::vector<SetRow> sets_;
};

}  // namespace tarvin
