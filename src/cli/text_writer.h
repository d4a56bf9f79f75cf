#pragma once

#include "cli/result_writer.h"

namespace tarvin {

/// The format for people: sets under their extensions under their categories, one file a line, and
/// a summary at the end. Names that could disturb a terminal are quoted (shownName). Headings are
/// bold where there is colour.
class TextWriter final : public ResultWriter {
 public:
    void write(const ScanReport& report, Output& output) const override;
};

}  // namespace tarvin
