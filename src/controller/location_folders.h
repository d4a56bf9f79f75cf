#pragma once

#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

// What the folder browser shows of the disks. Paths are native bytes. Nothing here waits for
// anything but the disk.

/// Whether an entry is hidden from the browser: its name begins with one of thirty signs, such as a
/// full stop. Letters, digits and the underscore are not among them.
[[nodiscard]] bool isSpecialFolder(std::string_view name);

/// The visible folders in a folder; symbolic links to folders count. They are sorted by name as
/// people sort in the user's language, numbers by their value, and where that is the same by bytes.
/// Empty if the path is not a folder or cannot be listed to its end.
[[nodiscard]] std::vector<std::string> getFoldersAtPath(FileSystem& fileSystem,
                                                        const std::string& path);

/// The volumes that may be listed: none of another machine, and none whose folder is hidden.
[[nodiscard]] std::vector<Volume> listedVolumes(const std::vector<Volume>& volumes);

/// The picture of a location: "mymac.png" for the desktop folder, one of three drives for the place
/// where a volume is mounted, "folder.png" for the rest.
[[nodiscard]] std::string imageNameOfPath(const std::string& path,
                                          const std::vector<Volume>& volumes,
                                          const std::optional<std::string>& desktop);

/// The name of the volume that holds the user's home folder's own folder, such as "/home"; the
/// user's name where that is a folder in which volumes are mounted. Empty if none of it is known.
/// Nothing calls it.
[[nodiscard]] std::string getVolumeName(Platform& platform);

/// The last part of a path, slashes at its end aside; "/" for the root.
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);

}  // namespace tarvin
