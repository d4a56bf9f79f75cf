#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

// Access to the files that the rule tests check. Paths are relative to the project root. An
// unreadable file ends the test.

/// The project root.
[[nodiscard]] std::filesystem::path projectRoot();

/// The whole content of one file.
[[nodiscard]] std::string readProjectFile(const std::filesystem::path& file);

/// Every .cpp and .h below `folder`, sorted.
[[nodiscard]] std::vector<std::filesystem::path> cppFilesBelow(std::string_view folder);

/// Every bash script of the project (by its first line), sorted.
[[nodiscard]] std::vector<std::filesystem::path> bashScripts();

}  // namespace tarvin
