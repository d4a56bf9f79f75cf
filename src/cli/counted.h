#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// "1 file", "2 files": the number and the noun, with an s unless the number is 1. Any thread.
[[nodiscard]] std::string counted(std::uint64_t number, std::string_view noun);

}  // namespace tarvin
