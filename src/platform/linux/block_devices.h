#pragma once

#include "platform/linux/mount_table.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarvin {

// Properties of the disks under a file system, from sysfs. `device` is an `st_dev`. A stacked
// volume (encryption, LVM, RAID) counts as its disks, a partition as its disk. A device number
// without a block device (btrfs, for example) is looked up in the mount table, which may be long:
// call once per device. Unknown counts as none. Any thread.

/// A number of the first rotational disk under the file system: the same for all partitions and
/// volumes whose first one it is, and no device number. nullopt if there is none. For a btrfs
/// subvolume: that of any btrfs volume, because its device number does not identify the volume.
///
/// A paravirtual disk ("vda", "xvda") reports the kernel's default, "rotational", for every medium.
/// That would give every virtual machine one reader at a time, so such disks count as not
/// rotational.
[[nodiscard]] std::optional<std::uint64_t> rotationalDiskUnder(
    std::uint64_t device, const std::string& sysfsRoot = "/sys",
    const std::string& mountTable = mountInfoFile);

/// Whether a disk under the file system is on USB or has a removable medium. `device` must be that
/// of the mount table, which for btrfs differs from `st_dev`.
[[nodiscard]] bool isRemovableDevice(std::uint64_t device, const std::string& sysfsRoot = "/sys",
                                     const std::string& mountTable = mountInfoFile);

}  // namespace tarvin
