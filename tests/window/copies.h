#pragma once

#include <map>
#include <string>
#include <vector>

namespace tarvin {

/// So many sets of equal files, each of so many copies, with one file-name extension.
struct Copies {
    std::string extension;
    int sets = 0;
    int copies = 0;
};

inline constexpr int bytesOfEachCopy = 1000;

/// Writes them below `folder`, the copies of one set under the same name in different folders. No
/// two sets are equal.
void writeCopies(const std::string& folder, const std::vector<Copies>& all);

/// Every regular file below `folder`, by its path, with its content.
[[nodiscard]] std::map<std::string, std::string> filesBelow(const std::string& folder);

/// What lies in the Trash below `dataFolder`, by the paths that it would be put back to. Something
/// there that cannot be put back, or is told of and missing, is a failure of the test.
[[nodiscard]] std::map<std::string, std::string> trashedFiles(const std::string& dataFolder);

}  // namespace tarvin
