#pragma once

#include "cli/display.h"

#include <string>
#include <string_view>

namespace tarvin {

/// The text as a field of a CSV row: in quotation marks if it holds what would end the field
/// otherwise. A text that a spreadsheet would calculate, because it begins with =, +, -, @, a tab
/// or a carriage return, gets an apostrophe before it, inside the quotation marks. Not for numbers.
/// Pure; any thread.
[[nodiscard]] std::string csvField(std::string_view text);

/// Text of a name, as a field. What is not UTF-8 in it, and on a terminal what is not harmless
/// there, is U+FFFD.
[[nodiscard]] std::string csvName(const std::string& name, Display display);

/// Two fields: the path as text and, where that is not exact, its bytes in hexadecimal.
[[nodiscard]] std::string csvPath(const std::string& path, Display display);

}  // namespace tarvin
