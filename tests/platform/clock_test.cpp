#include "platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarvin {
namespace {

TEST(SystemClock, ReturnsTheDateAndTime) {
    const Timestamp before = std::chrono::system_clock::now();
    const Timestamp shown = systemClock().now();
    const Timestamp after = std::chrono::system_clock::now();
    EXPECT_LE(before, shown);
    EXPECT_LE(shown, after);
}

TEST(SystemClock, SteadyTimeNeverRunsBackwards) {
    const auto before = std::chrono::steady_clock::now();
    const auto first = systemClock().steadyNow();
    const auto second = systemClock().steadyNow();
    const auto after = std::chrono::steady_clock::now();
    EXPECT_LE(before, first);
    EXPECT_LE(first, second);
    EXPECT_LE(second, after);
}

TEST(SystemClock, IsOneObject) {
    EXPECT_EQ(&systemClock(), &systemClock());
}

}  // namespace
}  // namespace tarvin
