#include "controller/home_image.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <cstdint>
#include <limits>

namespace tarvin {
namespace {

using Limits = std::numeric_limits<std::int32_t>;

std::int32_t counterOf(const char* stored) {
    return homeImageCounter(QString::fromUtf8(stored));
}

TEST(HomeImage, IsTheFirstIfNothingIsStored) {
    EXPECT_EQ(homeImageCounter({}), 1);
    EXPECT_EQ(homeImageName(1), "HomePage1.png");
}

TEST(HomeImage, IsTheOneOfTheCounter) {
    EXPECT_EQ(homeImageName(2), "HomePage2.png");
    EXPECT_EQ(homeImageName(3), "HomePage3.png");
}

TEST(HomeImage, IsTheFirstForAnyOtherCounter) {
    for (const std::int32_t counter : {0, -1, -2, 4, 5, Limits::max(), Limits::min()}) {
        EXPECT_EQ(homeImageName(counter), "HomePage1.png") << counter;
    }
}

TEST(HomeImage, GoesRoundFromStartToStart) {
    QStringList shown;
    QVariant stored;
    for (int start = 0; start < 7; ++start) {
        const std::int32_t counter = homeImageCounter(stored);
        shown += homeImageName(counter);
        stored = storedHomeImageCounter(nextHomeImageCounter(counter));
    }
    EXPECT_EQ(shown,
              QStringList({"HomePage1.png", "HomePage2.png", "HomePage3.png", "HomePage1.png",
                           "HomePage2.png", "HomePage3.png", "HomePage1.png"}));
}

TEST(HomeImageCounter, GrowsByOneExceptFromThree) {
    EXPECT_EQ(nextHomeImageCounter(1), 2);
    EXPECT_EQ(nextHomeImageCounter(2), 3);
    EXPECT_EQ(nextHomeImageCounter(3), 1);
    EXPECT_EQ(nextHomeImageCounter(4), 5);
    EXPECT_EQ(nextHomeImageCounter(0), 1);
    EXPECT_EQ(nextHomeImageCounter(-7), -6);
    EXPECT_EQ(nextHomeImageCounter(Limits::max()), Limits::min());
}

TEST(HomeImageCounter, IsStoredAsADecimalNumber) {
    EXPECT_EQ(storedHomeImageCounter(2), "2");
    EXPECT_EQ(storedHomeImageCounter(-12345), "-12345");
    EXPECT_EQ(storedHomeImageCounter(1'234'567), "1234567");
}

TEST(HomeImageCounter, IsReadAsADecimalNumber) {
    EXPECT_EQ(counterOf("2"), 2);
    EXPECT_EQ(counterOf(" 3 "), 3);
    EXPECT_EQ(counterOf("+2"), 2);
    EXPECT_EQ(counterOf("-2"), -2);
    EXPECT_EQ(counterOf("007"), 7);
    EXPECT_EQ(counterOf("2nd"), 2);
    EXPECT_EQ(counterOf("3.9"), 3);
    EXPECT_EQ(homeImageCounter(3), 3);
}

TEST(HomeImageCounter, IsZeroForOtherTexts) {
    for (const char* nonsense :
         {"", " ", "two", "-", "+", "+-2", "--2", "- 2", "x3", "\xc2\xb2", "\xd9\xa2", "0x3"}) {
        EXPECT_EQ(counterOf(nonsense), 0) << nonsense;
    }
    EXPECT_EQ(homeImageCounter(QStringList({"2", "3"})), 0);
    EXPECT_EQ(homeImageCounter(QVariant::fromValue<void*>(nullptr)), 0);
}

TEST(HomeImageCounter, IsClampedTo32Bits) {
    EXPECT_EQ(counterOf("2147483647"), Limits::max());
    EXPECT_EQ(counterOf("2147483648"), Limits::max());
    EXPECT_EQ(counterOf("-99999999999999999999"), Limits::min());
}

TEST(HomeTexts, SayWhatWasCleanedSoFar) {
    EXPECT_EQ(HomeTexts::cleanHistory(12, 3'450'000), "Files cleaned so far: 12 (3.45 MB)");
    EXPECT_EQ(HomeTexts::cleanHistory(1'234'567, 0), "Files cleaned so far: 1234567 (0.00 KB)");
    EXPECT_EQ(HomeTexts::cleanHistory(std::numeric_limits<std::int64_t>::max(), 1),
              "Files cleaned so far: 9223372036854775807 (0.00 KB)");
}

}  // namespace
}  // namespace tarvin
