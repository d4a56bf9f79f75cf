#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

/// Two lower-case digits per byte. Any thread.
[[nodiscard]] std::string hexadecimal(std::string_view bytes);

/// The bytes that hexadecimal() gives the digits of; nullopt if they are no such digits. Digits may
/// be in upper case. Any thread.
[[nodiscard]] std::optional<std::string> bytesOfHexadecimal(std::string_view digits);

}  // namespace tarvin
