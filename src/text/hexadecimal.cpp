#include "text/hexadecimal.h"

namespace tarvin {

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string answer;
    answer.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        answer += digits[value >> 4U];
        answer += digits[value & 0x0FU];
    }
    return answer;
}

}  // namespace tarvin
