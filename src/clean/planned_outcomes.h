#pragma once

#include "clean/file_return.h"
#include "platform/file_lock.h"
#include "platform/file_system.h"
#include "platform/trash_move.h"
#include "platform/unsteady_volumes.h"
#include "store/clean_up_journal.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// Whether a file is that of a move: a regular file with its size, date and, if known, inode.
[[nodiscard]] bool isFileOf(const JournalMove& move, const FileAttributes& now);

/// Determines the outcomes of planned moves whose process has ended: the file is in its place, in a
/// Trash, or gone. On an unsteady volume a file is known by its size and its path or, in the Trash,
/// the path in its .trashinfo file. One thread.
class PlannedOutcomes final {
 public:
    /// All arguments must outlive this object.
    PlannedOutcomes(FileSystem& fileSystem, TrashMover& trash, const LockFile& turns,
                    FileReturn& files)
        : fileSystem_(fileSystem), trash_(trash), turns_(turns), files_(files) {}
    PlannedOutcomes(const PlannedOutcomes&) = delete;
    PlannedOutcomes& operator=(const PlannedOutcomes&) = delete;

    /// Returns the outcomes in any order, without those of moves whose folder, drive or Trash
    /// cannot be accessed. Removes .trashinfo files left by moves that were not made, and puts
    /// files back whose staying file is no longer as planned: their process may have ended before
    /// it checked that again.
    [[nodiscard]] std::vector<RecordedOutcome> of(std::vector<JournalMove> moves);

 private:
    void settleMissing(const std::unordered_map<std::string, bool>& isReadable,
                       std::vector<JournalMove>& moves);
    [[nodiscard]] bool isAttached(const JournalMove& move);
    [[nodiscard]] bool isInPlace(const JournalMove& move);
    void settleInPlace(std::vector<JournalMove>& moves);
    void removeTrashInfosOf(const std::vector<std::string>& paths);
    [[nodiscard]] bool settleFoundIn(const std::string& trash, std::vector<JournalMove>& moves);
    [[nodiscard]] bool settleFoundByPath(const std::string& trash, std::uint64_t device,
                                         std::vector<JournalMove>& moves);
    [[nodiscard]] RecordedOutcome outcomeOfFound(const JournalMove& move);
    [[nodiscard]] bool staysAsPlanned(const JournalMove& move);
    [[nodiscard]] bool staysWithItsBytes(const JournalMove& move, const std::string& path);
    [[nodiscard]] bool isUnsteady(const std::string& path);

    FileSystem& fileSystem_;
    TrashMover& trash_;
    const LockFile& turns_;
    FileReturn& files_;
    UnsteadyVolumes unsteadyVolumes_;
    std::vector<RecordedOutcome> outcomes_;
};

}  // namespace tarvin
