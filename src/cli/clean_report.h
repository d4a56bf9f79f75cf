#pragma once

#include "clean/move_outcome.h"
#include "cli/clean_writer.h"
#include "cli/command.h"
#include "cli/output_file.h"
#include "cli/scan_options.h"
#include "model/file.h"
#include "platform/result.h"

#include <memory>
#include <optional>

namespace tarvin {

/// The report of a clean-up that moves files. What has been moved must be told whatever happens to
/// the place of the report: each file is written at once, and as soon as the place takes no more,
/// because its reader went away or its disk is full, standard error gets the rest, as text. A file
/// that was begun is kept then. One thread at a time.
class CleanReport final {
 public:
    /// Both must outlive this object.
    CleanReport(const ScanOptions& options, OutputFile& output);

    /// Tells what became of a file. Why one was not moved is the caller's to tell.
    void file(const File& file, const MoveResult& result);
    /// Tells the sums and puts the report in its place. Call once, as the last.
    [[nodiscard]] ExitStatus end(const CleanSummary& summary);

 private:
    void noteFailure();

    const ScanOptions& options_;
    OutputFile& file_;
    const std::unique_ptr<CleanWriter> writer_;
    Output errors_;                            ///< standard error
    const std::unique_ptr<CleanWriter> rest_;  ///< writes there
    std::optional<SystemError> failure_;       ///< of the place
};

}  // namespace tarvin
