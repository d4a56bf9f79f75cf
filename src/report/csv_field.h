#pragma once

#include "report/display.h"

#include <string>
#include <string_view>

namespace tarvin {

/// The text as a field of a CSV row, quoted if it has a separator, quotation mark or line break. A
/// text that a spreadsheet would evaluate as a formula, because it begins with =, +, -, @, a tab or
/// a carriage return, is quoted and prefixed with an apostrophe. Not for numbers. Pure; any thread.
[[nodiscard]] std::string csvField(std::string_view text);

/// A name as a field. U+FFFD replaces invalid bytes and, on a terminal, control and bidirectional
/// characters.
[[nodiscard]] std::string csvName(const std::string& name, Display display);

/// Two fields: the path as text and, if that is not exact, its bytes in hexadecimal.
[[nodiscard]] std::string csvPath(const std::string& path, Display display);

}  // namespace tarvin
