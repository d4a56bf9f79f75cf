#include "preview/limits.h"

#include "platform/confinement.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace tarvin {

namespace {

/// Never more than it was.
template <typename Resource>
void limit(Resource resource, rlim_t most) {
    rlimit limits{};
    if (::getrlimit(resource, &limits) != 0) {
        return;
    }
    limits.rlim_max = std::min(limits.rlim_max, most);
    limits.rlim_cur = std::min(limits.rlim_cur, limits.rlim_max);
    ::setrlimit(resource, &limits);
}

}  // namespace

void limitThisProcess() {
    endWithParent();
    limitThreadStacks();
#ifdef TARVIN_SANITIZED  // which takes several times as long
    constexpr unsigned seconds = 20;
#else
    constexpr unsigned seconds = 10;
#endif
    std::signal(SIGALRM, SIG_DFL);
    ::alarm(seconds);
    limit(RLIMIT_CPU, seconds);  // whatever becomes of the alarm
    limit(RLIMIT_CORE, 0);
    // A write to a file fails instead of ending the process: libraries try, for their caches.
    std::signal(SIGXFSZ, SIG_IGN);
    limit(RLIMIT_FSIZE, 0);
#ifndef TARVIN_SANITIZED  // whose shadow memory is beyond every limit
    constexpr rlim_t megabyte = 1'000'000;
    // The rest of 512 is for the libraries and the fonts, which lie in memory as in their files.
    limit(RLIMIT_DATA, 440 * megabyte);
    limit(RLIMIT_STACK, 8 * megabyte);
    // Address space is only reserved in part: for libraries, and by each thread that allocates.
    limit(RLIMIT_AS, 1024 * megabyte);
#endif
}

bool mayBeDecoded(QSize size, qsizetype bytesPerPixel) {
    constexpr qsizetype most = qsizetype{decodedImageLimit} * 1024 * 1024;
    return !size.isEmpty() && most / bytesPerPixel / size.width() >= size.height();
}

}  // namespace tarvin
