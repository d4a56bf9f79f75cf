#pragma once

#include "cli/scan_options.h"
#include "platform/result.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

// Lists of files and folders to scan. Paths are native bytes.

/// The paths in a list, each ended by `end`; the last one need not be. Empty ones are left out.
/// Pure.
[[nodiscard]] std::vector<std::string> pathsIn(std::string_view list, char end);

/// Reads a file, which may be a pipe, to its end; "-" is standard input. Any thread.
Result<std::string> contentOfList(const std::string& path);

/// Adds the paths in the list that the options name, if they name one, to the folders. Returns
/// false, after an error message, if the list cannot be used. Main thread only.
[[nodiscard]] bool addListedPaths(ScanOptions& options);

/// Whether standard input is read as the list, so that it cannot answer a question.
[[nodiscard]] bool readsStandardInput(const ScanOptions& options);

}  // namespace tarvin
