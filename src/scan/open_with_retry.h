#pragma once

#include "platform/file_system.h"
#include "scan/scan_control.h"

#include <chrono>
#include <functional>

namespace tarvin {

/// Whether the error means that the process or the system has no descriptors left.
[[nodiscard]] bool isShortageOfDescriptors(SystemError error);

/// Calls `open` until it succeeds or fails with an error other than a shortage of descriptors.
/// Retries while descriptors of `fileSystem` are being closed; gives up when none has been closed
/// for `patience`, because then other code holds them all. Ends early when the scan is stopped.
Result<Descriptor> openWithRetry(const FileSystem& fileSystem, const ScanControl& control,
                                 const std::function<Result<Descriptor>()>& open,
                                 std::chrono::milliseconds patience = std::chrono::seconds(10));

}  // namespace tarvin
