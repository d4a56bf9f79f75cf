#pragma once

#include "clean/file_return.h"
#include "platform/file_lock.h"
#include "platform/file_system.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// Whether the file at hand is the one of a move: its size, its date and, if known, its inode.
[[nodiscard]] bool isFileOf(const JournalMove& move, const FileAttributes& now);

/// Finds out what became of moves of which only the plan is known, after their process has ended:
/// the file is in its place, in a Trash, or gone. One thread.
class PlannedOutcomes final {
 public:
    /// All arguments must outlive this object.
    PlannedOutcomes(FileSystem& fileSystem, TrashMover& trash, const LockFile& turns,
                    FileReturn& files)
        : fileSystem_(fileSystem), trash_(trash), turns_(turns), files_(files) {}
    PlannedOutcomes(const PlannedOutcomes&) = delete;
    PlannedOutcomes& operator=(const PlannedOutcomes&) = delete;

    /// Returns the outcomes that can be seen now, in any order. Moves whose folder, drive or Trash
    /// cannot be accessed have none. Removes the .trashinfo files that unmade moves have left, and
    /// puts files back whose staying file is no longer as planned.
    [[nodiscard]] std::vector<RecordedOutcome> of(std::vector<JournalMove> moves);

 private:
    void settleMissing(const std::unordered_map<std::string, bool>& isReadable,
                       std::vector<JournalMove>& moves);
    [[nodiscard]] bool isAttached(const JournalMove& move);
    [[nodiscard]] bool isInPlace(const JournalMove& move);
    void settleInPlace(std::vector<JournalMove>& moves);
    void removeTrashInfosOf(const std::vector<std::string>& paths);
    [[nodiscard]] bool settleFoundIn(const std::string& trash, std::vector<JournalMove>& moves);
    [[nodiscard]] RecordedOutcome outcomeOfFound(const JournalMove& move);
    [[nodiscard]] bool staysAsPlanned(const JournalMove& move);

    FileSystem& fileSystem_;
    TrashMover& trash_;
    const LockFile& turns_;
    FileReturn& files_;
    std::vector<RecordedOutcome> outcomes_;
};

}  // namespace tarvin
