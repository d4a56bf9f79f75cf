#include "scan/time_left.h"

#include "support/fake_platform.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

namespace tarvin {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class TimeLeftTest : public ::testing::Test {
 protected:
    TimeLeftTest() { left_.update({0, total}); }

    /// Advances by `time` in steps of 0.1 s while `bytesASecond` are compared.
    void run(milliseconds time, std::uint64_t bytesASecond) {
        for (milliseconds gone{0}; gone < time; gone += milliseconds(100)) {
            clock_.advance(milliseconds(100));
            done_ += bytesASecond / 10;
            left_.update({done_, total});
        }
    }

    static constexpr std::uint64_t total = 1'000'000;
    FakeClock clock_;
    TimeLeft left_{clock_};
    std::uint64_t done_ = 0;
};

TEST_F(TimeLeftTest, IsUnknownBefore10Seconds) {
    run(milliseconds(9'900), 10'000);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(milliseconds(100), 10'000);
    EXPECT_EQ(left_.left(), seconds(90));
}

TEST_F(TimeLeftTest, IsUnknownBefore2Percent) {
    run(milliseconds(19'900), 1'000);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(milliseconds(100), 1'000);
    EXPECT_EQ(left_.left(), seconds(980));
}

TEST_F(TimeLeftTest, ChangesAtMostEvery5Seconds) {
    run(seconds(10), 10'000);
    run(milliseconds(4'900), 10'000);
    EXPECT_EQ(left_.left(), seconds(90));
    run(milliseconds(100), 10'000);
    EXPECT_EQ(left_.left(), seconds(85));
}

TEST_F(TimeLeftTest, FallsAtMostByHalf) {
    run(seconds(10), 4'000);
    EXPECT_EQ(left_.left(), seconds(240));
    run(seconds(5), 150'000);
    EXPECT_EQ(left_.left(), seconds(120));
    run(seconds(5), 1'000);
    EXPECT_EQ(left_.left(), seconds(60));
}

TEST_F(TimeLeftTest, RisesAtMostByHalf) {
    run(seconds(10), 10'000);
    EXPECT_EQ(left_.left(), seconds(90));
    run(seconds(5), 0);
    EXPECT_EQ(left_.left(), seconds(135));
}

TEST_F(TimeLeftTest, RisesFromNearlyNothing) {
    run(seconds(19), 50'000);
    run(seconds(6), 4'000);
    EXPECT_EQ(left_.left(), seconds(1));
    left_.update({done_, 10 * total});
    clock_.advance(seconds(5));
    left_.update({done_, 10 * total});
    EXPECT_EQ(left_.left(), seconds(60));
}

TEST_F(TimeLeftTest, FollowsRecentProgress) {
    run(seconds(60), 1'000);
    EXPECT_EQ(left_.left(), seconds(940));
    run(seconds(120), 4'000);
    // The mean of all progress gives 153 s, the last rate 115 s.
    EXPECT_EQ(left_.left(), seconds(116));
}

TEST_F(TimeLeftTest, SmoothesAnUnevenRate) {
    for (int round = 0; round < 6; ++round) {
        run(seconds(5), 8'000);
        run(seconds(5), 10'000);
    }
    // At 9,000 bytes a second: 51.1 s.
    EXPECT_EQ(left_.left(), seconds(51));
}

TEST_F(TimeLeftTest, DoesNotCountAPause) {
    run(seconds(9), 10'000);
    left_.pause();
    clock_.advance(std::chrono::hours(1));
    left_.update({done_, total});
    EXPECT_EQ(left_.left(), std::nullopt);
    run(seconds(1), 10'000);
    EXPECT_EQ(left_.left(), seconds(90));
}

TEST_F(TimeLeftTest, PauseKeepsTheEstimate) {
    run(seconds(10), 10'000);
    left_.pause();
    EXPECT_EQ(left_.left(), seconds(90));
}

TEST_F(TimeLeftTest, BytesDoneDuringAPauseAreNotProgress) {
    run(seconds(9), 10'000);
    left_.pause();
    done_ += 500'000;
    left_.update({done_, total});
    run(seconds(1), 10'000);
    EXPECT_EQ(left_.left(), seconds(40));
}

TEST_F(TimeLeftTest, IsWithheldAfterALongStall) {
    run(seconds(10), 10'000);
    run(seconds(210), 0);
    EXPECT_EQ(left_.left(), seconds(347'948));
    run(seconds(5), 0);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(seconds(5), 10'000);
    EXPECT_NE(left_.left(), std::nullopt);
}

TEST_F(TimeLeftTest, RestartForgetsEverything) {
    run(seconds(10), 10'000);
    left_.restart();
    EXPECT_EQ(left_.left(), std::nullopt);
    done_ = 0;
    left_.update({0, total});
    run(milliseconds(9'900), 20'000);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(milliseconds(100), 20'000);
    EXPECT_EQ(left_.left(), seconds(40));
}

TEST_F(TimeLeftTest, IgnoresUnknownTotals) {
    left_.restart();
    left_.update({0, 0});
    clock_.advance(seconds(60));
    left_.update({0, 0});
    left_.update({0, total});
    run(milliseconds(9'900), 10'000);
    EXPECT_EQ(left_.left(), std::nullopt);
}

TEST_F(TimeLeftTest, NothingToCompareHasNoTime) {
    left_.restart();
    for (int step = 0; step < 20; ++step) {
        clock_.advance(seconds(1));
        left_.update({0, 0});
    }
    EXPECT_EQ(left_.left(), std::nullopt);
}

}  // namespace
}  // namespace tarvin
