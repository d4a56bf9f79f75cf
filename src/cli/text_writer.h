#pragma once

#include "cli/result_writer.h"

namespace tarvin {

/// Text: categories, extensions, sets, and one file per line, with a summary at the end. Names are
/// written by shownName(). Headings are bold where there is colour.
class TextWriter final : public ResultWriter {
 public:
    void write(const ScanReport& report, Output& output) const override;
};

}  // namespace tarvin
