#pragma once

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

/// The number of 512-byte blocks that the calling thread has read from storage devices so far, not
/// from the page cache. 0 where the system does not count them. Any thread.
std::uint64_t deviceReadsOfThisThread();

}  // namespace tarvin
