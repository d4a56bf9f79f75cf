#include "report/value_texts.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <ctime>

namespace tarvin {

namespace {

/// Writes `number` over the `count` digits before `end`.
void putDigits(std::string& text, std::size_t end, std::size_t count, long long number) {
    for (std::size_t position = end; position > end - count; --position) {
        text[position - 1] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
}

}  // namespace

std::string isoDate(Timestamp date) {
    // Computed from whole seconds: the midnight of the earliest Timestamp is out of its range.
    const auto second = std::chrono::floor<std::chrono::seconds>(date);
    const auto day = std::chrono::floor<std::chrono::days>(second);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss time(second - day);
    const std::chrono::nanoseconds pastSecond = date.time_since_epoch() % std::chrono::seconds{1};
    const bool beforeEpoch = pastSecond < std::chrono::nanoseconds::zero();
    std::string text = "0000-00-00T00:00:00.000000000Z";
    putDigits(text, 4, 4, int{calendar.year()});
    putDigits(text, 7, 2, unsigned{calendar.month()});
    putDigits(text, 10, 2, unsigned{calendar.day()});
    putDigits(text, 13, 2, time.hours().count());
    putDigits(text, 16, 2, time.minutes().count());
    putDigits(text, 19, 2, time.seconds().count());
    putDigits(text, 29, 9, pastSecond.count() + (beforeEpoch ? 1'000'000'000 : 0));
    return text;
}

std::string localDate(Timestamp date) {
    const auto second = std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count();
    const auto seconds = static_cast<std::time_t>(second);
    std::tm local{};
    if (::localtime_r(&seconds, &local) == nullptr) {
        ::gmtime_r(&seconds, &local);
    }
    std::array<char, 64> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return {text.data(), length};
}

std::string counted(std::uint64_t number, std::string_view noun) {
    return std::to_string(number).append(" ").append(noun).append(number == 1 ? "" : "s");
}

}  // namespace tarvin
