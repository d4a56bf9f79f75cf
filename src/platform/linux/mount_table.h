#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// One line of the kernel's mount table. Text is native bytes.
struct MountEntry {
    /// The number that `st_dev` shows for its files. A btrfs volume is the exception: each of its
    /// subvolumes shows a number of its own, which no table lists.
    std::uint64_t device = 0;
    std::string mountPoint;
    std::string fileSystemType;  ///< a subtype behind a dot, as in "fuse.sshfs"
    std::string source;          ///< "/dev/sda1", "server:/export", or any word

    bool operator==(const MountEntry&) const = default;
};

/// Where the kernel shows the process its mounts.
inline constexpr const char* mountInfoFile = "/proc/self/mountinfo";

/// The entries of a table in that file's format, in its order: the order of mounting, as a rule.
/// Lines that are not of the format are left out.
[[nodiscard]] std::vector<MountEntry> parseMountInfo(std::string_view text);

/// The mounts of this process as they are now; none if the table cannot be read. Any thread.
[[nodiscard]] std::optional<std::vector<MountEntry>> readMountInfo(
    const std::string& path = mountInfoFile);

/// The mount of this number, which the system tells of an open file, or none if the table does not
/// list it: the mount may be another process's, or gone. Any thread.
[[nodiscard]] std::optional<MountEntry> findMount(std::uint64_t number,
                                                  const std::string& path = mountInfoFile);

/// Whether file systems of this type hold no files of anybody's, but tables of the kernel or views
/// of files that stand elsewhere.
[[nodiscard]] bool isPseudoFileSystemType(std::string_view type);

}  // namespace tarvin
