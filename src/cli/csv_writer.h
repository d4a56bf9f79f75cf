#pragma once

#include "cli/result_writer.h"

namespace tarvin {

/// CSV (RFC 4180): a row of headings, then one row per file with the number of its set, counted
/// from 1 over the whole output. The last column has the exact bytes of a path in hexadecimal if
/// the path is not valid UTF-8 or, on a terminal, not safe to print. Texts are written by
/// csvField(). Dates are in UTC, empty if unknown.
class CsvWriter final : public ResultWriter {
 public:
    void write(const ScanReport& report, Output& output) const override;
};

}  // namespace tarvin
