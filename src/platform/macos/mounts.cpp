#include "platform/macos/mounts.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarvin::macos {

namespace {

constexpr std::string_view volumesFolder = "/Volumes";

bool isNetworkType(std::string_view type) {
    return type == "smbfs";
}

VolumeKind kindOf(const Mount& mount) {
    if (isNetworkType(mount.fileSystemType)) {
        return VolumeKind::network;
    }
    if (mount.isRemovable || mount.fileSystemType == "msdos") {
        return VolumeKind::removable;
    }
    const bool isNative = mount.fileSystemType == "apfs" || mount.fileSystemType == "hfs";
    return isNative ? VolumeKind::internal : VolumeKind::other;
}

/// The last mount at this mount point; a null pointer if there is none.
const Mount* topAt(std::string_view mountPoint, const std::vector<Mount>& mounts) {
    const auto last = std::find_if(mounts.rbegin(), mounts.rend(), [&](const Mount& mount) {
        return mount.mountPoint == mountPoint;
    });
    return last == mounts.rend() ? nullptr : &*last;
}

bool isListed(const Mount& mount) {
    return folderPathOf(mount.mountPoint) == volumesFolder && !mount.isHidden &&
           !mount.isSnapshot && !isPseudoFileSystemType(mount.fileSystemType);
}

}  // namespace

std::vector<Volume> volumesOf(const std::vector<Mount>& mounts) {
    std::vector<Volume> volumes;
    const Mount* const root = topAt("/", mounts);
    volumes.push_back(root == nullptr ? Volume{"/", {}, VolumeKind::other}
                                      : Volume{"/", root->fileSystemType, kindOf(*root)});
    for (const Mount& mount : mounts) {
        if (isListed(mount) && topAt(mount.mountPoint, mounts) == &mount) {
            volumes.push_back({mount.mountPoint, mount.fileSystemType, kindOf(mount)});
        }
    }
    return volumes;
}

MountPlaces mountPlacesOf(const std::vector<Mount>& mounts) {
    MountPlaces places{{"/"}, {std::string(volumesFolder)}};
    for (const Mount& mount : mounts) {
        // An automounter mounts further volumes at or below its own folder.
        auto& kind = mount.fileSystemType == "autofs" ? places.expected : places.mounted;
        kind.push_back(mount.mountPoint);
    }
    return places;
}

bool isOnNetwork(std::string_view path, const std::vector<Mount>& mounts) {
    const Mount* innermost = nullptr;
    for (const Mount& mount : mounts) {
        if (isWithin(path, mount.mountPoint) &&
            (innermost == nullptr || mount.mountPoint.size() >= innermost->mountPoint.size())) {
            innermost = &mount;
        }
    }
    return innermost != nullptr && isNetworkType(innermost->fileSystemType);
}

bool isLeftOut(std::uint64_t device, const std::vector<Mount>& mounts) {
    return std::any_of(mounts.begin(), mounts.end(), [device](const Mount& mount) {
        return mount.device == device && (isPseudoFileSystemType(mount.fileSystemType) ||
                                          (mount.isSnapshot && mount.mountPoint != "/"));
    });
}

bool isPseudoFileSystemType(std::string_view type) {
    return type == "autofs" || type == "devfs" || type == "fdesc" || type == "volfs";
}

std::vector<MountedFolder> mountedFoldersOf(const std::vector<Mount>& mounts,
                                            std::string_view firmlinks) {
    std::vector<MountedFolder> folders;
    folders.reserve(mounts.size());
    for (const Mount& mount : mounts) {
        folders.push_back({mount.device, "/", mount.mountPoint});
    }
    const Mount* const data = topAt(dataVolume, mounts);
    while (data != nullptr && !firmlinks.empty()) {
        const std::size_t end = std::min(firmlinks.find('\n'), firmlinks.size());
        const std::string_view line = firmlinks.substr(0, end);
        firmlinks.remove_prefix(std::min(end + 1, firmlinks.size()));
        const std::size_t tab = line.find('\t');
        const bool isWhole = line.starts_with('/') && tab != std::string_view::npos && tab > 1 &&
                             tab + 1 < line.size() && line[tab + 1] != '/';
        if (isWhole) {
            folders.push_back({data->device, pathIn("/", line.substr(tab + 1)),
                               std::string(line.substr(0, tab))});
        }
    }
    return folders;
}

}  // namespace tarvin::macos
