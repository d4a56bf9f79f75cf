#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// The text as a field of a CSV row: in quotation marks if it holds what would end the field
/// otherwise. A text that a spreadsheet would calculate, because it begins with =, +, -, @, a tab
/// or a carriage return, gets an apostrophe before it, inside the quotation marks. Not for numbers.
/// Pure; any thread.
[[nodiscard]] std::string csvField(std::string_view text);

}  // namespace tarvin
