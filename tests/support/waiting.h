#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <fstream>
#include <string>
#include <thread>

namespace tarvin {

/// How long a test waits for what must happen before it calls it a failure.
inline constexpr std::chrono::seconds testPatience{20};

/// Waits until `condition` holds; false if it does not in time.
template <typename Condition>
bool waitUntil(const Condition& condition) {
    const auto limit = std::chrono::steady_clock::now() + testPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

/// Whether a thread of this process, by its number, sleeps: it waits for another, or for a flag.
inline bool isAsleep(pid_t thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string text;
    std::getline(file, text);
    const std::size_t end = text.rfind(')');
    return end != std::string::npos && text.substr(end).starts_with(") S");
}

}  // namespace tarvin
