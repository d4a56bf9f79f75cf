#pragma once

#include "cli/scan_options.h"
#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvin {

// Lists of files and folders to scan. Paths are native bytes.

/// What a list may have at most, so that one without an end, such as /dev/zero, is refused before
/// it fills the memory.
struct PathListLimits {
    std::size_t pathBytes = 64 * 1024;  ///< of one path; 16 times what Linux takes in one call
    std::uint64_t listBytes = std::uint64_t{1} << 30U;  ///< read in about a second
    std::size_t paths = 16'000'000;                     ///< about 2 GB of memory
};

/// Why a list cannot be used, for a message: "cannot VERB list 'NAME': REASON".
struct PathListFailure {
    const char* verb = "";  ///< "read" if the system refused, else "use"
    std::string reason;
};

/// Reads the paths in a file, which may be a pipe; "-" is standard input. Each is ended by `end`, a
/// newline or null character; the last one need not be. Empty ones are left out. Null characters in
/// lines are refused: each path would end at its first one and could name another file. Any thread.
Result<std::vector<std::string>, PathListFailure> readPathList(const std::string& list, char end,
                                                               const PathListLimits& limits = {});

/// Adds the paths in the lists that the options name to the folders, in the order of the lists;
/// standard input is read once. Returns false, after an error message, if a list cannot be used.
/// Main thread only.
[[nodiscard]] bool addListedPaths(ScanOptions& options);

/// Whether standard input is read as a list, so that it cannot answer a question.
[[nodiscard]] bool readsStandardInput(const ScanOptions& options);

}  // namespace tarvin
