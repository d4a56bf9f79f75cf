#include "report/value_texts.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace tarvin {
namespace {

/// Sets the time zone of the process during a test.
class TimeZone final {
 public:
    explicit TimeZone(const char* zone) {
        const char* const before = std::getenv("TZ");  // NOLINT(concurrency-mt-unsafe)
        before_ = before == nullptr ? std::nullopt : std::optional<std::string>(before);
        ::setenv("TZ", zone, 1);  // NOLINT(concurrency-mt-unsafe)
        ::tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() {
        if (before_) {
            ::setenv("TZ", before_->c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
        } else {
            ::unsetenv("TZ");  // NOLINT(concurrency-mt-unsafe)
        }
        ::tzset();
    }

 private:
    std::optional<std::string> before_;
};

TEST(LocalDate, IsInTheTimeZoneOfTheProcess) {
    using namespace std::chrono_literals;
    const Timestamp noon = std::chrono::sys_days(2026y / 1 / 31) + 12h + 999ms;
    EXPECT_EQ((TimeZone("UTC0"), localDate(noon)), "2026-01-31 12:00:00");
    EXPECT_EQ((TimeZone("XYZ-14"), localDate(noon)), "2026-02-01 02:00:00");
    EXPECT_EQ((TimeZone("XYZ5:30"), localDate(noon)), "2026-01-31 06:30:00");
    EXPECT_EQ((TimeZone("UTC0"), localDate(Timestamp() - 1ns)), "1969-12-31 23:59:59");
}

}  // namespace
}  // namespace tarvin
