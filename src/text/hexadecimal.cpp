#include "text/hexadecimal.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace tarvin {

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += digits[value >> 4U];
        text += digits[value & 0x0FU];
    }
    return text;
}

std::optional<std::string> bytesOfHexadecimal(std::string_view digits) {
    if (digits.size() % 2 != 0) {
        return std::nullopt;
    }
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (; !digits.empty(); digits.remove_prefix(2)) {
        unsigned char value = 0;
        const char* const end = digits.data() + 2;
        // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the end is given.
        const auto [read, error] = std::from_chars(digits.data(), end, value, 16);
        if (error != std::errc() || read != end) {
            return std::nullopt;
        }
        bytes += static_cast<char>(value);
    }
    return bytes;
}

}  // namespace tarvin
