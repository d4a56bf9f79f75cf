#pragma once

#include "platform/linux/mount_table.h"
#include "platform/platform.h"

#include <functional>
#include <string_view>
#include <vector>

namespace tarvin {

/// Whether the device of a mount is removable or on USB.
using RemovableQuery = std::function<bool(const MountEntry&)>;

/// The drives among the mounts: "/" first, of any type, then those mounted at "/mnt" or below
/// "/media", "/run/media" or "/mnt", in the table's order. Of several mounts at one mount point the
/// last counts. Without pseudo file systems. If the table does not list "/" (chroot), it has no
/// type. Pure.
[[nodiscard]] std::vector<Volume> volumesOf(const std::vector<MountEntry>& mounts,
                                            const RemovableQuery& isRemovable);

/// The mounts, and as further places: the mount points `inTable` of volumes that the system knows,
/// those of automounters, "/media", "/run/media", "/mnt", and "/run/user", which holds the shares
/// of a session. A share is not listed when it is mounted, so everything below "/run/user" counts
/// as not mounted. Pure.
[[nodiscard]] MountPlaces mountPlacesOf(const std::vector<MountEntry>& mounts,
                                        std::vector<std::string> inTable);

/// Whether the innermost mount of a path is a network file system; of several at one mount point
/// the last counts. Pure.
[[nodiscard]] bool isOnNetwork(std::string_view path, const std::vector<MountEntry>& mounts);

}  // namespace tarvin
