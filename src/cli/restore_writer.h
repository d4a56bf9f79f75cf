#pragma once

#include "clean/put_back.h"
#include "cli/output.h"
#include "cli/result_writer.h"
#include "store/clean_up_journal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// What a report of files that come back is about.
struct RestoreSubject {
    bool dryRun = false;
    std::optional<CleanUpId> cleanUp;  ///< none if there is nothing to put back
};

/// What putting back came to.
struct RestoreSummary {
    std::uint64_t files = 0;     ///< put back, or that would be
    std::uint64_t bytes = 0;     ///< of those
    std::uint64_t notFiles = 0;  ///< that did not come back, or could not
    bool stopped = false;        ///< on request, before the end
};

/// A known clean-up as it stands now.
struct KnownCleanUp {
    CleanUpSummary summary;
    std::uint64_t putBackFiles = 0;  ///< by us or by another program
    std::uint64_t lostFiles = 0;     ///< neither put back nor in the Trash
};

/// Writes what becomes of each file in one format: begin(), file() for each, end(); or begin() and
/// nothing(). Appends to an Output, which remembers what goes wrong. One thread at a time.
class RestoreWriter {
 public:
    virtual ~RestoreWriter() = default;

    virtual void begin() = 0;
    virtual void file(const PutBackFile& file) = 0;
    virtual void end(const RestoreSummary& summary) = 0;
    /// Instead of files and the sums of them.
    virtual void nothing(NothingToPutBack reason) = 0;
};

/// There is no CSV: text is written instead.
[[nodiscard]] std::unique_ptr<RestoreWriter> makeRestoreWriter(ResultFormat format,
                                                               const RestoreSubject& subject,
                                                               Output& output);

/// Appends the list of clean-ups, in the order given. There is no CSV: text is written instead.
void writeCleanUps(ResultFormat format, const std::vector<KnownCleanUp>& cleanUps, Output& output);

/// Why a file does not come back, for a person: "no longer in the Trash".
[[nodiscard]] std::string reasonFor(const PutBackFile& file);

}  // namespace tarvin
