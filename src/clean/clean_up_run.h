#pragma once

#include "clean/clean_up.h"
#include "clean/recovery.h"
#include "platform/file_lock.h"
#include "platform/platform.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <memory>
#include <optional>
#include <variant>

namespace tarvin {

/// A clean-up with the user's Trash, the journal and the turn file, the last two in the data
/// folder. One thread at a time.
class CleanUpRun final {
 public:
    /// Opens all of it and recovers crashed clean-ups first. Fails if the journal cannot be opened.
    /// `platform` must outlive the result.
    static std::variant<std::unique_ptr<CleanUpRun>, StoreError> open(Platform& platform,
                                                                      DataFile& totals,
                                                                      CleanUp::Settings settings);
    CleanUpRun(const CleanUpRun&) = delete;
    CleanUpRun& operator=(const CleanUpRun&) = delete;

    [[nodiscard]] CleanUp& cleanUp() { return cleanUp_; }

    /// Finishes the clean-up and updates the totals. Returns the first failure; the next start
    /// recovers what could not be written.
    [[nodiscard]] std::optional<StoreError> finish(DataFile& totals);

 private:
    CleanUpRun(Platform& platform, RecoveredJournal opened, CleanUp::Settings settings);

    CleanUpJournal journal_;
    const LockFile turns_;
    const std::unique_ptr<TrashMover> trash_;
    CleanUp cleanUp_;
};

}  // namespace tarvin
