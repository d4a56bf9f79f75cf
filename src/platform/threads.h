#pragma once

#include <chrono>
#include <cstdint>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace tarvin {

/// Starts a thread that runs `body`. If the system cannot start one (process limit, no address
/// space for its stack), returns a thread that is not joinable, and `body` is not called.
template <class Body>
[[nodiscard]] std::thread startThread(Body&& body) {
    try {
        return std::thread(std::forward<Body>(body));
    } catch (const std::system_error&) {
        return {};
    } catch (const std::bad_alloc&) {
        return {};
    }
}

/// Lowers the priority of the calling thread and of every thread that it starts afterwards, so that
/// under CPU contention they get about a third of a normal thread's share. Cannot be undone. Does
/// nothing if the system has no such priorities.
void lowerThreadPriority();

/// Lets the calling thread, and every thread that it starts afterwards, have a CPU only when nobody
/// else wants it, almost, and a disk likewise where its scheduler knows priorities (`ionice` shows
/// "idle"). Cannot be undone. Does nothing if the system has no such priorities.
void makeThreadIdle();

/// What a thread has used since it began. Fields are 0 where the system does not count them.
struct ThreadUse {
    std::uint64_t deviceReads =
        0;                    ///< 512-byte blocks from storage devices, not from the page cache
    std::uint64_t waits = 0;  ///< how often it gave its CPU away to wait for something
    std::chrono::nanoseconds ran{0};
};

/// The use of the calling thread. Takes less than a microsecond.
ThreadUse useOfThisThread();

/// For how long the calling thread has been ready to run while others had the CPUs, since it began.
/// 0 where the system does not count it. Takes about 10 microseconds.
std::chrono::nanoseconds timeInQueueOfThisThread();

}  // namespace tarvin
