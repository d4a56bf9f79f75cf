#pragma once

#include "clean/clean_up.h"
#include "clean/recovered_journal.h"
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

/// A clean-up and all that it takes: the user's Trash, the journal and the lock by which clean-ups
/// take turns, both in the application-support folder. One thread at a time.
class CleanUpRun final {
 public:
    /// The reason if there is no journal to write moves down in: no clean-up can be made then. What
    /// earlier ones have left open, because their process ended, is recovered first.
    static std::variant<std::unique_ptr<CleanUpRun>, StoreError> open(Platform& platform,
                                                                      DataFile& totals,
                                                                      CleanUp::Settings settings);
    CleanUpRun(const CleanUpRun&) = delete;
    CleanUpRun& operator=(const CleanUpRun&) = delete;

    [[nodiscard]] CleanUp& cleanUp() { return cleanUp_; }

    /// Ends the clean-up and brings the totals up to what it has moved. The first failure; what
    /// could not be written is made up for at the next start.
    [[nodiscard]] std::optional<StoreError> finish(DataFile& totals);

 private:
    CleanUpRun(Platform& platform, RecoveredJournal opened, CleanUp::Settings settings);

    CleanUpJournal journal_;
    const LockFile turns_;
    const std::unique_ptr<TrashMover> trash_;
    CleanUp cleanUp_;
};

}  // namespace tarvin
