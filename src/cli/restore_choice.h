#pragma once

#include "clean/put_back.h"
#include "cli/restore_writer.h"
#include "store/clean_up_journal.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvin {

// Which clean-up to put back, and which of its files can be. Each function checks files in the
// Trash. One thread at a time.

/// The files of a clean-up that can be put back now.
struct RestoreProspect {
    std::uint64_t files = 0;  ///< that can be put back
    std::uint64_t bytes = 0;  ///< of those
    std::uint64_t lost = 0;   ///< no longer in the Trash
    std::uint64_t all = 0;    ///< not put back yet
};

[[nodiscard]] StoreResult<RestoreProspect> prospectOf(PutBack& putBack, CleanUpId cleanUp);

/// All known clean-ups, newest first.
[[nodiscard]] StoreResult<std::vector<KnownCleanUp>> knownCleanUps(PutBack& putBack);

/// The clean-up with that number; nullopt if it is unknown.
[[nodiscard]] StoreResult<std::optional<CleanUpSummary>> cleanUpNumbered(PutBack& putBack,
                                                                         CleanUpId number);

}  // namespace tarvin
