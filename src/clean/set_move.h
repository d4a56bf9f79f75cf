#pragma once

#include "clean/equal_contents.h"
#include "clean/move_outcome.h"
#include "clean/open_folders.h"
#include "model/set.h"
#include "platform/trash_move.h"
#include "platform/unsteady_volumes.h"

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

/// What SetMove uses. All must outlive it.
struct MoveTools {
    FileSystem& fileSystem;
    TrashMover& trash;
    OpenFolders& folders;
    UnsteadyVolumes& unsteadyVolumes;
    std::function<bool()> stopped;  ///< polled before each file and chunk read; may be empty
    std::function<void(MoveStep)> beforeStep;  ///< may be empty
};

/// Moves files of one set to the Trash and keeps one file of the set in its place: moves a file
/// only if it and another file of the set, the survivor, are both as compared. Checks both before
/// and after the move; if the second check fails, moves the file back. So clean-ups of other users
/// or one file visible at two paths cannot move every copy to the Trash. One thread.
///
/// "As compared" means: same folder, device, inode, size, and dates of modification and change. If
/// only the change date differs, the file is compared byte for byte with the survivor or, if the
/// whole set is moved, with the file moved before it.
///
/// On an unsteady volume only folder path, type and size can be as compared. A file there is
/// compared byte for byte with a survivor before its move, and the file in the Trash again after
/// it: only if the survivor is still listed by its folder and has these bytes, it is another file
/// and the move is right. A survivor must be on the same volume as the file, where the system knows
/// at once that a path is gone, or on a steady one, whose dates show that it was not moved; else it
/// may be the moved file itself, as another mount remembers it. The last file of a whole set stays.
class SetMove final {
 public:
    /// With `mayTakeAll`, moves the last file, too, if every file of the set is now marked and as
    /// compared.
    SetMove(const MoveTools& tools, const Set& set, bool mayTakeAll);

    /// Moves a file of the set and sets `place`. With any outcome but `moved` the file has not been
    /// moved, or has been moved back.
    [[nodiscard]] MoveResult move(const File& file, TrashPlace& place);

 private:
    /// The metadata of a file, and its folder.
    struct Seen {
        std::shared_ptr<const OpenFolder> folder;
        FileAttributes attributes;
    };
    enum class Match : std::uint8_t {
        asCompared,
        otherChange,
        onlySize,  // on an unsteady volume
        different
    };

    [[nodiscard]] Result<Seen> stat(const File& file);
    [[nodiscard]] Match match(const File& file, const FileAttributes& now);
    [[nodiscard]] Match statedMatch(const File& file, const FileAttributes& now) const;
    [[nodiscard]] bool isUnsteady(const File& file, const FileAttributes& now);
    [[nodiscard]] bool allUnchanged();
    [[nodiscard]] std::optional<std::size_t> findSurvivor(const File& file, const Seen& seen);
    [[nodiscard]] bool survives(const File& other, const File& file, const Seen& seen);
    [[nodiscard]] bool hasBytesOf(const File& other, const SeenFile& file);
    [[nodiscard]] bool mayBeMountPoint(const OpenFolder& folder, const File& file);
    [[nodiscard]] bool anyHasBytesOf(const File& file, const SeenFile& arrived);
    [[nodiscard]] bool isAsMoved(const File& file, const Seen& seen) const;
    [[nodiscard]] bool confirmEqual(const File& one, const FileAttributes& oneNow,
                                    const File& other, const FileAttributes& otherNow);
    [[nodiscard]] MoveResult moveSeen(const File& file, const Seen& seen, TrashPlace& place);
    [[nodiscard]] std::optional<MoveOutcome> recheck(const File& file, const Seen& seen,
                                                     const TrashPlace& place);
    [[nodiscard]] bool isUnchangedNow(const File& file, const FileAttributes& moved);
    [[nodiscard]] std::string pathOf(const TrashPlace& place) const;
    [[nodiscard]] MoveResult moveBack(const File& file, const Seen& seen, const TrashPlace& place,
                                      MoveOutcome outcome);
    [[nodiscard]] MoveResult leftWith(MoveOutcome outcome) const;
    [[nodiscard]] bool isStopped() const;
    [[nodiscard]] MoveOutcome unlessStopped(MoveOutcome outcome) const;
    void before(MoveStep step) const;

    const MoveTools& tools_;
    std::vector<const File*> files_;  // unmarked files first
    std::size_t survivor_ = 0;        // index in `files_` of the last one found
    FileAttributes survivorState_;
    bool comparesArrived_ = false;  // the survivor was found by its bytes
    bool isDoubtful_ = false;       // only a copy that may be the current file itself was found
    bool mayTakeAll_;
    std::optional<SeenFile> moved_;  // the last file moved, if all may go
    // For files with another change date: the one at which their bytes were equal to a file as
    // compared.
    std::unordered_map<const File*, std::optional<Timestamp>> confirmed_;
};

}  // namespace tarvin
