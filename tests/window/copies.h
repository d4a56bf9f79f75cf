#pragma once

#include <map>
#include <string>
#include <vector>

namespace tarvin {

/// Sets of equal files with one file-name extension.
struct Copies {
    std::string extension;
    int sets = 0;
    int copies = 0;  // files in each set
};

inline constexpr int bytesOfEachCopy = 1000;

/// Writes the files below `folder`, those of one set with the same name in different folders. Files
/// of different sets differ.
void writeCopies(const std::string& folder, const std::vector<Copies>& all);

/// The content of every regular file below `folder`, by path.
[[nodiscard]] std::map<std::string, std::string> filesBelow(const std::string& folder);

/// The content of every file in the Trash below `dataFolder`, by original path. Fails the test if a
/// file has no .trashinfo file or a .trashinfo file has no file.
[[nodiscard]] std::map<std::string, std::string> trashedFiles(const std::string& dataFolder);

}  // namespace tarvin
