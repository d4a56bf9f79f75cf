#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Checks rules for a C++ file that neither formatter nor compiler enforce: no tabs, "#pragma once"
/// in every header, no sleeps in tests. `path` is relative to the project root. Returns the
/// breaches; empty if there are none.
[[nodiscard]] std::vector<std::string> textBreaches(std::string_view path, std::string_view text);

}  // namespace tarvin
