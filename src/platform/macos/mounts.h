#pragma once

#include "platform/file_system.h"
#include "platform/platform.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin::macos {

/// One row of macOS's list of mounts (`getfsstat`, <sys/mount.h>). Text is native bytes.
struct Mount {
    std::uint64_t device = 0;    ///< the `st_dev` of its files: f_fsid.val[0]
    std::string mountPoint;      ///< f_mntonname
    std::string fileSystemType;  ///< f_fstypename, such as "apfs"
    bool isRemovable = false;    ///< MNT_REMOVABLE: the medium can be taken out
    bool isHidden = false;       ///< MNT_DONTBROWSE: the system's own; the Finder does not show it
    bool isSnapshot = false;     ///< MNT_SNAPSHOT: an earlier state of a volume
};

// All of these are pure. They are compiled on other systems, too, so that their tests run there.

/// The drives among the mounts: "/" first, of any type, then the folders in "/Volumes" in the order
/// of the list, without hidden ones. Of several mounts at one mount point the last counts.
[[nodiscard]] std::vector<Volume> volumesOf(const std::vector<Mount>& mounts);

/// The mounts, and "/Volumes", where those may appear that are not mounted.
[[nodiscard]] MountPlaces mountPlacesOf(const std::vector<Mount>& mounts);

/// Whether the innermost mount of a path is a network file system; of several at one mount point
/// the last counts.
[[nodiscard]] bool isOnNetwork(std::string_view path, const std::vector<Mount>& mounts);

/// Whether a scan leaves out what is on the device: the kernel's data, or a snapshot, such as a
/// local one of Time Machine. Files of a snapshot are no copies to rely on: the system removes
/// snapshots by itself. "/" is a snapshot on every Mac, and counts.
[[nodiscard]] bool isLeftOut(std::uint64_t device, const std::vector<Mount>& mounts);

/// Whether file systems of this type hold the kernel's data instead of users' files.
[[nodiscard]] bool isPseudoFileSystemType(std::string_view type);

/// The system is on one volume, the users' files are on another, mounted at this folder, and
/// "firmlinks" lead from folders of the first to folders of the second: "/Users" is
/// "/System/Volumes/Data/Users".
inline constexpr std::string_view dataVolume = "/System/Volumes/Data";

/// Each mount, and each firmlink like a bind mount of the volume at `dataVolume`. `firmlinks` is
/// the text of "/usr/share/firmlinks": on each line a path, a tab, and the path of the folder it
/// leads to, relative to that volume. Malformed lines are skipped.
[[nodiscard]] std::vector<MountedFolder> mountedFoldersOf(const std::vector<Mount>& mounts,
                                                          std::string_view firmlinks);

}  // namespace tarvin::macos
