#pragma once

#include "platform/file_lock.h"
#include "platform/file_system.h"
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

/// Recovers clean-ups whose process or machine has crashed: determines the outcome of each planned
/// move (PlannedOutcomes), rewrites .trashinfo files lost in a power failure, completes the journal
/// and updates the totals. A clean-up stays unfinished while one of its drives or Trash folders
/// cannot be accessed. Skips clean-ups that another process holds. If nothing has crashed, this
/// costs two queries of the journal.
///
/// `turns` is the user's lock file of clean-ups. To be called before a clean-up, before putting
/// back and at the start, on the thread that uses `journal`. Returns the first failure; the next
/// call recovers what could not be written.
[[nodiscard]] std::optional<StoreError> recoverCleanUps(FileSystem& fileSystem, TrashMover& trash,
                                                        const LockFile& turns,
                                                        CleanUpJournal& journal, DataFile& totals);

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
