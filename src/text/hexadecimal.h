#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// Two lower-case digits per byte. Any thread.
[[nodiscard]] std::string hexadecimal(std::string_view bytes);

}  // namespace tarvin
