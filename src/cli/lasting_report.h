#pragma once

#include "cli/command.h"
#include "cli/output_file.h"
#include "cli/report_place.h"
#include "cli/result_writer.h"

#include <memory>
#include <string>
#include <utility>

namespace tarvin {

/// The report of a command that moves files. What has been done must be told whatever happens to
/// the place of the report: each part is written at once, and once the place is lost, standard
/// error gets the rest, as text. `Writer` has begin(). One thread at a time.
template <typename Writer>
class LastingReport final {
 public:
    /// `make(format, output)` makes a writer. `shownName` is safe to print; `file` must outlive
    /// this object.
    template <typename Make>
    LastingReport(ResultFormat format, std::string shownName, OutputFile& file, const Make& make)
        : place_(std::move(shownName), file),
          writer_(make(format, place_.output())),
          rest_(make(ResultFormat::text, place_.errors())) {
        writer_->begin();
    }

    /// Calls `part` with the writer that is to write it. A part that the place does not take is
    /// written again, to standard error.
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

    /// Writes the last part and puts the report in its place. Call once, as the last.
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
