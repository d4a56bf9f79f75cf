#include "controller/file_properties.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>

namespace tarvin {
namespace {

/// Sets the time zone of the process during its lifetime.
class TimeZone final {
 public:
    explicit TimeZone(const char* name) {
        if (const char* const former = std::getenv("TZ")) {
            former_ = former;
        }
        set(name);
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() { set(former_ ? former_->c_str() : nullptr); }

 private:
    static void set(const char* name) {
        name != nullptr ? ::setenv("TZ", name, 1) : ::unsetenv("TZ");
        ::tzset();
    }

    std::optional<std::string> former_;
};

/// A time in UTC.
Timestamp at(int year, int month, int day, std::chrono::nanoseconds time) {
    return std::chrono::sys_days(std::chrono::year(year) / month / day) + time;
}

using namespace std::chrono_literals;

class FilePropertiesTest : public ::testing::Test {
 protected:
    FilePropertiesTest() {
        attributes_.size = 1'048'576;
        attributes_.created = at(2021, 2, 3, 4h + 5min + 6s);
        attributes_.modified = at(2022, 11, 12, 13h + 14min + 15s);
    }

    TimeZone utc_{"UTC"};
    FileAttributes attributes_;
};

TEST_F(FilePropertiesTest, OfAnImageHaveItsDimensions) {
    EXPECT_EQ(FileProperties::getImageProperties(attributes_, "/home/ann/a b.png", {4000, 3000}),
              " a b.png\n"
              "Size                          : 1.05 MB\n"
              "Image Dimensions   : 4000x3000\n"
              "Created Date           : 2021-02-03 04:05:06\n"
              "Modified Date         : 2022-11-12 13:14:15");
}

TEST_F(FilePropertiesTest, OfAnyFileHaveNone) {
    EXPECT_EQ(FileProperties::getAllProperties(attributes_, "/home/ann/a b.png"),
              " a b.png\n"
              "Size                       : 1.05 MB\n"
              "Created Date        : 2021-02-03 04:05:06\n"
              "Modified Date       : 2022-11-12 13:14:15");
}

TEST_F(FilePropertiesTest, KeepRunsOfSpaces) {
    const QString image = FileProperties::getImageProperties(attributes_, "/a", {1, 1});
    EXPECT_TRUE(image.contains("Size" + QString(26, ' ') + ": "));
    EXPECT_TRUE(image.contains("\nImage Dimensions" + QString(3, ' ') + ": "));
    EXPECT_TRUE(image.contains("\nCreated Date" + QString(11, ' ') + ": "));
    EXPECT_TRUE(image.contains("\nModified Date" + QString(9, ' ') + ": "));
    const QString any = FileProperties::getAllProperties(attributes_, "/a");
    EXPECT_TRUE(any.contains("Size" + QString(23, ' ') + ": "));
    EXPECT_TRUE(any.contains("\nCreated Date" + QString(8, ' ') + ": "));
    EXPECT_TRUE(any.contains("\nModified Date" + QString(7, ' ') + ": "));
}

TEST_F(FilePropertiesTest, PrintFractionsOfDimensions) {
    EXPECT_TRUE(FileProperties::getImageProperties(attributes_, "/a", {100.5, 0.25})
                    .contains(": 100.5x0.25\n"));
}

TEST_F(FilePropertiesTest, ShowOddNamesInOneLine) {
    EXPECT_TRUE(FileProperties::getAllProperties(attributes_, "/x/a\nSize : %1 \xff\xe2\x80\xaeg")
                    .startsWith(QStringLiteral(" a\uFFFDSize : %1 \uFFFD\uFFFDg\nSize   ")));
}

TEST_F(FilePropertiesTest, LeaveOutWhatAFileSystemDoesNotRecord) {
    attributes_.created.reset();
    EXPECT_EQ(FileProperties::getAllProperties(attributes_, "/a"),
              " a\n"
              "Size                       : 1.05 MB\n"
              "Created Date        : \n"
              "Modified Date       : 2022-11-12 13:14:15");
}

TEST_F(FilePropertiesTest, AreShownWithoutAttributes) {
    const TemporaryFolder folder;
    const std::string gone = folder.pathOf("gone.png");
    EXPECT_EQ(FileProperties::getAllProperties(systemFileSystem(), gone),
              " gone.png\n"
              "Size                       : \n"
              "Created Date        : \n"
              "Modified Date       : ");
    EXPECT_EQ(FileProperties::getImageProperties(systemFileSystem(), gone, {}),
              " gone.png\n"
              "Size                          : \n"
              "Image Dimensions   : \n"
              "Created Date           : \n"
              "Modified Date         : ");
}

TEST_F(FilePropertiesTest, AreThoseOfTheDisk) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("M\xFC.txt", std::string(1500, 'x'));
    std::filesystem::last_write_time(
        path, std::chrono::file_clock::from_sys(at(2020, 1, 2, 3h + 4min + 5s)));
    const QString sheet = FileProperties::getAllProperties(systemFileSystem(), path);
    EXPECT_TRUE(sheet.startsWith(QStringLiteral(" M\uFFFD.txt\nSize ")));
    EXPECT_TRUE(sheet.contains(": 1.50 KB\n"));
    EXPECT_TRUE(sheet.endsWith(": 2020-01-02 03:04:05"));
    const auto attributes = systemFileSystem().attributesAtPath(path);
    ASSERT_TRUE(attributes);
    EXPECT_TRUE(sheet.contains(
        "\nCreated Date        : " + FileProperties::dateToString(attributes->created) + '\n'));
}

TEST_F(FilePropertiesTest, ShowDatesInTheTimeZoneOfTheMachine) {
    const Timestamp newYear = at(2020, 1, 1, 0h);
    EXPECT_EQ(FileProperties::dateToString(newYear), "2020-01-01 00:00:00");
    {
        const TimeZone west("WST5");
        EXPECT_EQ(FileProperties::dateToString(newYear), "2019-12-31 19:00:00");
    }
    const TimeZone summer("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(FileProperties::dateToString(newYear), "2020-01-01 01:00:00");
    EXPECT_EQ(FileProperties::dateToString(at(2020, 7, 1, 22h)), "2020-07-02 00:00:00");
}

TEST_F(FilePropertiesTest, CutFractionsOfASecondOff) {
    EXPECT_EQ(FileProperties::dateToString(at(2020, 1, 1, 999'999'999ns)), "2020-01-01 00:00:00");
    EXPECT_EQ(FileProperties::dateToString(at(1969, 12, 31, 24h - 1ns)), "1969-12-31 23:59:59");
}

TEST_F(FilePropertiesTest, ShowDatesFarAway) {
    EXPECT_EQ(FileProperties::dateToString(at(1700, 1, 1, 1h)), "1700-01-01 01:00:00");
    EXPECT_EQ(FileProperties::dateToString(at(2261, 12, 31, 1h)), "2261-12-31 01:00:00");
    EXPECT_EQ(FileProperties::dateToString(std::nullopt), QString());
}

TEST_F(FilePropertiesTest, WriteNumbersWithoutExponents) {
    EXPECT_EQ(FileProperties::decimalText(1024), "1024");
    EXPECT_EQ(FileProperties::decimalText(0), "0");
    EXPECT_EQ(FileProperties::decimalText(100'000), "100000");
    EXPECT_EQ(FileProperties::decimalText(0.1), "0.1");
    EXPECT_EQ(FileProperties::decimalText(595.32), "595.32");
    EXPECT_EQ(FileProperties::decimalText(1e-7), "0.0000001");
    EXPECT_EQ(FileProperties::decimalText(std::numeric_limits<double>::max()).size(), 309);
}

}  // namespace
}  // namespace tarvin
