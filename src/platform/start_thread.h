#pragma once

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

}  // namespace tarvin
