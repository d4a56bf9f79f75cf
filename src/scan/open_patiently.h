#pragma once

#include "platform/file_system.h"
#include "scan/scan_control.h"

#include <functional>

namespace tarvin {

/// Calls `open` until it answers anything but a shortage of descriptors, for two seconds at most:
/// somebody else in the process may hold for a moment what was counted on, and no file or folder is
/// given up for that. Ends early when the scan is stopped.
Result<Descriptor> openPatiently(const ScanControl& control,
                                 const std::function<Result<Descriptor>()>& open);

}  // namespace tarvin
