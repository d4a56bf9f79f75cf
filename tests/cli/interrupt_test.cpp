#include "cli/interrupt.h"

#include "support/waiting.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <thread>

namespace tarvin {
namespace {

/// Counts calls and lets a test wait for them.
class Counter final {
 public:
    void count() { ++calls_; }
    [[nodiscard]] int calls() const { return calls_; }
    void waitForOne() const {
        EXPECT_TRUE(waitUntil([this] { return calls_ > 0; }));
    }

 private:
    std::atomic<int> calls_{0};
};

/// Two counters and the object that calls them.
struct Watched {
    Counter first;
    Counter second;
    Interrupt interrupt;

    void watch() {
        interrupt.watch([this] { first.count(); }, [this] { second.count(); });
    }
};

bool isBlocked(int signal) {
    sigset_t mask{};
    pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    return sigismember(&mask, signal) == 1;
}

void sendToProgram(int signal) {
    ::kill(::getpid(), signal);
}

TEST(Interrupt, EndsQuietlyWhenNoSignalCame) {
    Watched watched;
    watched.watch();
    EXPECT_EQ(watched.first.calls(), 0);
    EXPECT_EQ(watched.second.calls(), 0);
}

TEST(Interrupt, TheFirstSignalMakesTheFirstCall) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Watched watched;
        watched.watch();
        sendToProgram(signal);
        watched.first.waitForOne();
        EXPECT_EQ(watched.second.calls(), 0) << signal;
    }
}

TEST(Interrupt, TheSecondSignalMakesTheSecondCall) {
    Watched watched;
    watched.watch();
    sendToProgram(SIGINT);
    watched.first.waitForOne();
    sendToProgram(SIGINT);
    watched.second.waitForOne();
    EXPECT_EQ(watched.first.calls(), 1);
    EXPECT_EQ(watched.second.calls(), 1);
}

TEST(Interrupt, ASignalBeforeWatchIsKept) {
    Watched watched;
    sendToProgram(SIGINT);
    watched.watch();
    watched.first.waitForOne();
    EXPECT_EQ(watched.first.calls(), 1);
}

TEST(Interrupt, FurtherSignalsAreIgnored) {
    // A third signal still pending would end the program in the destructor.
    static_cast<void>(std::signal(SIGTERM, SIG_IGN));
    {
        Watched watched;
        watched.watch();
        sendToProgram(SIGINT);
        watched.first.waitForOne();
        sendToProgram(SIGINT);
        watched.second.waitForOne();
        sendToProgram(SIGTERM);
        EXPECT_EQ(watched.first.calls(), 1);
        EXPECT_EQ(watched.second.calls(), 1);
    }
    static_cast<void>(std::signal(SIGTERM, SIG_DFL));
}

TEST(Interrupt, SignalsIgnoredAtStartStayIgnored) {
    for (const int signal : {SIGINT, SIGHUP}) {
        static_cast<void>(std::signal(signal, SIG_IGN));
        {
            Watched watched;
            watched.watch();
            sendToProgram(signal);
            sendToProgram(SIGTERM);
            watched.first.waitForOne();
            EXPECT_EQ(watched.second.calls(), 0) << signal;
        }
        static_cast<void>(std::signal(signal, SIG_DFL));
    }
}

TEST(Interrupt, LaterThreadsDoNotReceiveTheSignals) {
    const Interrupt interrupt;
    bool blocked = false;
    std::thread([&blocked] {
        blocked = isBlocked(SIGINT) && isBlocked(SIGTERM) && isBlocked(SIGHUP);
    }).join();
    EXPECT_TRUE(blocked);
}

TEST(Interrupt, TheDestructorRestoresTheSignalMask) {
    {
        Watched watched;
        watched.watch();
    }
    EXPECT_FALSE(isBlocked(SIGINT));
    EXPECT_FALSE(isBlocked(SIGTERM));
    EXPECT_FALSE(isBlocked(SIGHUP));
}

}  // namespace
}  // namespace tarvin
