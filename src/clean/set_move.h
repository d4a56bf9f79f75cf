#pragma once

#include "clean/equal_contents.h"
#include "clean/move_outcome.h"
#include "clean/open_folders.h"
#include "model/set.h"
#include "platform/trash_move.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// The steps of a move, for tests that change something before one of them.
enum class MoveStep : std::uint8_t { checkFile, findSurvivor, moveToTrash, recheck, moveBack };

/// What moving files takes. All outlive whoever is given them.
struct MoveTools {
    FileSystem& fileSystem;
    TrashMover& trash;
    OpenFolders& folders;
    std::function<bool()> stopped;             ///< polled before each file and chunk; may be empty
    std::function<void(MoveStep)> beforeStep;  ///< may be empty
};

/// Moves files of one set to the Trash, so that a file of its content stays where it is: each only
/// while it is what was compared and another file of the set is there, also as compared. Both are
/// looked at before the move and after it; where the second look finds something else, the file is
/// moved back. So neither another clean-up, of whomever, nor one file that is seen at two places
/// can end with every copy in the Trash. One thread.
///
/// "As compared" is: same folder, device, inode, size, and dates of modification and change. A file
/// of which only the last is another one is compared byte for byte with the one that stays or,
/// where all go, with the one that went before.
class SetMove final {
 public:
    /// `mayTakeAll`: the last file goes, too, if at this moment every file of the set is marked and
    /// as compared.
    SetMove(const MoveTools& tools, const Set& set, bool mayTakeAll);

    /// Moves a file of the set; `place` says then where it is. On any other outcome than moved it
    /// stays, or is put back, where it was.
    [[nodiscard]] MoveResult move(const File& file, TrashPlace& place);

 private:
    /// A name in a folder, and what stands there.
    struct Seen {
        std::shared_ptr<const OpenFolder> folder;
        FileAttributes attributes;
    };
    enum class Match : std::uint8_t { asCompared, otherChange, different };

    [[nodiscard]] Result<Seen> stat(const File& file);
    [[nodiscard]] Match match(const File& file, const FileAttributes& now) const;
    [[nodiscard]] bool allUnchanged();
    [[nodiscard]] std::optional<std::size_t> findSurvivor(const File& file, const Seen& seen);
    [[nodiscard]] bool survives(const File& other, const File& file, const Seen& seen);
    [[nodiscard]] bool isAsMoved(const File& file, const Seen& seen) const;
    [[nodiscard]] bool confirmEqual(const File& one, const FileAttributes& oneNow,
                                    const File& other, const FileAttributes& otherNow);
    [[nodiscard]] MoveResult moveSeen(const File& file, const Seen& seen, TrashPlace& place);
    [[nodiscard]] std::optional<MoveOutcome> recheck(const File& file, const Seen& seen,
                                                     const TrashPlace& place);
    [[nodiscard]] bool isUnchangedNow(const File& file, const FileAttributes& moved);
    [[nodiscard]] MoveResult moveBack(const File& file, const Seen& seen, const TrashPlace& place,
                                      MoveOutcome outcome);
    [[nodiscard]] bool isStopped() const;
    [[nodiscard]] MoveOutcome unlessStopped(MoveOutcome outcome) const;
    void before(MoveStep step) const;

    const MoveTools& tools_;
    std::vector<const File*> files_;  // those that are not to go come first
    std::size_t survivor_ = 0;        // in `files_`: the one found there last
    FileAttributes survivorState_;
    bool mayTakeAll_;
    std::optional<SeenFile> moved_;  // last, where all may go; in the Trash
    // Of files whose change date is another one: that for which they were found equal to a file as
    // compared.
    std::unordered_map<const File*, std::optional<Timestamp>> confirmed_;
};

}  // namespace tarvin
