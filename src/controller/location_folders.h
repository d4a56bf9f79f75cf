#pragma once

#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

// The contents of the folder browser. Paths are native bytes. Calls block only on the disk.

/// Whether the browser hides an entry: its name begins with one of thirty characters, such as a
/// period. Letters, digits and the underscore are not among them.
[[nodiscard]] bool isSpecialFolder(std::string_view name);

/// Returns the visible folders in a folder, including symbolic links to folders, sorted by name: in
/// the user's locale, numbers by value, ties by bytes. Empty if the path is not a folder or cannot
/// be listed completely.
[[nodiscard]] std::vector<std::string> getFoldersAtPath(FileSystem& fileSystem,
                                                        const std::string& path);

/// The volumes to list: no network volumes, and none whose mount point is hidden.
[[nodiscard]] std::vector<Volume> listedVolumes(const std::vector<Volume>& volumes);

/// The image name of a location: "mymac.png" for the desktop folder, one of three drives for a
/// mount point, "folder.png" for the rest.
[[nodiscard]] std::string imageNameOfPath(const std::string& path,
                                          const std::vector<Volume>& volumes,
                                          const std::optional<std::string>& desktop);

/// The name of the volume that holds the parent of the user's home folder, such as "/home"; the
/// user name if that parent is a folder in which volumes are mounted. Empty if unknown. Nothing
/// calls it.
[[nodiscard]] std::string getVolumeName(Platform& platform);

/// The last part of a path, ignoring trailing slashes; "/" for the root.
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);

}  // namespace tarvin
