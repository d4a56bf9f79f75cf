#pragma once

#include "cli/command.h"
#include "cli/output.h"
#include "cli/output_file.h"
#include "platform/result.h"

#include <optional>
#include <string>

namespace tarvin {

/// Where a report goes that must be told whatever happens to its place: as soon as that takes no
/// more, because its reader went away or its disk is full, standard error gets the rest. A file
/// that was begun is kept then. One thread at a time.
class ReportPlace final {
 public:
    /// `shownName` is safe to print. `file` must outlive this object.
    ReportPlace(std::string shownName, OutputFile& file);

    /// The place, and what stands in for it once it is lost.
    [[nodiscard]] Output& output() { return file_.output(); }
    [[nodiscard]] Output& errors() { return errors_; }

    /// Hands on what was appended to output(). False, and told, once the place is lost.
    bool flush();
    [[nodiscard]] bool isLost() const { return failure_.has_value(); }

    /// Puts the whole report in its place. Call once, as the last.
    [[nodiscard]] ExitStatus commit();

 private:
    const std::string shownName_;
    OutputFile& file_;
    Output errors_;                       ///< standard error
    std::optional<SystemError> failure_;  ///< of the place
};

}  // namespace tarvin
