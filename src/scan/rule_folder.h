#pragma once

#include "model/marking_rule.h"
#include "platform/file_system.h"
#include "platform/result.h"

#include <atomic>
#include <string>
#include <vector>

namespace tarvin {

// The folders of a marking rule on disk. Paths are native bytes. Any thread. Unless stated
// otherwise, the functions wait for the disk, and block if a volume does not respond.

/// A folder of a rule as it is on disk now.
struct FoundFolder {
    std::string path;         ///< absolute, without symbolic links as far as they can be resolved
    FileIdentity identity{};  ///< inode 0 if it cannot be found out
    /// There is no such folder. False if this cannot be found out, for lack of permission.
    bool isGone = false;

    bool operator==(const FoundFolder&) const = default;
};

/// A folder given by the user, which may be relative to the current folder. Fails if it cannot be
/// listed: it is gone, not a folder or not readable.
[[nodiscard]] Result<FoundFolder> ruleFolderAt(const std::string& given, FileSystem& fileSystem);

/// A folder that was chosen earlier, by its absolute path. It need not be readable: if not even its
/// path can be resolved, the part that can be is, and the rest is kept.
[[nodiscard]] FoundFolder findRuleFolder(const std::string& path, FileSystem& fileSystem);

/// A location of a scan whose path leads through a symbolic link. The scan names its files by
/// `path`.
struct LinkedLocation {
    std::string path;
    std::string target;  ///< the same folder without symbolic links

    bool operator==(const LinkedLocation&) const = default;
};

/// A folder that a scan may reach without walking through the folders that hold it: a location, or
/// a mount point.
struct ReachedFolder {
    FileIdentity identity;
    std::vector<FileIdentity> above;  ///< of the folders that hold it, by any of its names
};

/// By which ways a scan reaches folders.
struct ScanWays {
    std::vector<LinkedLocation> linked;
    std::vector<ReachedFolder> reached;
};

/// The folders at which the scan of a list began, by their paths, as far as the list has files in
/// them. No thread may change the tree meanwhile. Does not use the disk. Returns within a
/// millisecond once `stop` is true; some are then missing.
[[nodiscard]] std::vector<std::string> locationsOf(const Modal& modal,
                                                   const std::atomic<bool>* stop = nullptr);

/// The ways of a scan of these locations, given by absolute paths. Leaves out a location that does
/// not exist. Of the mounted file systems it looks only at those mounted more than once, because
/// others have one name.
[[nodiscard]] ScanWays scanWaysOf(const std::vector<std::string>& locations,
                                  FileSystem& fileSystem);

/// By what a scan knows the folder, or the parts of it that it reaches: its own path and those
/// through a linked location that is below or above it, its identity and those of the reached
/// folders inside it. Pure.
[[nodiscard]] RuleFolder folderInScan(const FoundFolder& folder, const ScanWays& ways);

}  // namespace tarvin
