#pragma once

#include "cli/result_writer.h"

namespace tarvin {

/// Comma-separated values as RFC 4180 has them: a row of headings, then one row a file, with the
/// number of its set, counted from 1 over the whole output. The exact bytes of a path stand in the
/// last column, in hexadecimal, where the path is not UTF-8 or, on a terminal, would not be
/// harmless. Texts are written by csvField(). Dates are in UTC, empty if unknown.
class CsvWriter final : public ResultWriter {
 public:
    void write(const ScanReport& report, Output& output) const override;
};

}  // namespace tarvin
