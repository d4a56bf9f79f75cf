#include "report/value_texts.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarvin {
namespace {

using std::chrono::nanoseconds;

TEST(IsoDate, TheEpoch) {
    EXPECT_EQ(isoDate(Timestamp{}), "1970-01-01T00:00:00.000000000Z");
}

TEST(IsoDate, EveryDigitIsWritten) {
    EXPECT_EQ(isoDate(Timestamp{nanoseconds{1769860800123456789}}),
              "2026-01-31T12:00:00.123456789Z");
    EXPECT_EQ(isoDate(Timestamp{nanoseconds{1078056549000000007}}),
              "2004-02-29T12:09:09.000000007Z");
}

TEST(IsoDate, DatesBefore1970CountBackwards) {
    EXPECT_EQ(isoDate(Timestamp{nanoseconds{-1}}), "1969-12-31T23:59:59.999999999Z");
}

TEST(IsoDate, TheLimitsOfATimestamp) {
    EXPECT_EQ(isoDate(Timestamp::max()), "2262-04-11T23:47:16.854775807Z");
    EXPECT_EQ(isoDate(Timestamp::min()), "1677-09-21T00:12:43.145224192Z");
}

}  // namespace
}  // namespace tarvin
