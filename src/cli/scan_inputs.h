#pragma once

#include "cli/scan_options.h"
#include "platform/platform.h"
#include "scan/collector.h"
#include "scan/location_row.h"
#include "store/exception_file.h"

#include <string>
#include <vector>

namespace tarvin {

/// The folders of a command line as input of a scan.
struct ScanFolders {
    std::vector<LocationRow> rows;               ///< checked, with absolute paths
    std::vector<UnreadableLocation> unreadable;  ///< without an absolute path
};

[[nodiscard]] ScanFolders foldersOf(const ScanOptions& options);

/// The exceptions to use. Fails if the list named by the options, or else the user's own, cannot be
/// read; a missing list of the user is empty.
[[nodiscard]] ExceptionList exceptionsOf(const ScanOptions& options, Platform& platform);

}  // namespace tarvin
