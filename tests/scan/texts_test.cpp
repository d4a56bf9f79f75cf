#include "scan/texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

struct SizeRow {
    std::uint64_t bytes;
    std::string_view text;
};

void expectSizes(const std::vector<SizeRow>& rows) {
    for (const SizeRow& row : rows) {
        EXPECT_EQ(getFormattedStringForSize(row.bytes), row.text) << row.bytes;
    }
}

struct TimeRow {
    double seconds;
    std::string_view text;
};

void expectTimes(const std::vector<TimeRow>& rows) {
    for (const TimeRow& row : rows) {
        EXPECT_EQ(getTimeFormStringForInterval(row.seconds),
                  std::string("Elapsed Time: ").append(row.text))
            << row.seconds;
    }
}

TEST(SizeText, HasDecimalUnitsAndTwoDecimals) {
    expectSizes({{0, "0.00 KB"},
                 {1, "0.00 KB"},
                 {999, "1.00 KB"},
                 {1'024, "1.02 KB"},
                 {999'994, "999.99 KB"},
                 {1'000'000, "1.00 MB"},
                 {1'048'576, "1.05 MB"},
                 {123'456'789, "123.46 MB"},
                 {1'000'000'000, "1.00 GB"},
                 {123'456'789'012, "123.46 GB"}});
}

TEST(SizeText, ChoosesTheUnitByBytesBeforeRounding) {
    expectSizes({{999'999, "1000.00 KB"},
                 {1'000'000, "1.00 MB"},
                 {999'999'999, "1000.00 MB"},
                 {1'000'000'000, "1.00 GB"}});
}

TEST(SizeText, HasNoUnitAboveGigabytes) {
    expectSizes({{999'999'999'999, "1000.00 GB"},
                 {5'000'000'000'000, "5000.00 GB"},
                 {std::uint64_t{1} << 63, "9223371776.00 GB"},
                 {std::numeric_limits<std::uint64_t>::max(), "18446743552.00 GB"}});
}

TEST(SizeText, HasNoUnitBelowKilobytes) {
    expectSizes({{4, "0.00 KB"}, {5, "0.00 KB"}, {6, "0.01 KB"}, {994, "0.99 KB"}});
}

TEST(SizeText, IsDividedInSinglePrecision) {
    // In double precision these would be 0.99 KB, 1000.00 KB, 1000.00 MB and 1234567.89 GB.
    expectSizes({{995, "1.00 KB"},
                 {999'995, "999.99 KB"},
                 {999'995'000, "999.99 MB"},
                 {1'234'567'890'123'456, "1234568.00 GB"}});
}

/// Formats numbers with a decimal comma.
class CommaNumbers final : public std::numpunct<char> {
 protected:
    char do_decimal_point() const override { return ','; }
};

TEST(SizeText, HasADecimalPointInALocaleWithAComma) {
    const std::locale before = std::locale::global(
        std::locale(std::locale::classic(), std::make_unique<CommaNumbers>().release()));
    EXPECT_EQ(getFormattedStringForSize(1'048'576), "1.05 MB");
    std::locale::global(before);
}

TEST(SizeText, HasADecimalPointInAllInstalledLocales) {
    // NOLINTBEGIN(concurrency-mt-unsafe): no other thread formats numbers.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"", "C", "C.UTF-8", "de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "fr_FR"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(getFormattedStringForSize(1'048'576), "1.05 MB") << name;
    }
    std::setlocale(LC_ALL, before.c_str());
    // NOLINTEND(concurrency-mt-unsafe)
}

TEST(TimeText, CountsSecondsMinutesAndHours) {
    expectTimes({{0.0, "00:00:00"},
                 {1.0, "00:00:01"},
                 {59.0, "00:00:59"},
                 {60.0, "00:01:00"},
                 {119.0, "00:01:59"},
                 {3'599.0, "00:59:59"},
                 {3'600.0, "01:00:00"},
                 {35'999.0, "09:59:59"},
                 {36'000.0, "10:00:00"},
                 {86'399.0, "23:59:59"}});
}

TEST(TimeText, TruncatesFractionsOfASecond) {
    expectTimes({{0.999, "00:00:00"},
                 {59.999, "00:00:59"},
                 {61.5, "00:01:01"},
                 {3'661.5, "01:01:01"},
                 {86'399.999, "23:59:59"}});
}

TEST(TimeText, MayLoseASecondBecauseSecondsAreAFractionOfAMinute) {
    expectTimes({{61.0, "00:01:00"}, {62.0, "00:01:02"}, {3'661.0, "01:01:00"}});
}

TEST(TimeText, HoursWrapAtTwentyFour) {
    expectTimes({{86'400.0, "00:00:00"},
                 {90'000.0, "01:00:00"},
                 {90'061.5, "01:01:01"},
                 {1e9, "01:46:39"},
                 {1e15, "01:46:39"}});
}

TEST(TimeText, ShowsNegativeTimesAndNanAsZero) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    expectTimes({{-0.0, "00:00:00"},
                 {-0.5, "00:00:00"},
                 {-61.5, "00:00:00"},
                 {-infinity, "00:00:00"},
                 {std::numeric_limits<double>::quiet_NaN(), "00:00:00"}});
}

TEST(TimeText, ShowsTimesBeyond64BitsAsZero) {
    expectTimes({{1.1068046444225728e21, "16:00:00"},
                 {1.1068046444225731e21, "00:00:00"},
                 {std::numeric_limits<double>::max(), "00:00:00"},
                 {std::numeric_limits<double>::infinity(), "00:00:00"}});
}

TEST(ScanTexts, AreThoseOfTheProduct) {
    EXPECT_EQ(collectingFilesText(), "Collecting Files...");
    EXPECT_EQ(collectingFileText("/home/ann/a.jpg"), "Collecting Files: /home/ann/a.jpg");
    EXPECT_EQ(noDuplicatesText(), "No duplicates File found");
}

TEST(ScanTexts, CopyPathsByteForByte) {
    EXPECT_EQ(collectingFileText("/a\xff%@%s\n"), "Collecting Files: /a\xff%@%s\n");
    EXPECT_EQ(collectingFileText(""), "Collecting Files: ");
}

}  // namespace
}  // namespace tarvin
