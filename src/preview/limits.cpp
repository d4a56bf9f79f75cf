#include "preview/limits.h"

#include "platform/confinement.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace tarvin {

namespace {

/// Lowers a limit; never raises it.
template <typename Resource>
void limit(Resource resource, rlim_t max) {
    rlimit limits{};
    if (::getrlimit(resource, &limits) != 0) {
        return;
    }
    limits.rlim_max = std::min(limits.rlim_max, max);
    limits.rlim_cur = std::min(limits.rlim_cur, limits.rlim_max);
    ::setrlimit(resource, &limits);
}

}  // namespace

void limitThisProcess(unsigned seconds) {
    endWithParent();
    limitThreadStacks();
#ifdef TARVIN_SANITIZED  // several times slower
    constexpr rlim_t cpuSeconds = 20;
#else
    constexpr rlim_t cpuSeconds = 10;
#endif
    std::signal(SIGALRM, SIG_DFL);
    ::alarm(seconds);
    limit(RLIMIT_CPU, cpuSeconds);
    limit(RLIMIT_CORE, 0);
    // Writing to a file fails instead of killing the process: libraries try, for their caches.
    std::signal(SIGXFSZ, SIG_IGN);
    limit(RLIMIT_FSIZE, 0);
#ifndef TARVIN_SANITIZED  // the shadow memory exceeds every limit
    constexpr rlim_t megabyte = 1'000'000;
    // The rest of 512 MB is for mapped libraries and fonts.
    limit(RLIMIT_DATA, 440 * megabyte);
    limit(RLIMIT_STACK, 8 * megabyte);
    // Higher, because libraries and allocating threads reserve address space that they do not use.
    limit(RLIMIT_AS, 1024 * megabyte);
#endif
}

bool mayBeDecoded(QSize size, qsizetype bytesPerPixel) {
    constexpr qsizetype maxBytes = qsizetype{decodedImageLimit} * 1024 * 1024;
    return !size.isEmpty() && maxBytes / bytesPerPixel / size.width() >= size.height();
}

}  // namespace tarvin
