#include "cli/local_date.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <ctime>

namespace tarvin {

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

}  // namespace tarvin
