#pragma once

#include "platform/clock.h"
#include "platform/timestamp.h"
#include "scan/scan_observer.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace tarvin {

/// Reports the elapsed time of a scan, without its pauses, on a background thread. Where the system
/// gives no thread, nothing is reported.
///
/// The functions belong to the owner's thread, except for end() and stopElapsedTimeThread(): any
/// thread.
class ElapsedTimeThread final {
 public:
    /// Reports after each `step`. A step of any length that ends during a pause counts as one
    /// second of pause. `isPaused` is called on the background thread. The references must outlive
    /// this object.
    ElapsedTimeThread(Clock& clock, ScanObserver& observer, std::chrono::milliseconds step,
                      std::function<bool()> isPaused);
    ElapsedTimeThread(const ElapsedTimeThread&) = delete;
    ElapsedTimeThread& operator=(const ElapsedTimeThread&) = delete;
    /// Ends the thread and waits for it.
    ~ElapsedTimeThread();

    /// Starts the thread for a scan that began at `scanStart`. An earlier thread must have been
    /// waited for.
    void startElapsedTimeThread(Timestamp scanStart);
    /// Ends the thread soon. Returns immediately.
    void end();
    /// Blocks until the thread has ended.
    void wait();

    /// False while the thread is to run.
    [[nodiscard]] bool stopElapsedTimeThread() const { return stopElapsedTimeThread_; }

 private:
    void elapsedTimeThreadSavingData(Timestamp scanStart);
    [[nodiscard]] bool sleepOneStep();

    Clock& clock_;
    ScanObserver& observer_;
    const std::chrono::milliseconds step_;
    const std::function<bool()> isPaused_;
    std::mutex mutex_;
    std::condition_variable ended_;
    std::atomic<bool> stopElapsedTimeThread_{true};  // set to true with mutex_ held
    std::thread thread_;
};

}  // namespace tarvin
