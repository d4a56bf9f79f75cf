#pragma once

#include "platform/file_lock.h"
#include "platform/file_system.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <optional>

namespace tarvin {

/// Finds out what became of the moves of clean-ups that ended with their process, or with the
/// machine: each planned file is at its place, in a Trash of the user, or gone. One in the Trash of
/// which the file that was to stay is not as it was, is put back: the process may have ended before
/// it could look again. Notes that a power failure took are written anew, and those of moves that
/// were not made go. Completes the journal and brings the totals up to it. Where a drive or a Trash
/// cannot be looked at, the clean-up stays unfinished until it can. What another process works on
/// is left to that. Where nothing has crashed this costs two questions to the journal.
///
/// `turns` is the user's lock of clean-ups. To be called before a clean-up, before putting back and
/// at the start. The first failure; what it keeps from being written is found out again the next
/// time. One thread, that of the journal.
[[nodiscard]] std::optional<StoreError> recoverCleanUps(FileSystem& fileSystem, TrashMover& trash,
                                                        const LockFile& turns,
                                                        CleanUpJournal& journal, DataFile& totals);

}  // namespace tarvin
