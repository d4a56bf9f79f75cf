#pragma once

#include "scan/scan_filter.h"

namespace CLI {
class App;
}

namespace tarvin {

/// Adds the options that limit what a scan finds: "--exclude", "--min-size", "--max-size",
/// "--one-file-system" and "--skip-hidden". `command` stores into `filter`, which must outlive it.
/// Main thread only.
void addFilterOptions(CLI::App& command, ScanFilter& filter);

}  // namespace tarvin
