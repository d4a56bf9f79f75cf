#include "platform/threads.h"

#include "platform/unique_fd.h"

#include <fcntl.h>
#include <linux/ioprio.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>

namespace tarvin {

namespace {

// Added to the nice value. Under CPU contention the thread gets about a third of the share of a
// thread of normal priority.
constexpr int niceIncrement = 5;
constexpr int lowestPriority = 19;

std::chrono::nanoseconds timeOf(const timeval& time) {
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
}

}  // namespace

void makeThreadInteractive() {
    // A thread of normal priority is that already.
}

void lowerThreadPriority() {
    // On Linux the nice value is per thread; PRIO_PROCESS with a thread ID changes that thread
    // only.
    const auto self = static_cast<id_t>(::gettid());
    static_cast<void>(
        ::setpriority(PRIO_PROCESS, self, ::getpriority(PRIO_PROCESS, self) + niceIncrement));
}

void makeThreadIdle() {
    const auto self = static_cast<id_t>(::gettid());
    static_cast<void>(::setpriority(PRIO_PROCESS, self, lowestPriority));
    // The C library has no function for it.
    static_cast<void>(
        ::syscall(SYS_ioprio_set, IOPRIO_WHO_PROCESS, 0, IOPRIO_PRIO_VALUE(IOPRIO_CLASS_IDLE, 0)));
}

int priorityToHandOn() {
    return 0;  // Linux hands everything on
}

void takePriority(int /*priority*/) {}

ThreadUse useOfThisThread() {
    rusage usage{};
    if (::getrusage(RUSAGE_THREAD, &usage) != 0) {
        return {};
    }
    return {.deviceReads = static_cast<std::uint64_t>(usage.ru_inblock),
            .waits = static_cast<std::uint64_t>(usage.ru_nvcsw),
            .ran = timeOf(usage.ru_utime) + timeOf(usage.ru_stime)};
}

std::chrono::nanoseconds timeInQueueOfThisThread() {
    // The time on a CPU and the time in the run queue, in nanoseconds, and a count.
    const UniqueFd file(::open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC));
    std::array<char, 128> text{};
    if (!file || ::read(file.number(), text.data(), text.size() - 1) <= 0) {
        return {};
    }
    const char* const space = std::strchr(text.data(), ' ');
    return std::chrono::nanoseconds(space == nullptr ? 0 : std::strtoll(space, nullptr, 10));
}

}  // namespace tarvin
