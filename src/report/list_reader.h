#pragma once

#include "scan/listed_files.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

namespace tarvin {

/// Why a list cannot be used as a whole: "not JSON at byte 17".
struct ListError {
    std::string reason;
};

/// Limits of a list, far beyond any result, so that a pipe that never ends is refused while there
/// is memory left.
struct ListLimits {
    std::uint64_t bytes = std::uint64_t{4} << 30U;
    std::size_t files = 20'000'000;
};

/// Reads a list of sets as writeJson() writes it, to the end of an open file or pipe. Of each file
/// the keys "filePath", "filePathBytes" and "keep" are used, and the "version" of the list, which
/// need not be there; all other keys are ignored, so a list may have been written by another
/// program. A list of a newer version is refused. A path is not checked (checkListedFiles()),
/// except that its two forms must agree. A list of which a part is missing, repeated or of another
/// type is refused as a whole: it may mean something else. Memory grows only with the paths; texts
/// over 1 MiB and values that are nested deeply are refused. Blocks while a pipe has no input. Any
/// thread.
[[nodiscard]] std::variant<ListedFiles, ListError> readListedFiles(int descriptor,
                                                                   const ListLimits& limits = {});

}  // namespace tarvin
