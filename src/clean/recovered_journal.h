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

/// The journal of clean-ups, with the lock file and the Trash that belong to it.
struct RecoveredJournal {
    LockFile turns;  ///< held for one set at a time; excludes the user's other clean-ups
    CleanUpJournal journal;
    std::unique_ptr<TrashMover> trash;
};

/// Opens the journal in the data folder, creating it if missing. Recovers crashed clean-ups and
/// updates the totals; a failure of that is ignored, since the next call tries again.
/// `beforeRecovery`, which may be empty, is called with the open journal: the recovery checks files
/// and so blocks while a drive does not respond. The result belongs to the calling thread.
[[nodiscard]] std::variant<RecoveredJournal, StoreError> openRecovered(
    Platform& platform, DataFile& totals,
    const std::function<void(CleanUpJournal&)>& beforeRecovery = {});

/// Renames an unusable journal, so that the next clean-up creates a new one; the files of its
/// clean-ups can then be restored only with the Trash of the desktop. Returns the new path; nullopt
/// if `error` is not about an unusable journal or the journal cannot be renamed, for example
/// because a process has it open.
[[nodiscard]] std::optional<std::string> moveJournalAside(Platform& platform,
                                                          const StoreError& error);

/// Whether there is a journal. Opens nothing.
[[nodiscard]] bool hasJournal(Platform& platform);

/// Recovers crashed clean-ups if there is a journal; creates none. To be called before totals are
/// shown. Returns the first failure.
[[nodiscard]] std::optional<StoreError> recoverAtStart(Platform& platform, DataFile& totals);

}  // namespace tarvin
