#pragma once

#include "clean/put_back.h"
#include "report/output.h"
#include "report/result_writer.h"
#include "store/clean_up_journal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// The subject of a report.
struct RestoreSubject {
    bool dryRun = false;
    std::optional<CleanUpId> cleanUp;  ///< nullopt if there is nothing to put back
};

/// The sums of a report.
struct RestoreSummary {
    std::uint64_t files = 0;     ///< put back, or to be put back in a dry run
    std::uint64_t bytes = 0;     ///< of those
    std::uint64_t notFiles = 0;  ///< not put back
    bool stopped = false;        ///< ended early, on request
};

/// The present state of a known clean-up.
struct KnownCleanUp {
    CleanUpSummary summary;
    std::uint64_t putBackFiles = 0;  ///< by tarvin or another program
    std::uint64_t lostFiles = 0;     ///< neither put back nor in the Trash
};

/// Writes the outcome of each file in one format: begin(), file() for each, end(); or begin() and
/// nothing(). Appends to an Output, which keeps the first error. One thread at a time.
class RestoreWriter {
 public:
    virtual ~RestoreWriter() = default;

    virtual void begin() = 0;
    virtual void file(const PutBackFile& file) = 0;
    virtual void end(const RestoreSummary& summary) = 0;
    /// Replaces file() and end().
    virtual void nothing(NothingToPutBack reason) = 0;
};

/// For CSV, which restore does not have, returns the text writer. `output` must outlive the writer.
[[nodiscard]] std::unique_ptr<RestoreWriter> makeRestoreWriter(ResultFormat format,
                                                               const RestoreSubject& subject,
                                                               Output& output);

/// Appends the list of clean-ups in the given order; for CSV, as text.
void writeCleanUps(ResultFormat format, const std::vector<KnownCleanUp>& cleanUps, Output& output);

/// Why a file is not put back: "no longer in the Trash". Any thread.
[[nodiscard]] std::string reasonFor(const PutBackFile& file);

}  // namespace tarvin
