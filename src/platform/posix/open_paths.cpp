#include "platform/posix/open_paths.h"

#include "platform/unique_fd.h"

#include <fcntl.h>

#include <cerrno>
#include <climits>
#include <cstddef>

namespace tarvin {

namespace {

constexpr std::size_t maxStep = PATH_MAX - 1;  // bytes

// A step is not read.
#if defined(O_PATH)
constexpr int stepFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
#elif defined(O_SEARCH)
constexpr int stepFlags = O_SEARCH | O_DIRECTORY | O_CLOEXEC;
#else
constexpr int stepFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif

}  // namespace

int openAt(int directory, const char* path, int flags) {
    int number = -1;
    do {
        number = ::openat(directory, path, flags);
    } while (number < 0 && errno == EINTR);
    return number;
}

int openAnyLength(const std::string& path, int flags) {
    if (path.size() <= maxStep) {
        return openAt(AT_FDCWD, path.c_str(), flags);
    }
    // The last step must have a name in it.
    const std::size_t length = path.find_last_not_of('/') + 1;
    UniqueFd folder;
    const auto directory = [&folder] { return folder ? folder.number() : AT_FDCWD; };
    std::size_t from = 0;
    while (length - from > maxStep) {
        const std::size_t slash = path.rfind('/', from + maxStep - 1);
        if (slash == std::string::npos || slash <= from) {
            errno = ENAMETOOLONG;
            return -1;
        }
        const std::string step = path.substr(from, slash - from);
        folder = UniqueFd(openAt(directory(), step.c_str(), stepFlags));
        if (!folder) {
            return -1;
        }
        // What follows must not begin with a slash, or it would start at the root again.
        from = path.find_first_not_of('/', slash);
    }
    return openAt(directory(), path.substr(from, length - from).c_str(), flags);
}

}  // namespace tarvin
