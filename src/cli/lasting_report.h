#pragma once

#include "cli/command.h"
#include "platform/result.h"
#include "report/output.h"
#include "report/output_file.h"
#include "report/result_writer.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tarvin {

/// The target of a report that must not be lost. After a write error, such as a closed pipe or a
/// full disk, the rest of the report goes to standard error, and a partial file is kept. One thread
/// at a time.
class ReportTarget final {
 public:
    /// `shownName` must be safe to print. `file` must outlive this object.
    ReportTarget(std::string shownName, OutputFile& file);

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
        : target_(std::move(shownName), file),
          writer_(make(format, target_.output())),
          rest_(make(ResultFormat::text, target_.errors())) {
        writer_->begin();
    }

    /// Calls `part` with a writer. A part that cannot be written is written again to standard
    /// error.
    template <typename Part>
    void write(const Part& part) {
        if (!target_.isLost()) {
            part(*writer_);
            target_.flush();
        }
        if (target_.isLost()) {
            part(*rest_);
            target_.errors().flush();
        }
    }

    /// Writes the last part and completes the report. Call once, last.
    template <typename Part>
    [[nodiscard]] ExitStatus end(const Part& part) {
        write(part);
        return target_.commit();
    }

 private:
    ReportTarget target_;
    const std::unique_ptr<Writer> writer_;
    const std::unique_ptr<Writer> rest_;  ///< to standard error
};

}  // namespace tarvin
