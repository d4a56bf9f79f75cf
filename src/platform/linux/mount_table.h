#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// One line of the mount table. Text is native bytes.
struct MountEntry {
    /// The `st_dev` of its files, except on btrfs: each subvolume has its own device number, which
    /// is not in the table.
    std::uint64_t device = 0;
    std::string mountPoint;
    std::string fileSystemType;  ///< with a subtype after a dot, as in "fuse.sshfs"
    std::string source;          ///< "/dev/sda1", "server:/export", or any word
    std::string root = "/";      ///< the mounted folder of the file system

    bool operator==(const MountEntry&) const = default;
};

/// The mount table of the process.
inline constexpr const char* mountInfoFile = "/proc/self/mountinfo";

/// The entries of a table in that file's format, in its order, usually that of mounting. Skips
/// malformed lines. Pure.
[[nodiscard]] std::vector<MountEntry> parseMountInfo(std::string_view text);

/// The mount points in a table of the format of "/etc/fstab", without "/", a slash at the end, and
/// the rows that have none, such as swap. Skips malformed lines. Pure.
[[nodiscard]] std::vector<std::string> parseFileSystemTable(std::string_view text);

/// The mounts of this process; nullopt if the table cannot be read. Any thread.
[[nodiscard]] std::optional<std::vector<MountEntry>> readMountInfo(
    const std::string& path = mountInfoFile);

/// The mount with this ID (`stx_mnt_id` of an open file); nullopt if the table does not list it: it
/// may be unmounted, or of another mount namespace. Any thread.
[[nodiscard]] std::optional<MountEntry> findMount(std::uint64_t number,
                                                  const std::string& path = mountInfoFile);

/// Whether file systems of this type hold kernel data, or views of files elsewhere, instead of
/// users' files. Pure.
[[nodiscard]] bool isPseudoFileSystemType(std::string_view type);

}  // namespace tarvin
