#pragma once

#include "platform/linux/mount_table.h"

#include <cstdint>
#include <string>

namespace tarvin {

/// Questions about the disks under a file system, answered from the kernel's device tree. `device`
/// is the number that `st_dev` shows. A volume put together of others (encrypted, joined, mirrored)
/// answers for the disks it stands on; a partition for its disk. A number that names no device
/// (btrfs and the like) is looked up in the mount table, which is why these calls may read a file
/// of some length: ask once per device. Any thread. What cannot be found out counts as no.

/// Whether a disk under the file system has moving heads. For a subvolume of btrfs: whether any
/// btrfs volume has, because its number does not tell of which volume it is.
///
/// A paravirtual disk ("vda", "xvda") does not know its medium: it reports the kernel's default,
/// which is "rotational". Believing it would give every virtual machine one reader at a time, so
/// such disks count as not rotational.
[[nodiscard]] bool isRotationalDevice(std::uint64_t device, const std::string& sysfsRoot = "/sys",
                                      const std::string& mountTable = mountInfoFile);

/// Whether a disk under the file system is on USB or its medium can be taken out. `device` must be
/// as the mount table gives it, which for btrfs is not what `st_dev` shows.
[[nodiscard]] bool isRemovableDevice(std::uint64_t device, const std::string& sysfsRoot = "/sys",
                                     const std::string& mountTable = mountInfoFile);

}  // namespace tarvin
