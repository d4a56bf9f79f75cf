#pragma once

#include "platform/file_system.h"
#include "scan/scan_control.h"

#include <chrono>
#include <functional>

namespace tarvin {

/// Whether the process or the system has no descriptor left.
[[nodiscard]] bool isShortageOfDescriptors(SystemError error);

/// Calls `open` until it returns anything but a shortage of descriptors. Waits for as long as
/// descriptors of `fileSystem` are being closed; gives up when none has been for 10 seconds,
/// because then others hold them all. Ends early when the scan is stopped.
Result<Descriptor> openWithRetry(const FileSystem& fileSystem, const ScanControl& control,
                                 const std::function<Result<Descriptor>()>& open,
                                 std::chrono::milliseconds patience = std::chrono::seconds(10));

}  // namespace tarvin
