#include "scan/time_left.h"

#include "support/fake_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

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
    EXPECT_EQ(left_.left(), seconds(15));
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

TEST_F(TimeLeftTest, IsWithdrawnAfter30SecondsWithoutProgress) {
    run(seconds(10), 10'000);
    run(milliseconds(29'900), 0);
    EXPECT_NE(left_.left(), std::nullopt);
    run(milliseconds(100), 0);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(seconds(600), 0);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(milliseconds(9'800), 10'000);
    EXPECT_EQ(left_.left(), std::nullopt);
    run(milliseconds(200), 10'000);
    EXPECT_EQ(left_.left(), seconds(80));
}

TEST_F(TimeLeftTest, IsWithdrawnAbove99Hours) {
    left_.restart();
    const auto step = [this](std::uint64_t bytes) {
        clock_.advance(seconds(5));
        done_ += bytes;
        left_.update({done_, 100'000'000});
    };
    left_.update({0, 100'000'000});
    step(1'000'000);
    step(1'000'000);
    EXPECT_EQ(left_.left(), seconds(490));
    // At 1 byte each 5 s the time left grows beyond all bounds.
    std::chrono::seconds last{490};
    for (int steps = 0; left_.left() && steps < 100; ++steps) {
        last = *left_.left();
        step(1);
    }
    EXPECT_LE(last, std::chrono::hours(99));
    EXPECT_GT(last, std::chrono::hours(66));
    EXPECT_EQ(left_.left(), std::nullopt);
}

TEST_F(TimeLeftTest, AStallDuringAPauseIsNone) {
    run(seconds(10), 10'000);
    for (int pause = 0; pause < 10; ++pause) {
        run(seconds(4), 0);
        left_.pause();
        clock_.advance(seconds(60));
        left_.update({done_, total});
        run(seconds(1), 10'000);
    }
    EXPECT_NE(left_.left(), std::nullopt);
}

/// Bytes compared in each step of 0.1 s, by the number of the step; nothing during a pause.
struct Speed {
    const char* name;
    std::function<std::uint64_t(int)> bytesIn;
    std::function<bool(int)> isPaused = [](int) { return false; };
};

/// Simulated comparisons of 12,000,000 bytes.
class TimeLeftAtAnySpeed : public ::testing::TestWithParam<Speed> {
 protected:
    static constexpr std::uint64_t total = 12'000'000;
    static constexpr int steps = 12'000;  // 20 minutes

    void simulate() {
        left_.update({0, total});
        for (int step = 0; step < steps && done_ < total; ++step) {
            clock_.advance(milliseconds(100));
            if (GetParam().isPaused(step)) {
                left_.pause();
                expectCalm(step);
                continue;
            }
            ++running_;
            done_ = std::min(total, done_ + GetParam().bytesIn(step));
            left_.update({done_, total});
            expectCalm(step);
        }
    }

    /// Compares the estimate with the previous one.
    void expectCalm(int step) {
        const std::optional<seconds> now = left_.left();
        if (now == last_) {
            return;
        }
        SCOPED_TRACE("step " + std::to_string(step));
        if (now && last_) {
            EXPECT_GE(running_ - changed_, 50);
            EXPECT_GE(*now, *last_ / 2 - seconds(1));
            EXPECT_LE(*now, std::max(*last_, seconds(10)) * 3 / 2 + seconds(1));
        } else if (now) {
            EXPECT_GE(running_ - std::max(withdrawn_, 0), 98);
            EXPECT_GE(done_, total / 50);
        } else {
            withdrawn_ = running_;
        }
        seen_ = true;
        changed_ = running_;
        last_ = now;
    }

    FakeClock clock_;
    TimeLeft left_{clock_};
    std::uint64_t done_ = 0;
    int running_ = 0;
    int changed_ = 0;
    int withdrawn_ = 0;
    bool seen_ = false;
    std::optional<seconds> last_;
};

TEST_P(TimeLeftAtAnySpeed, NeverJumps) {
    simulate();
    EXPECT_TRUE(seen_);
}

INSTANTIATE_TEST_SUITE_P(
    Speeds, TimeLeftAtAnySpeed,
    ::testing::Values(
        Speed{"Constant", [](int) { return 4'000; }}, Speed{"VerySlow", [](int) { return 300; }},
        Speed{"DroppingByTen", [](int step) { return step < 600 ? 10'000 : 1'000; }},
        Speed{"RisingByTen", [](int step) { return step < 600 ? 1'000 : 10'000; }},
        Speed{"NearlyDoneThenSlow", [](int step) { return step < 590 ? 20'000 : 50; }},
        Speed{"InBursts", [](int step) { return step % 70 == 0 ? 200'000 : 0; }},
        Speed{"StallOfTenSeconds", [](int step) { return step > 300 && step < 400 ? 0 : 4'000; }},
        Speed{"StallsOfAMinute", [](int step) { return step / 600 % 2 == 1 ? 0 : 8'000; }},
        Speed{"StallOfTenMinutes", [](int step) { return step > 300 && step < 6'300 ? 0 : 8'000; }},
        Speed{"PausedNowAndThen", [](int step) { return step % 3 == 0 ? 9'000 : 2'000; },
              [](int step) { return step / 130 % 3 == 2; }},
        Speed{"PausedForTenMinutes", [](int) { return 4'000; },
              [](int step) { return step > 700 && step < 6'700; }}),
    [](const auto& info) { return std::string(info.param.name); });

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
