#pragma once

#include <chrono>
#include <cstdint>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace tarvin {

// For startThread(): what the system does not hand on to a started thread by itself.
[[nodiscard]] int priorityToHandOn();
void takePriority(int priority);

/// Starts a thread that runs `body`. If the system cannot start one (process limit, no address
/// space for its stack), returns a thread that is not joinable, and `body` is not called.
template <class Body>
[[nodiscard]] std::thread startThread(Body&& body) {
    try {
        return std::thread(
            [body = std::forward<Body>(body), priority = priorityToHandOn()]() mutable {
                takePriority(priority);
                body();
            });
    } catch (const std::system_error&) {
        return {};
    } catch (const std::bad_alloc&) {
        return {};
    }
}

// Priorities of the calling thread and of every thread that it starts afterwards, with
// startThread(). Cannot be undone. Each does nothing if the system has no such priorities.

/// For work that a user waits for (macOS: the quality of service "user-interactive").
void makeThreadInteractive();

/// Under CPU contention the threads get about a third of a normal thread's share.
void lowerThreadPriority();

/// The threads have a CPU only when nobody else wants it, almost, and a disk likewise where its
/// scheduler knows priorities (`ionice` shows "idle").
void makeThreadIdle();

/// What a thread has used since it began. Fields are 0 where the system does not count them, but
/// `waits` grows then with each question.
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
