#include "platform/linux/private_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tarvin {

namespace {

bool isPrivate(int folder) {
    struct stat status{};
    return ::fstat(folder, &status) == 0 && status.st_uid == ::geteuid() &&
           (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

Result<PrivateFolder> PrivateFolder::open(const std::string& path) {
    if (::mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        return SystemError{errno};
    }
    UniqueFd folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder) {
        return SystemError{errno};
    }
    if (!isPrivate(folder.number())) {
        return SystemError{EACCES};
    }
    return PrivateFolder(std::move(folder));
}

std::string PrivateFolder::path() const {
    return "/proc/self/fd/" + std::to_string(number());
}

}  // namespace tarvin
