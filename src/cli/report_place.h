#pragma once

#include "cli/command.h"
#include "cli/output.h"
#include "cli/output_file.h"
#include "platform/result.h"

#include <optional>
#include <string>

namespace tarvin {

/// The target of a report that must not be lost. After a write error, such as a closed pipe or a
/// full disk, the rest of the report goes to standard error, and a partial file is kept. One thread
/// at a time.
class ReportPlace final {
 public:
    /// `shownName` must be safe to print. `file` must outlive this object.
    ReportPlace(std::string shownName, OutputFile& file);

    /// The target, and standard error, which replaces it after an error.
    [[nodiscard]] Output& output() { return file_.output(); }
    [[nodiscard]] Output& errors() { return errors_; }

    /// Flushes output(). Returns false after an error; the first one is reported.
    bool flush();
    [[nodiscard]] bool isLost() const { return failure_.has_value(); }

    /// Completes the report. Call once, last.
    [[nodiscard]] ExitStatus commit();

 private:
    const std::string shownName_;
    OutputFile& file_;
    Output errors_;                       ///< standard error
    std::optional<SystemError> failure_;  ///< of the target
};

}  // namespace tarvin
