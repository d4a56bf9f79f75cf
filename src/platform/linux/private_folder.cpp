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
    const int number = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (number < 0) {
        return SystemError{errno};
    }
    PrivateFolder folder(number);
    if (!isPrivate(number)) {
        return SystemError{EACCES};
    }
    return folder;
}

PrivateFolder::PrivateFolder(PrivateFolder&& other) noexcept
    : number_(std::exchange(other.number_, -1)) {}

PrivateFolder& PrivateFolder::operator=(PrivateFolder&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

PrivateFolder::~PrivateFolder() {
    if (number_ >= 0) {
        ::close(number_);
    }
}

std::string PrivateFolder::path() const {
    return "/proc/self/fd/" + std::to_string(number_);
}

}  // namespace tarvin
