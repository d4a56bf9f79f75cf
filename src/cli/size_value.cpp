#include "cli/size_value.h"

#include "text/lowercase.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

namespace tarvin {

namespace {

struct Unit {
    std::string_view name;  // in lower case
    std::uint64_t bytes;
};

constexpr std::array units{Unit{"", 1},
                           Unit{"b", 1},
                           Unit{"kb", 1'000},
                           Unit{"mb", 1'000'000},
                           Unit{"gb", 1'000'000'000},
                           Unit{"tb", 1'000'000'000'000},
                           Unit{"kib", std::uint64_t{1} << 10U},
                           Unit{"mib", std::uint64_t{1} << 20U},
                           Unit{"gib", std::uint64_t{1} << 30U},
                           Unit{"tib", std::uint64_t{1} << 40U}};

std::string_view takeDigits(std::string_view& text) {
    const std::string_view digits =
        text.substr(0, std::min(text.find_first_not_of("0123456789"), text.size()));
    text.remove_prefix(digits.size());
    return digits;
}

/// Bytes of "0.DIGITS" units, rounded down. Less than one unit.
std::uint64_t bytesOfFraction(std::string_view digits, std::uint64_t unit) {
    std::uint64_t bytes = 0;
    for (std::size_t at = digits.size(); at > 0; --at) {
        bytes = (static_cast<std::uint64_t>(digits[at - 1] - '0') * unit + bytes) / 10;
    }
    return bytes;
}

}  // namespace

Result<std::uint64_t, std::string> bytesFrom(std::string_view size) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    const std::string_view whole = takeDigits(size);
    std::string_view fraction;
    const bool hasPoint = size.starts_with('.');
    if (hasPoint) {
        size.remove_prefix(1);
        fraction = takeDigits(size);
    }
    const bool isSpaced = size.size() > 1 && size.starts_with(' ');
    const std::string name = lowercase(size.substr(isSpaced ? 1 : 0));
    const auto* const unit = std::find_if(units.begin(), units.end(),
                                          [&](const Unit& each) { return each.name == name; });
    if (whole.empty() || (hasPoint && fraction.empty()) || unit == units.end()) {
        return std::string(
            "expected a number of bytes, or one with KB, MB, GB, TB, KiB, MiB, GiB or TiB");
    }
    if (hasPoint && unit->bytes == 1) {
        return std::string("expected whole bytes");
    }
    std::uint64_t count = 0;
    for (const char digit : whole) {
        const auto value = static_cast<std::uint64_t>(digit - '0');
        if (count > (most - value) / 10) {
            return std::string("too large");
        }
        count = count * 10 + value;
    }
    const std::uint64_t rest = bytesOfFraction(fraction, unit->bytes);
    if (count > (most - rest) / unit->bytes) {
        return std::string("too large");
    }
    return count * unit->bytes + rest;
}

}  // namespace tarvin
