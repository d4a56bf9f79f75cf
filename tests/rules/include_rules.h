#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Judges the #include lines of one file of ours by the layer table: which folder may include
/// which, and which library may be named where. `path` is relative to src/ ("scan/collector.cpp"),
/// `text` is the file's content. Each answer is one complaint, "path:line: reason"; none means that
/// every line is allowed.
[[nodiscard]] std::vector<std::string> includeBreaches(std::string_view path,
                                                       std::string_view text);

}  // namespace tarvin
