#pragma once

#include "cli/output_file.h"
#include "cli/scan_options.h"
#include "platform/platform.h"
#include "scan/exception_filter.h"

#include <cstdint>
#include <memory>
#include <optional>

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
/// fails.
[[nodiscard]] std::optional<ScanSetup> setUpScan(const ScanOptions& options, Platform& platform,
                                                 UnusableExceptions unusable);

}  // namespace tarvin
