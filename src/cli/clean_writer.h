#pragma once

#include "clean/move_outcome.h"
#include "model/file.h"
#include "report/output.h"
#include "report/result_writer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvin {

/// The sums of a clean-up.
struct CleanSummary {
    std::uint64_t deletedCount = 0;  ///< files moved, or to be moved in a dry run
    std::uint64_t deletedSize = 0;   ///< their bytes
    bool stopped = false;            ///< ended early, on request
};

/// Writes the outcome of each file in one format: begin(), file() for each, end(). Appends to an
/// Output, which keeps the first error. One thread at a time.
class CleanWriter {
 public:
    virtual ~CleanWriter() = default;

    virtual void begin() = 0;
    /// `result` is nullopt in a dry run.
    virtual void file(const File& file, const std::optional<MoveResult>& result) = 0;
    virtual void end(const CleanSummary& summary) = 0;
};

/// `output` must outlive the writer.
[[nodiscard]] std::unique_ptr<CleanWriter> makeCleanWriter(ResultFormat format, bool dryRun,
                                                           Output& output);

/// Why a file was not moved: "file no longer exists". Any thread.
[[nodiscard]] std::string reasonFor(const MoveResult& result);

}  // namespace tarvin
