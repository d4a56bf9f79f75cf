#pragma once

#include "platform/file_lock.h"
#include "platform/platform.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {

/// The journal of clean-ups and the Trash that it speaks of.
struct RecoveredJournal {
    LockFile turns;  ///< by which the user's clean-ups exclude each other, set by set
    CleanUpJournal journal;
    std::unique_ptr<TrashMover> trash;
};

/// Opens the journal in the application-support folder, and makes it if it is missing. What
/// clean-ups have left open whose process has ended is recovered and brings the totals up to it; a
/// failure of that is not told, since the next call tries again. One thread, that which uses the
/// journal then. `beforeRecovery`, which may be empty, is called with the open journal: the
/// recovery checks files and so blocks while a drive does not respond.
[[nodiscard]] std::variant<RecoveredJournal, StoreError> openRecovered(
    Platform& platform, DataFile& totals,
    const std::function<void(CleanUpJournal&)>& beforeRecovery = {});

/// Gives a journal that is of no use a name of its own, so that the next clean-up begins a new one;
/// what it knows can then be put back by the desktop's Trash only. The new path; none if `error` is
/// not about such a journal, or if it cannot be renamed, as while somebody has it open.
[[nodiscard]] std::optional<std::string> moveJournalAside(Platform& platform,
                                                          const StoreError& error);

/// Whether clean-ups have been written down here. Opens nothing.
[[nodiscard]] bool hasJournal(Platform& platform);

/// Recovers what was left open, if there is a journal at all; makes none. To be called where the
/// totals are shown. The first failure.
[[nodiscard]] std::optional<StoreError> recoverAtStart(Platform& platform, DataFile& totals);

}  // namespace tarvin
