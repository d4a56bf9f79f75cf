#include "scan/elapsed_time_thread.h"

#include "platform/threads.h"
#include "scan/texts.h"

#include <utility>

namespace tarvin {

ElapsedTimeThread::ElapsedTimeThread(Clock& clock, ScanObserver& observer,
                                     std::chrono::milliseconds step, std::function<bool()> isPaused)
    : clock_(clock), observer_(observer), step_(step), isPaused_(std::move(isPaused)) {}

ElapsedTimeThread::~ElapsedTimeThread() {
    end();
    wait();
}

void ElapsedTimeThread::startElapsedTimeThread(Timestamp scanStart) {
    stopElapsedTimeThread_ = false;
    thread_ = startThread([this, scanStart] { elapsedTimeThreadSavingData(scanStart); });
}

void ElapsedTimeThread::end() {
    {
        const std::lock_guard lock(mutex_);
        stopElapsedTimeThread_ = true;
    }
    ended_.notify_all();
}

void ElapsedTimeThread::wait() {
    if (thread_.joinable()) {
        thread_.join();
    }
}

void ElapsedTimeThread::elapsedTimeThreadSavingData(Timestamp scanStart) {
    double pausedSeconds = 0;
    while (sleepOneStep()) {
        bool goesOn = true;
        while (goesOn && isPaused_()) {
            pausedSeconds += 1.0;
            goesOn = sleepOneStep();
        }
        if (!goesOn) {
            return;
        }
        const std::chrono::duration<double> sinceStart = clock_.now() - scanStart;
        observer_.elapsed(getTimeFormStringForInterval(sinceStart.count() - pausedSeconds));
    }
}

/// Returns false, and at once, when the thread is to end.
bool ElapsedTimeThread::sleepOneStep() {
    std::unique_lock lock(mutex_);
    return !ended_.wait_for(lock, step_, [this] { return stopElapsedTimeThread_.load(); });
}

}  // namespace tarvin
