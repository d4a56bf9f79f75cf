#include "platform/unique_fd.h"

#include <unistd.h>

#include <cerrno>

namespace tarvin {

UniqueFd::~UniqueFd() {
    const int failure = errno;
    close();
    errno = failure;
}

int UniqueFd::close() {
    // On Linux the descriptor is closed also where the call was interrupted.
    if (number_ < 0 || ::close(release()) == 0 || errno == EINTR) {
        return 0;
    }
    return errno;
}

}  // namespace tarvin
