#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

namespace tarvin {

/// Ctrl-C (SIGINT), a closed terminal (SIGHUP) and SIGTERM as ordinary calls on a thread of their
/// own, where everything is allowed that is not inside a signal handler. Whoever started the
/// program with one of the first two ignored is obeyed. One object for the process, made on the
/// main thread before any other thread starts: from then on the signals wait until somebody
/// watches.
class Interrupt final {
 public:
    Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;
    /// Ends the watching, waiting for a call that is under way; then the signals do again what they
    /// did before.
    ~Interrupt();

    /// Calls `first` when the first of the signals comes, even if it came before this call, and
    /// `second` when another one does. Further ones are passed over. Once only.
    void watch(std::function<void()> first, std::function<void()> second);

 private:
    void waitForSignals();

    sigset_t signals_{};
    sigset_t maskBefore_{};
    std::function<void()> first_;
    std::function<void()> second_;
    std::atomic<bool> ending_{false};
    std::thread thread_;
};

}  // namespace tarvin
