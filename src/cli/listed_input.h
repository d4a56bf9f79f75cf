#pragma once

#include "scan/listed_files.h"

#include <memory>
#include <string>

namespace tarvin {

/// Reads the list at `path`; "-" is standard input. Returns nullptr, after an error message, if it
/// cannot be used as a whole. Main thread only.
[[nodiscard]] std::shared_ptr<ListedFiles> readList(const std::string& path);

/// Reports each file that cannot be used, or stays although the list does not keep it. Returns
/// whether there was none. Any thread.
[[nodiscard]] bool reportListProblems(const ListedFiles& files);

}  // namespace tarvin
