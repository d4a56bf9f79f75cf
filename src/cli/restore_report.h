#pragma once

#include "cli/command.h"
#include "cli/lasting_report.h"
#include "cli/output_file.h"
#include "cli/restore_writer.h"
#include "cli/result_writer.h"

#include <cstdint>
#include <string>

namespace tarvin {

/// Reports each file that is put back or not: to the place of the result, and on standard error
/// where it cannot be put back. One thread at a time.
class RestoreReport final {
 public:
    /// `place` is what --output names. `output` must outlive this object.
    RestoreReport(const RestoreSubject& subject, ResultFormat format, const std::string& place,
                  OutputFile& output);

    void add(const PutBackFile& file);
    /// The report ends early, on request.
    void setStopped() { summary_.stopped = true; }

    /// Writes the sums and completes the report. Call once, last.
    [[nodiscard]] ExitStatus end();

 private:
    LastingReport<RestoreWriter> report_;
    RestoreSummary summary_;
    std::uint64_t refused_ = 0;
};

}  // namespace tarvin
