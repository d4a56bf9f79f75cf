#pragma once

#include "cli/scan_options.h"
#include "platform/platform.h"
#include "scan/collector.h"
#include "scan/location_row.h"
#include "store/exception_file.h"

#include <string>
#include <vector>

namespace tarvin {

/// The folders of a command line as the scan wants them.
struct ScanFolders {
    std::vector<LocationRow> rows;               ///< checked folders by absolute path
    std::vector<UnreadableLocation> unreadable;  ///< those that have no absolute path
};

[[nodiscard]] ScanFolders foldersOf(const ScanOptions& options);

/// The exceptions to be used. An error means that the list asked for, or the person's own, cannot
/// be read; that there is no list of one's own is none.
[[nodiscard]] ExceptionList exceptionsOf(const ScanOptions& options, Platform& platform);

}  // namespace tarvin
