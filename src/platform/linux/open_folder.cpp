#include "platform/open_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstddef>

namespace tarvin {

std::optional<std::string> currentPathOf(const Descriptor& folder) {
    std::string path(PATH_MAX, '\0');
    const std::string link = "/proc/self/fd/" + std::to_string(folder.number());
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length <= 0 || static_cast<std::size_t>(length) == path.size() || path.front() != '/') {
        return std::nullopt;
    }
    path.resize(static_cast<std::size_t>(length));
    return path;
}

std::optional<SystemError> refusalOfNames(const Descriptor& folder) {
    if (::faccessat(folder.number(), ".", W_OK | X_OK, AT_EACCESS) == 0) {
        return std::nullopt;
    }
    return SystemError{errno};
}

std::optional<SystemError> makeFolderAt(const Descriptor& parent, const std::string& name) {
    if (::mkdirat(parent.number(), name.c_str(), S_IRWXU | S_IRWXG | S_IRWXO) == 0) {
        return std::nullopt;
    }
    return SystemError{errno};
}

void removeEmptyFolderAt(const Descriptor& parent, const std::string& name) {
    static_cast<void>(::unlinkat(parent.number(), name.c_str(), AT_REMOVEDIR));
}

}  // namespace tarvin
