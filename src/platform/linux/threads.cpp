#include "platform/threads.h"

#include <sys/resource.h>
#include <unistd.h>

namespace tarvin {

namespace {

// Added to the nice value. Under CPU contention the thread gets about a third of the share of a
// thread of normal priority.
constexpr int niceIncrement = 5;

}  // namespace

void lowerThreadPriority() {
    // On Linux the nice value is per thread; PRIO_PROCESS with a thread ID changes that thread
    // only.
    const auto self = static_cast<id_t>(::gettid());
    static_cast<void>(
        ::setpriority(PRIO_PROCESS, self, ::getpriority(PRIO_PROCESS, self) + niceIncrement));
}

std::uint64_t deviceReadsOfThisThread() {
    rusage usage{};
    if (::getrusage(RUSAGE_THREAD, &usage) != 0) {
        return 0;
    }
    return static_cast<std::uint64_t>(usage.ru_inblock);
}

}  // namespace tarvin
