#include "cli/interrupt.h"

#include "cli/command.h"
#include "platform/threads.h"

#include <cstdlib>
#include <utility>

namespace tarvin {

namespace {

/// As under nohup, or in the background of a shell without job control.
bool isIgnored(int signal) {
    struct sigaction action{};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

Interrupt::Interrupt() {
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGTERM);
    for (const int signal : {SIGINT, SIGHUP}) {
        if (!isIgnored(signal)) {
            sigaddset(&signals_, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &signals_, &maskBefore_);
}

Interrupt::~Interrupt() {
    if (thread_.joinable()) {
        ending_ = true;
        // Sent to that thread only, where it is blocked: sigwait() consumes it.
        // NOLINTNEXTLINE(bugprone-bad-signal-to-kill-thread)
        pthread_kill(thread_.native_handle(), SIGTERM);
        thread_.join();
    }
    pthread_sigmask(SIG_SETMASK, &maskBefore_, nullptr);
}

void Interrupt::watch(std::function<void()> first, std::function<void()> second) {
    first_ = std::move(first);
    second_ = std::move(second);
    thread_ = startThread([this] { waitForSignals(); });
    if (!thread_.joinable()) {
        // Without a thread, a Ctrl-C ends the program rather than having no effect.
        pthread_sigmask(SIG_SETMASK, &maskBefore_, nullptr);
    }
}

void Interrupt::waitForSignals() {
    for (const std::function<void()>* call : {&first_, &second_}) {
        int signal = 0;
        if (sigwait(&signals_, &signal) != 0 || ending_) {
            return;
        }
        (*call)();
    }
}

void quitAtOnce(const OutputFile& output) {
    output.removeTemporary();
    std::_Exit(static_cast<int>(ExitStatus::stopped));
}

}  // namespace tarvin
