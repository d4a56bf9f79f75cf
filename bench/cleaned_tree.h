#pragma once

#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin::bench {

/// A tree of sets of two equal files: one below "keep", which stays, and its copy below "copies",
/// which goes.
struct CleanedTree {
    std::size_t files = 0;        ///< copies
    std::size_t perFolder = 100;  ///< files in one folder
    bool oneName = false;         ///< all copies have one name; `perFolder` is 1 then
};

/// Writes the tree into a new folder. Ends the program if that fails.
void writeTree(const std::string& folder, const CleanedTree& tree);

/// The result of a scan of such a tree, with every copy marked, as the programs have it. Ends the
/// program if a set is missing.
[[nodiscard]] std::shared_ptr<Modal> scanTree(const std::string& folder, std::size_t sets);

/// A marked file, by its folder and its name in it.
struct MarkedFile {
    std::string folder;
    std::string name;
};

/// In the order in which a clean-up moves them.
[[nodiscard]] std::vector<MarkedFile> markedFiles(const Modal& modal);

/// Entries of a folder; 0 if it is not there.
[[nodiscard]] std::size_t entriesIn(const std::string& folder);

}  // namespace tarvin::bench
