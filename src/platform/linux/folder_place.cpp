#include "platform/open_folder.h"

#include <unistd.h>

#include <climits>
#include <cstddef>

namespace tarvin {

std::optional<std::string> placeOf(const Descriptor& folder) {
    std::string path(PATH_MAX, '\0');
    const std::string link = "/proc/self/fd/" + std::to_string(folder.number());
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length <= 0 || static_cast<std::size_t>(length) == path.size() || path.front() != '/') {
        return std::nullopt;
    }
    path.resize(static_cast<std::size_t>(length));
    return path;
}

}  // namespace tarvin
