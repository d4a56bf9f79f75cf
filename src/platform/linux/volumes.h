#pragma once

#include "platform/linux/mount_table.h"
#include "platform/platform.h"

#include <functional>
#include <string_view>
#include <vector>

namespace tarvin {

/// Whether the device of a mount can be unplugged or its medium taken out.
using RemovableQuery = std::function<bool(const MountEntry&)>;

/// What a person would call the drives among the mounts: "/" first, whatever it is, then what is
/// mounted at "/mnt" or under "/media", "/run/media" or "/mnt", in the table's order. Where
/// something is mounted over, what was mounted last counts. Pseudo file systems are left out. "/"
/// is there even if the table does not list it (a changed root), then without a type.
[[nodiscard]] std::vector<Volume> volumesOf(const std::vector<MountEntry>& mounts,
                                            const RemovableQuery& isRemovable);

/// Whether the innermost mount that a path lies in is of another machine; of several in one place,
/// the last counts.
[[nodiscard]] bool isOnNetwork(std::string_view path, const std::vector<MountEntry>& mounts);

}  // namespace tarvin
