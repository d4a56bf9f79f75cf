#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// Two digits a byte, lower case. Any thread.
[[nodiscard]] std::string hexadecimal(std::string_view bytes);

}  // namespace tarvin
