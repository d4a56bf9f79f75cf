#pragma once

#include <atomic>
#include <chrono>

namespace tarvin {

/// Limits the rate of progress reports. Any thread; of several simultaneous calls one is let
/// through.
class ProgressGate final {
 public:
    /// An interval of zero lets every call through.
    explicit ProgressGate(std::chrono::milliseconds interval) : interval_(interval) {}

    /// Whether at least one interval has passed since the last call that returned true.
    [[nodiscard]] bool due();

 private:
    const std::chrono::steady_clock::duration interval_;
    std::atomic<std::chrono::steady_clock::rep> next_{0};
};

}  // namespace tarvin
