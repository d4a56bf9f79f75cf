#include "platform/posix/descriptor_paths.h"

#include <unistd.h>

#include <climits>
#include <cstddef>

namespace tarvin {

std::string pathThrough(int folder, const std::string& /*path*/) {
    return "/proc/self/fd/" + std::to_string(folder);
}

std::optional<std::string> pathOfDescriptor(int folder) {
    std::string path(PATH_MAX, '\0');
    const std::string link = pathThrough(folder, {});
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length <= 0 || static_cast<std::size_t>(length) == path.size() || path.front() != '/') {
        return std::nullopt;
    }
    path.resize(static_cast<std::size_t>(length));
    return path;
}

}  // namespace tarvin
