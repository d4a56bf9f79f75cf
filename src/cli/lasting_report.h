#pragma once

#include "cli/command.h"
#include "cli/output_file.h"
#include "cli/report_place.h"
#include "cli/result_writer.h"

#include <memory>
#include <string>
#include <utility>

namespace tarvin {

/// The report of a command that moves files, which must not be lost: each part is written at once,
/// and after a write error the rest goes to standard error, as text. `Writer` must have begin().
/// One thread at a time.
template <typename Writer>
class LastingReport final {
 public:
    /// `make(format, output)` returns a writer. `shownName` must be safe to print; `file` must
    /// outlive this object.
    template <typename Make>
    LastingReport(ResultFormat format, std::string shownName, OutputFile& file, const Make& make)
        : place_(std::move(shownName), file),
          writer_(make(format, place_.output())),
          rest_(make(ResultFormat::text, place_.errors())) {
        writer_->begin();
    }

    /// Calls `part` with a writer. A part that cannot be written is written again to standard
    /// error.
    template <typename Part>
    void write(const Part& part) {
        if (!place_.isLost()) {
            part(*writer_);
            place_.flush();
        }
        if (place_.isLost()) {
            part(*rest_);
            place_.errors().flush();
        }
    }

    /// Writes the last part and completes the report. Call once, last.
    template <typename Part>
    [[nodiscard]] ExitStatus end(const Part& part) {
        write(part);
        return place_.commit();
    }

 private:
    ReportPlace place_;
    const std::unique_ptr<Writer> writer_;
    const std::unique_ptr<Writer> rest_;  ///< to standard error
};

}  // namespace tarvin
