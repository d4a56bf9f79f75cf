#include "slow_devices/seek_model.h"

#include "random.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tarvin::devices {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

constexpr std::uint64_t gigabyte = 1'000'000'000;

DiskFigures figures() {
    return {.bytes = gigabyte};
}

double inMilliseconds(nanoseconds time) {
    return static_cast<double>(time.count()) / 1e6;
}

TEST(SeekModel, ReadsInOrderAtTheRateOfTheDisk) {
    SeekModel model(figures());
    nanoseconds time{};
    for (std::uint64_t offset = 0; offset < 180'000'000; offset += 1'000'000) {
        time += model.transfer(offset, 1'000'000);
    }
    EXPECT_NEAR(inMilliseconds(time), 1000, 0.01);
    EXPECT_EQ(model.seeks(), 0U);
    EXPECT_EQ(model.seekTime(), nanoseconds(0));
}

TEST(SeekModel, ASeekTakesLongerTheFartherItGoes) {
    SeekModel model(figures());
    model.transfer(0, 4096);
    const double near = inMilliseconds(model.transfer(10'000'000, 0));
    const double third = inMilliseconds(model.transfer(10'000'000 + gigabyte / 3, 0));
    model.transfer(0, 0);
    const double all = inMilliseconds(model.transfer(gigabyte, 0));
    EXPECT_NEAR(near, 0.8 + 13.2 * 0.1 + 4.17, 0.01);
    EXPECT_NEAR(third, 0.8 + 13.2 * 0.577 + 4.17, 0.01);
    EXPECT_NEAR(all, 14 + 4.17, 0.01);
    EXPECT_EQ(model.seeks(), 4U);
}

TEST(SeekModel, WaitsForASmallGapInsteadOfSeeking) {
    SeekModel model(figures());
    model.transfer(0, 180'000);
    EXPECT_NEAR(inMilliseconds(model.transfer(360'000, 180'000)), 2, 0.01);
    EXPECT_EQ(model.seeks(), 0U);
    EXPECT_NEAR(inMilliseconds(model.seekTime()), 1, 0.01);
}

TEST(SeekModel, SeeksForwardAcrossAGapThatTakesLonger) {
    SeekModel model(figures());
    // 0.8 ms to settle, 0.42 ms for a thousandth of the way, and half a turn of 4.17 ms.
    EXPECT_NEAR(inMilliseconds(model.transfer(1'000'000, 0)), 5.38, 0.01);
    EXPECT_EQ(model.seeks(), 1U);
    // 900 kB pass under the head in 5 ms.
    EXPECT_NEAR(inMilliseconds(model.transfer(1'900'000, 0)), 5, 0.01);
    EXPECT_EQ(model.seeks(), 1U);
}

TEST(SeekModel, SeeksBackEvenAcrossASmallGap) {
    SeekModel model(figures());
    model.transfer(180'000, 0);
    EXPECT_EQ(model.seeks(), 0U);
    EXPECT_GT(inMilliseconds(model.transfer(0, 0)), 4.9);
    EXPECT_EQ(model.seeks(), 1U);
}

TEST(SeekModel, RandomReadsTakeAMeanSeekAndHalfATurn) {
    constexpr int reads = 10'000;
    constexpr std::uint64_t block = 4096;
    constexpr std::uint64_t bytes = 1'000 * gigabyte;
    SeekModel model({.bytes = bytes});
    bench::Random random(1);
    nanoseconds time{};
    for (int number = 0; number < reads; ++number) {
        time += model.transfer(random.below(bytes / block) * block, block);
    }
    // The mean root of the distance of two places is 8/15: 0.8 ms + 13.2 ms * 8/15 for the arm,
    // 4.17 ms for half a turn, 0.02 ms for 4 KiB. The deviation is 2.9 ms, of the mean 0.03 ms.
    EXPECT_NEAR(inMilliseconds(time) / reads, 12.03, 0.09);
    EXPECT_NEAR(inMilliseconds(model.seekTime()) / reads, 12.01, 0.09);
    EXPECT_GE(model.seeks(), reads - 1U);
}

TEST(SeekModel, TimeIsSeekingAndTransferring) {
    SeekModel model(figures());
    bench::Random random(2);
    nanoseconds time{};
    for (int number = 0; number < 100; ++number) {
        time += model.transfer(random.below(gigabyte), 1'800'000);
    }
    EXPECT_NEAR(inMilliseconds(time - model.seekTime()), 1000, 0.01);
    EXPECT_GT(inMilliseconds(model.seekTime()), 1000);
}

}  // namespace
}  // namespace tarvin::devices
