#pragma once

#include <chrono>
#include <thread>

namespace tarvin::devices {

/// The kernel wakes a sleeper about this late.
inline constexpr std::chrono::microseconds lateness{60};

/// Sleeps until `time`. The last of it is waited for actively, because the kernel wakes a sleeper
/// late.
inline void sleepUntil(std::chrono::steady_clock::time_point time) {
    std::this_thread::sleep_until(time - lateness);
    while (std::chrono::steady_clock::now() < time) {
    }
}

}  // namespace tarvin::devices
