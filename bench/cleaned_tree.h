#pragma once

#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin::bench {

/// A tree of sets of two equal files: one below "keep", which stays, and its duplicate below
/// "copies", which is moved.
struct CleanedTree {
    std::size_t files = 0;        ///< copies
    std::size_t perFolder = 100;  ///< files in one folder
    bool oneName = false;         ///< all copies have one name; `perFolder` is 1 then
};

/// Writes the tree into a new folder. Exits with status 1 if that fails.
void writeTree(const std::string& folder, const CleanedTree& tree);

/// Scans such a tree and marks every duplicate, like the programs. Exits with status 1 if a set is
/// missing.
[[nodiscard]] std::shared_ptr<Modal> scanTree(const std::string& folder, std::size_t sets);

/// A marked file: its folder and its name.
struct MarkedFile {
    std::string folder;
    std::string name;
};

/// Returns the marked files in the order in which a clean-up moves them.
[[nodiscard]] std::vector<MarkedFile> markedFiles(const Modal& modal);

/// Returns the number of entries of a folder; 0 if it does not exist.
[[nodiscard]] std::size_t entriesIn(const std::string& folder);

}  // namespace tarvin::bench
