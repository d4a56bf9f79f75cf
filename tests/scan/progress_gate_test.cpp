#include "scan/progress_gate.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

TEST(ProgressGate, LetsEveryCallThroughWithoutAnInterval) {
    ProgressGate gate(0ms);
    for (int call = 0; call < 1000; ++call) {
        EXPECT_TRUE(gate.due());
    }
}

TEST(ProgressGate, LetsTheFirstCallThroughAtOnce) {
    ProgressGate gate(1h);
    EXPECT_TRUE(gate.due());
}

TEST(ProgressGate, BlocksCallsWithinTheInterval) {
    ProgressGate gate(1h);
    EXPECT_TRUE(gate.due());
    for (int call = 0; call < 1000; ++call) {
        EXPECT_FALSE(gate.due());
    }
}

TEST(ProgressGate, LetsACallThroughAfterTheInterval) {
    ProgressGate gate(20ms);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(gate.due());
    while (!gate.due()) {
        std::this_thread::yield();
    }
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 20ms);
}

TEST(ProgressGate, MeasuresTheIntervalFromTheLastCallLetThrough) {
    ProgressGate gate(5ms);
    const auto begin = std::chrono::steady_clock::now();
    int passed = 0;
    // Under load, 100 ms may pass between two calls.
    const auto isOver = [&](auto time) {
        return (passed >= 2 && time > 100ms) || time > testPatience;
    };
    while (!isOver(std::chrono::steady_clock::now() - begin)) {
        passed += gate.due() ? 1 : 0;
    }
    // At 0 ms and then at most once in 5 ms.
    const auto took = std::chrono::steady_clock::now() - begin;
    EXPECT_LE(passed, took / 5ms + 1);
    EXPECT_GE(passed, 2);
}

TEST(ProgressGate, LetsOneOfSeveralThreadsThrough) {
    for (int round = 0; round < 200; ++round) {
        ProgressGate gate(1h);
        std::atomic<int> passed{0};
        std::atomic<int> ready{0};
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&] {
                ++ready;
                while (ready != 4) {
                    std::this_thread::yield();
                }
                passed += gate.due() ? 1 : 0;
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(passed, 1);
    }
}

}  // namespace
}  // namespace tarvin
