#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Where volumes are mounted, and where others may be mounted, at one moment. Absolute paths in
/// native bytes, without a slash at the end.
struct MountPlaces {
    /// The mount points of the volumes mounted now, "/" among them. Empty if they are unknown.
    std::vector<std::string> mounted;
    /// Folders in which a path without a volume of its own belongs to a volume that is not mounted:
    /// mount points of known volumes, and the folders in which desktops make mount points.
    std::vector<std::string> expected;

    /// Whether a path that does not exist may exist on a volume that is not mounted now. True for
    /// every path if the mounted volumes are unknown. Pure. Any thread.
    [[nodiscard]] bool isOnUnmountedVolume(std::string_view path) const;
};

}  // namespace tarvin
