#pragma once

#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace tarvin {

/// A thread that runs `body`. Not joinable, and `body` has not been called, if the system has no
/// thread to give (a limit on processes, too little address space for its stack).
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
