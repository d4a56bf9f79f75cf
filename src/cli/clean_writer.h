#pragma once

#include "clean/move_outcome.h"
#include "cli/output.h"
#include "cli/result_writer.h"
#include "model/file.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvin {

/// What a clean-up came to.
struct CleanSummary {
    std::uint64_t deletedCount = 0;  ///< files moved, or that would be
    std::uint64_t deletedSize = 0;   ///< bytes of those
    bool stopped = false;            ///< on request, before the end
};

/// Writes what becomes of each file in one format: begin(), file() for each, end(). Appends to an
/// Output, which remembers what goes wrong. One thread at a time.
class CleanWriter {
 public:
    virtual ~CleanWriter() = default;

    virtual void begin() = 0;
    /// `result` is none for a file that would be moved.
    virtual void file(const File& file, const std::optional<MoveResult>& result) = 0;
    virtual void end(const CleanSummary& summary) = 0;
};

/// `dryRun` says that nothing is moved.
[[nodiscard]] std::unique_ptr<CleanWriter> makeCleanWriter(ResultFormat format, bool dryRun,
                                                           Output& output);

/// Why a file was not moved, for a person: "file no longer exists".
[[nodiscard]] std::string reasonFor(const MoveResult& result);

}  // namespace tarvin
