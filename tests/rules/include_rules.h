#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Checks the #include lines of one of our sources against the layer table: which folder may
/// include which, and which library. `path` is relative to src/ ("scan/collector.cpp"), `text` is
/// the content. Returns the breaches as "path:line: reason"; empty if there are none.
[[nodiscard]] std::vector<std::string> includeBreaches(std::string_view path,
                                                       std::string_view text);

}  // namespace tarvin
