#pragma once

#include "model/marking_rule.h"
#include "platform/file_system.h"
#include "platform/result.h"

#include <string>
#include <vector>

namespace tarvin {

// The folders of a marking rule on disk. Paths are native bytes. Any thread. ruleFolderAt() and
// linkedLocationsOf() wait for the disk, and block if a volume does not respond.

/// The absolute path, without symbolic links, of a folder given by the user, which may be relative
/// to the current folder. Fails if it cannot be listed: it is gone, not a folder or not readable.
[[nodiscard]] Result<std::string> ruleFolderAt(const std::string& given, FileSystem& fileSystem);

/// A location of a scan whose path leads through a symbolic link. The scan names its files by
/// `path`.
struct LinkedLocation {
    std::string path;
    std::string target;  ///< the same folder without symbolic links

    bool operator==(const LinkedLocation&) const = default;
};

/// The folders at which the scan of a list began, by their paths, as far as the list has files in
/// them. No thread may change the tree meanwhile.
[[nodiscard]] std::vector<std::string> locationsOf(const Modal& modal);

/// Those of the locations, given by absolute paths, that lead through a symbolic link. A location
/// that does not exist is none.
[[nodiscard]] std::vector<LinkedLocation> linkedLocationsOf(
    const std::vector<std::string>& locations);

/// The paths by which a scan names the folder, or the parts of it that it reaches: its own, which
/// has no symbolic links, and those through a linked location that is below or above it. Pure.
[[nodiscard]] FolderPaths pathsInScan(const std::string& folder,
                                      const std::vector<LinkedLocation>& linked);

}  // namespace tarvin
