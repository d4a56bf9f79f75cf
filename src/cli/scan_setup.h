#pragma once

#include "cli/scan_options.h"
#include "platform/platform.h"
#include "report/output_file.h"
#include "scan/exception_filter.h"
#include "scan/location_row.h"
#include "scan/unreadable.h"
#include "store/exception_file.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tarvin {

/// How to treat an unusable exceptions list of the user.
enum class UnusableExceptions : std::uint8_t {
    areIgnored,  ///< continue without: nothing is moved
    areARefusal  ///< stop: excluded files could be moved
};

/// The prerequisites of a scan. Main thread only.
struct ScanSetup {
    ExceptionFilter exceptions;          ///< files to skip
    std::unique_ptr<OutputFile> output;  ///< target of the result
};

/// Reads the exceptions and opens the output. Returns nullopt, after an error message, if that
/// fails or the options contradict each other.
[[nodiscard]] std::optional<ScanSetup> setUpScan(const ScanOptions& options, Platform& platform,
                                                 UnusableExceptions unusable);

/// The folders of a command line as input of a scan.
struct ScanFolders {
    /// Checked, with absolute paths. May be files, unless given with a slash at the end.
    std::vector<LocationRow> rows;
    std::vector<UnreadableLocation> unreadable;  ///< without an absolute path
};

/// Makes the paths absolute; the folders need not exist. A link to a folder is kept and will be
/// followed; a link to a file will be refused, whichever way it is named.
[[nodiscard]] ScanFolders foldersOf(const ScanOptions& options);

/// The exceptions to use. Fails if the list named by the options, or else the user's own, cannot be
/// read; a missing list of the user is empty.
[[nodiscard]] ExceptionList exceptionsOf(const ScanOptions& options, Platform& platform);

}  // namespace tarvin
