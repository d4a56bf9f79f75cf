#include "platform/mount_places.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <cstddef>

namespace tarvin {

namespace {

/// The length of the innermost of `folders` that holds the path; 0 if none does.
std::size_t innermostLength(std::string_view path, const std::vector<std::string>& folders) {
    std::size_t length = 0;
    for (const std::string& folder : folders) {
        if (isWithin(path, folder)) {
            length = std::max(length, folder.size());
        }
    }
    return length;
}

}  // namespace

bool MountPlaces::isOnUnmountedVolume(std::string_view path) const {
    const std::size_t volume = innermostLength(path, mounted);
    return volume == 0 || innermostLength(path, expected) > volume;
}

}  // namespace tarvin
