#pragma once

#include "scan/inner_wait.h"

#include <atomic>

namespace tarvin {

/// The pause and stop flags of a scan. Any thread. Workers poll them at least every few
/// milliseconds, except during a file-system call.
class ScanControl final {
 public:
    ScanControl() = default;
    ScanControl(const ScanControl&) = delete;
    ScanControl& operator=(const ScanControl&) = delete;

    [[nodiscard]] bool pause() const { return pause_.load(std::memory_order_acquire); }
    [[nodiscard]] bool stop() const { return stop_.load(std::memory_order_acquire); }
    /// The scan was stopped because memory ran out.
    [[nodiscard]] bool outOfMemory() const { return outOfMemory_.load(std::memory_order_acquire); }

    /// Clearing the flag wakes the waiting workers.
    void setPause(bool pause) {
        pause_.store(pause, std::memory_order_release);
        pause_.notify_all();
    }

    void setStop(bool stop) { stop_.store(stop, std::memory_order_release); }

    /// Sets the stop and clears the pause, so that waiting workers see it.
    void requestStop() {
        setStop(true);
        setPause(false);
    }

    /// Stops the scan because memory ran out.
    void stopForLackOfMemory() {
        outOfMemory_.store(true, std::memory_order_release);
        requestStop();
    }

    /// Blocks while the scan is paused. Costs one load if it is not.
    void waitWhilePaused() const {
        if (!pause()) {
            return;
        }
        const InnerWait wait;
        while (pause()) {
            pause_.wait(true, std::memory_order_acquire);
        }
    }

    /// Blocks while the scan is paused, then returns whether to continue.
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
