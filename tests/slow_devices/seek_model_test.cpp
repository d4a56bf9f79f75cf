#include "slow_devices/seek_model.h"

#include <gtest/gtest.h>

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
}

TEST(SeekModel, SeeksBackEvenAcrossASmallGap) {
    SeekModel model(figures());
    model.transfer(180'000, 0);
    EXPECT_GT(inMilliseconds(model.transfer(0, 0)), 4.9);
}

}  // namespace
}  // namespace tarvin::devices
