#include "platform/linux/block_devices.h"

#include "platform/posix/small_file.h"

#include <sys/sysmacros.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

namespace tarvin {

namespace {

using std::filesystem::path;

constexpr std::size_t maxAttributeBytes = 4096;
// Encryption on LVM on RAID on partitions is four levels.
constexpr int maxStackDepth = 16;

std::optional<path> resolved(const path& name) {
    std::error_code failure;
    path answer = std::filesystem::canonical(name, failure);
    return failure ? std::nullopt : std::optional(std::move(answer));
}

/// Whether a Boolean attribute in sysfs is 1.
bool isSet(const path& attribute) {
    const auto text = readSmallFile(attribute.string(), maxAttributeBytes);
    return text && text->starts_with('1');
}

bool isThere(const path& name) {
    std::error_code failure;
    return std::filesystem::exists(name, failure);
}

std::vector<path> entriesOf(const path& folder) {
    std::vector<path> entries;
    std::error_code failure;
    std::filesystem::directory_iterator at(folder, failure);
    while (!failure && at != std::filesystem::directory_iterator()) {
        entries.push_back(at->path());
        at.increment(failure);
    }
    return entries;
}

/// Appends the disks under the device with this entry in sysfs. `entry` may be a symbolic link.
void addDisksUnder(const path& entry, int maxDepth, std::vector<path>& disks) {
    auto folder = resolved(entry);
    if (!folder || maxDepth == 0) {
        return;
    }
    if (isThere(*folder / "partition")) {
        folder = folder->parent_path();
    }
    const std::vector<path> slaves = entriesOf(*folder / "slaves");
    if (slaves.empty()) {
        disks.push_back(std::move(*folder));
        return;
    }
    for (const path& slave : slaves) {
        addDisksUnder(slave, maxDepth - 1, disks);
    }
}

/// The device's entry in sysfs, by its number.
path entryOfNumber(const path& sysfsRoot, std::uint64_t device) {
    return sysfsRoot / "dev" / "block" /
           (std::to_string(major(device)) + ':' + std::to_string(minor(device)));
}

/// The device's entry in sysfs, by the source of a mount in the mount table.
std::optional<path> entryOfSource(const path& sysfsRoot, const std::string& source) {
    constexpr std::string_view deviceFolder = "/dev/";
    if (!source.starts_with(deviceFolder)) {
        return std::nullopt;
    }
    // "/dev/mapper/name" and "/dev/disk/..." are links to the device's own name.
    std::string name = resolved(source).value_or(source).string();
    if (!name.starts_with(deviceFolder)) {
        return std::nullopt;
    }
    name.erase(0, deviceFolder.size());
    // sysfs names are flat: the device "cciss/c0d0" is "cciss!c0d0".
    std::replace(name.begin(), name.end(), '/', '!');
    return sysfsRoot / "class" / "block" / name;
}

/// Appends the disks under a mount, by its source.
void addDisksOfMount(const path& sysfsRoot, const MountEntry& mount, std::vector<path>& disks) {
    if (const auto entry = entryOfSource(sysfsRoot, mount.source)) {
        addDisksUnder(*entry, maxStackDepth, disks);
    }
}

/// How to treat a device number that is neither a block device nor in the mount table: that of a
/// btrfs subvolume, whose volume is unknown.
enum class Unlisted { isNothing, isAnyBtrfs };

/// The disks under a file system without a block device. The root must be resolved.
std::vector<path> disksByTable(std::uint64_t device, const path& sysfsRoot,
                               const std::string& mountTable, Unlisted unlisted) {
    const auto mounts = readMountInfo(mountTable).value_or(std::vector<MountEntry>());
    const bool isListed =
        std::any_of(mounts.begin(), mounts.end(),
                    [device](const MountEntry& mount) { return mount.device == device; });
    std::vector<path> disks;
    for (const MountEntry& mount : mounts) {
        const bool mayBeBtrfs = !isListed && unlisted == Unlisted::isAnyBtrfs;
        if (mount.device == device || (mayBeBtrfs && mount.fileSystemType == "btrfs")) {
            addDisksOfMount(sysfsRoot, mount, disks);
        }
    }
    return disks;
}

/// The disks under a file system, by their folders in sysfs. The root must be resolved.
std::vector<path> disksOf(std::uint64_t device, const path& sysfsRoot,
                          const std::string& mountTable, Unlisted unlisted) {
    if (major(device) == 0) {
        return disksByTable(device, sysfsRoot, mountTable, unlisted);
    }
    std::vector<path> disks;
    addDisksUnder(entryOfNumber(sysfsRoot, device), maxStackDepth, disks);
    return disks;
}

bool isParavirtual(const path& disk) {
    std::string name = disk.filename().string();
    if (name.starts_with('x')) {
        name.erase(0, 1);
    }
    return name.size() > 2 && name.starts_with("vd") && name[2] >= 'a' && name[2] <= 'z';
}

bool isRotationalDisk(const path& disk) {
    return !isParavirtual(disk) && isSet(disk / "queue" / "rotational");
}

bool isRemovableDisk(const path& disk, const path& sysfsRoot) {
    // The path below the root names every controller between the CPU and the disk.
    const path way = disk.lexically_relative(sysfsRoot);
    const bool isOnUsb = std::any_of(way.begin(), way.end(), [](const path& component) {
        return component.string().starts_with("usb");
    });
    return isOnUsb || isSet(disk / "removable");
}

}  // namespace

std::optional<std::uint64_t> rotationalDiskUnder(std::uint64_t device, const std::string& sysfsRoot,
                                                 const std::string& mountTable) {
    const auto root = resolved(sysfsRoot);
    if (!root) {
        return std::nullopt;
    }
    // One reader too few costs less than one too many, so a btrfs volume on a rotational disk
    // counts for every subvolume.
    auto disks = disksOf(device, *root, mountTable, Unlisted::isAnyBtrfs);
    std::erase_if(disks, [](const path& disk) { return !isRotationalDisk(disk); });
    const auto first = std::min_element(disks.begin(), disks.end());
    return first == disks.end() ? std::nullopt
                                : std::optional<std::uint64_t>(std::filesystem::hash_value(*first));
}

bool isRemovableDevice(std::uint64_t device, const std::string& sysfsRoot,
                       const std::string& mountTable) {
    const auto root = resolved(sysfsRoot);
    if (!root) {
        return false;
    }
    const auto disks = disksOf(device, *root, mountTable, Unlisted::isNothing);
    return std::any_of(disks.begin(), disks.end(),
                       [&](const path& disk) { return isRemovableDisk(disk, *root); });
}

}  // namespace tarvin
