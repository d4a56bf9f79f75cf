#pragma once

#include <atomic>
#include <chrono>

namespace tarvin {

/// Lets a piece of progress through when enough time has passed since the last one, so that nobody
/// has to be told of every file. Any thread; of several that ask at once one is let through.
class ProgressGate final {
 public:
    /// With an interval of zero every call is let through.
    explicit ProgressGate(std::chrono::milliseconds interval) : interval_(interval) {}

    [[nodiscard]] bool due();

 private:
    const std::chrono::steady_clock::duration interval_;
    std::atomic<std::chrono::steady_clock::rep> next_{0};
};

}  // namespace tarvin
