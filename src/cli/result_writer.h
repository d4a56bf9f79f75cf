#pragma once

#include "cli/output.h"
#include "cli/scan_report.h"

#include <cstdint>
#include <memory>

namespace tarvin {

enum class ResultFormat : std::uint8_t { text, json, csv };

/// Writes the report of a scan in one format, set by set: a result of a million files is not
/// copied. Any thread.
class ResultWriter {
 public:
    virtual ~ResultWriter() = default;

    /// Appends the whole report to `output`, which keeps the first error and is not flushed.
    virtual void write(const ScanReport& report, Output& output) const = 0;
};

[[nodiscard]] std::unique_ptr<ResultWriter> makeWriter(ResultFormat format);

}  // namespace tarvin
