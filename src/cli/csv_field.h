#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// The text as a field of a CSV row: in quotation marks if it holds what would end the field
/// otherwise. Pure; any thread.
[[nodiscard]] std::string csvField(std::string_view text);

}  // namespace tarvin
