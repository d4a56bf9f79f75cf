#pragma once

#include "cli/output.h"
#include "cli/scan_report.h"

#include <cstdint>
#include <memory>

namespace tarvin {

enum class ResultFormat : std::uint8_t {
    text,  ///< for people
    json,
    csv
};

/// Writes the report of a scan in one format, set by set, so that a result of a million files is
/// not held a second time. Any thread.
class ResultWriter {
 public:
    virtual ~ResultWriter() = default;

    /// Appends the whole report to `output`, which remembers what goes wrong and is not flushed.
    virtual void write(const ScanReport& report, Output& output) const = 0;
};

[[nodiscard]] std::unique_ptr<ResultWriter> makeWriter(ResultFormat format);

}  // namespace tarvin
