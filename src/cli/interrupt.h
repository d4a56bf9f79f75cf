#pragma once

#include "report/output_file.h"

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

namespace tarvin {

/// Turns Ctrl-C (SIGINT), a closed terminal (SIGHUP) and SIGTERM into calls on a background thread,
/// where the limits of a signal handler do not apply. SIGINT or SIGHUP stays ignored if the program
/// was started so. At most one object per process, created on the main thread before any other
/// thread starts: it blocks the signals until watch().
class Interrupt final {
 public:
    Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;
    /// Blocks until a running call has returned, then restores the signal mask.
    ~Interrupt();

    /// Calls `first` for the first signal, even one that came before this call, and `second` for
    /// the second one. Further signals are ignored. Call at most once.
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

/// Ends the process with ExitStatus::stopped, without waiting for other threads. Only the temporary
/// file of `output` is removed. Any thread.
[[noreturn]] void quitAtOnce(const OutputFile& output);

}  // namespace tarvin
