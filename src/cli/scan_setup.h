#pragma once

#include "cli/output_file.h"
#include "cli/scan_options.h"
#include "platform/platform.h"
#include "scan/exception_filter.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tarvin {

/// What to do about a list of one's own that cannot be used.
enum class UnusableExceptions : std::uint8_t {
    areIgnored,  ///< where nothing is removed
    areARefusal
};

/// What a command that scans has to have before it begins. Main thread.
struct ScanSetup {
    ExceptionFilter exceptions;          ///< the files that are left out
    std::unique_ptr<OutputFile> output;  ///< where the result goes
};

/// What the options ask for, or none, and a complaint, if there is no such list or place.
[[nodiscard]] std::optional<ScanSetup> setUpScan(const ScanOptions& options, Platform& platform,
                                                 UnusableExceptions unusable);

}  // namespace tarvin
