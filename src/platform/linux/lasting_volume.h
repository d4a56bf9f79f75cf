#pragma once

#include "platform/file_system.h"

#include <optional>
#include <string>

namespace tarvin {

/// The name of FileSystem::lastingVolumeName() for an open folder: the type of its file system and
/// its UUID, on btrfs with the subvolume. Only for file systems that keep inode numbers and dates
/// of change to the nanosecond, on disks of this machine.
[[nodiscard]] std::optional<std::string> lastingVolumeNameOf(int folder);

/// Whether the kernel writes changed pages back soon enough for FileSystem::timeToSettle, by the
/// texts of its settings dirty_expire_centisecs and dirty_writeback_centisecs. Pure.
[[nodiscard]] bool writesBackSoon(const std::string& expire, const std::string& interval);

}  // namespace tarvin
