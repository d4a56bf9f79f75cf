#include "platform/open_folder.h"

#include "platform/posix/descriptor_paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tarvin {

std::optional<std::string> currentPathOf(const Descriptor& folder) {
    return pathOfDescriptor(folder.number());
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
