#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

// How the rule tests reach the files they judge. Paths given and answered are relative to the
// project's root. A file that cannot be read ends the test that asked for it.

/// The project's root folder.
[[nodiscard]] std::filesystem::path projectRoot();

/// The whole content of one file.
[[nodiscard]] std::string readProjectFile(const std::filesystem::path& file);

/// Every .cpp and .h below `folder`, in the order of their names.
[[nodiscard]] std::vector<std::filesystem::path> cppFilesBelow(std::string_view folder);

/// Every script of the project whose first line names bash, in the order of their names.
[[nodiscard]] std::vector<std::filesystem::path> bashScripts();

}  // namespace tarvin
