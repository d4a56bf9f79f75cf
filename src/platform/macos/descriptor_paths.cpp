#include "platform/posix/descriptor_paths.h"

#include <fcntl.h>
#include <sys/syslimits.h>

#include <array>

namespace tarvin {

std::string pathThrough(int /*folder*/, const std::string& path) {
    // "/dev/fd/N" opens the folder, but leads to nothing below it.
    return path;
}

std::optional<std::string> pathOfDescriptor(int folder) {
    std::array<char, PATH_MAX> path{};
    if (::fcntl(folder, F_GETPATH, path.data()) != 0 || path.front() != '/') {
        return std::nullopt;
    }
    return std::string(path.data());
}

}  // namespace tarvin
