#pragma once

#include <atomic>

namespace tarvin {

/// The two flags through which whoever runs a scan speaks to its workers. Both may be set and read
/// on any thread; workers look at them between any two pieces of work, never more than a few
/// milliseconds apart.
class ScanControl final {
 public:
    ScanControl() = default;
    ScanControl(const ScanControl&) = delete;
    ScanControl& operator=(const ScanControl&) = delete;

    [[nodiscard]] bool pause() const { return pause_.load(std::memory_order_acquire); }
    [[nodiscard]] bool stop() const { return stop_.load(std::memory_order_acquire); }
    /// Memory ran out, which stopped the scan.
    [[nodiscard]] bool outOfMemory() const { return outOfMemory_.load(std::memory_order_acquire); }

    /// Workers that wait go on when the flag is cleared.
    void setPause(bool pause) {
        pause_.store(pause, std::memory_order_release);
        pause_.notify_all();
    }

    void setStop(bool stop) { stop_.store(stop, std::memory_order_release); }

    /// Stops the scan because there is no memory to go on with. Any thread of the scan.
    void stopForLackOfMemory() {
        outOfMemory_.store(true, std::memory_order_release);
        setStop(true);
        setPause(false);
    }

    /// Returns when the scan is not paused; costs one load if it is not.
    void waitWhilePaused() const {
        while (pause()) {
            pause_.wait(true, std::memory_order_acquire);
        }
    }

    /// Waits out a pause, then says whether to go on: the check between two pieces of work.
    [[nodiscard]] bool mayGoOn() const {
        waitWhilePaused();
        return !stop();
    }

 private:
    std::atomic<bool> pause_{false};
    std::atomic<bool> stop_{false};
    std::atomic<bool> outOfMemory_{false};
};

}  // namespace tarvin
