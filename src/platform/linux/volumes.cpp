#include "platform/linux/volumes.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tarvin {

namespace {

template <std::size_t count>
bool holds(const std::array<std::string_view, count>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool isNetworkType(std::string_view type) {
    constexpr auto types = std::to_array<std::string_view>({"cifs", "smb3", "smbfs"});
    return holds(types, type);
}

bool isDosType(std::string_view type) {
    // "fuseblk" is NTFS through FUSE.
    constexpr auto types =
        std::to_array<std::string_view>({"exfat", "fuseblk", "msdos", "ntfs", "ntfs3", "vfat"});
    return holds(types, type);
}

bool isNativeType(std::string_view type) {
    constexpr auto types = std::to_array<std::string_view>(
        {"apfs", "btrfs", "ext2", "ext3", "ext4", "f2fs", "hfs", "hfsplus", "xfs", "zfs"});
    return holds(types, type);
}

VolumeKind kindOf(const MountEntry& mount, const RemovableQuery& isRemovable) {
    if (isNetworkType(mount.fileSystemType)) {
        return VolumeKind::network;
    }
    if (isDosType(mount.fileSystemType) || isRemovable(mount)) {
        return VolumeKind::removable;
    }
    return isNativeType(mount.fileSystemType) ? VolumeKind::internal : VolumeKind::other;
}

Volume volumeOf(const MountEntry& mount, const RemovableQuery& isRemovable) {
    return {mount.mountPoint, mount.fileSystemType, kindOf(mount, isRemovable)};
}

bool isWhereDrivesAre(std::string_view mountPoint) {
    // "/mnt" may be a mount point itself; the others hold mount points only.
    return mountPoint == "/mnt" || mountPoint.starts_with("/mnt/") ||
           mountPoint.starts_with("/media/") || mountPoint.starts_with("/run/media/");
}

/// Whether nothing was mounted over `mount` later; `mount` is an element of `mounts`.
bool isOnTop(const MountEntry& mount, const std::vector<MountEntry>& mounts) {
    const auto last = std::find_if(mounts.rbegin(), mounts.rend(), [&](const MountEntry& other) {
        return other.mountPoint == mount.mountPoint;
    });
    return &*last == &mount;
}

bool isListed(const MountEntry& mount, const std::vector<MountEntry>& mounts) {
    return isWhereDrivesAre(mount.mountPoint) && !isPseudoFileSystemType(mount.fileSystemType) &&
           isOnTop(mount, mounts);
}

Volume rootVolume(const std::vector<MountEntry>& mounts, const RemovableQuery& isRemovable) {
    const auto last = std::find_if(mounts.rbegin(), mounts.rend(),
                                   [](const MountEntry& mount) { return mount.mountPoint == "/"; });
    return last == mounts.rend() ? Volume{"/", {}, VolumeKind::other}
                                 : volumeOf(*last, isRemovable);
}

}  // namespace

std::vector<Volume> volumesOf(const std::vector<MountEntry>& mounts,
                              const RemovableQuery& isRemovable) {
    std::vector<Volume> volumes{rootVolume(mounts, isRemovable)};
    for (const MountEntry& mount : mounts) {
        if (isListed(mount, mounts)) {
            volumes.push_back(volumeOf(mount, isRemovable));
        }
    }
    return volumes;
}

MountPlaces mountPlacesOf(const std::vector<MountEntry>& mounts, std::vector<std::string> inTable) {
    // A chroot may not list "/".
    MountPlaces places{{"/"}, std::move(inTable)};
    for (const char* folder : {"/media", "/run/media", "/mnt", "/run/user"}) {
        places.expected.emplace_back(folder);
    }
    for (const MountEntry& mount : mounts) {
        if (mount.fileSystemType == "autofs") {
            places.expected.push_back(mount.mountPoint);
        } else if (!isWithin(mount.mountPoint, "/run/user")) {
            places.mounted.push_back(mount.mountPoint);
        }
    }
    return places;
}

bool isOnNetwork(std::string_view path, const std::vector<MountEntry>& mounts) {
    const MountEntry* innermost = nullptr;
    for (const MountEntry& mount : mounts) {
        if (isWithin(path, mount.mountPoint) &&
            (innermost == nullptr || mount.mountPoint.size() >= innermost->mountPoint.size())) {
            innermost = &mount;
        }
    }
    return innermost != nullptr && isNetworkType(innermost->fileSystemType);
}

}  // namespace tarvin
