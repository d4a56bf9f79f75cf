#pragma once

#include <sys/types.h>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <ctime>
#include <fstream>
#include <mutex>
#include <string>

namespace tarvin {

/// How long a test waits for a condition before it fails.
inline constexpr std::chrono::seconds testPatience{20};

/// An event that one thread sets and others wait for. Any thread.
class Event final {
 public:
    /// Wakes all waiting threads. Cannot be undone.
    void set() {
        const std::lock_guard lock(mutex_);
        isSet_ = true;
        changed_.notify_all();
    }
    /// Blocks until set() has been called. Returns false after testPatience.
    bool wait() {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, testPatience, [this] { return isSet_; });
    }

 private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isSet_ = false;  // guarded by mutex_
};

/// Polls `condition` once a millisecond until it holds. Returns false after testPatience. For what
/// sends no notification: files, /proc, windows, other processes. Where a thread of the test can
/// notify, use Event.
template <typename Condition>
bool waitUntil(const Condition& condition) {
    const auto limit = std::chrono::steady_clock::now() + testPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        // With a longer one, tests that interrupt a program while it moves files would be too late.
        constexpr timespec interval{0, 1'000'000};
        ::nanosleep(&interval, nullptr);
    }
    return true;
}

/// Returns whether a thread of this process sleeps, by its thread ID: it waits for a lock, a
/// condition or a system call.
inline bool isAsleep(pid_t thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string text;
    std::getline(file, text);
    const std::size_t end = text.rfind(')');
    return end != std::string::npos && text.substr(end).starts_with(") S");
}

}  // namespace tarvin
