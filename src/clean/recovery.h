#pragma once

#include "platform/file_lock.h"
#include "platform/file_system.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <optional>

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

}  // namespace tarvin
