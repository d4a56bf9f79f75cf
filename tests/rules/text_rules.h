#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Judges how one C++ file is written, apart from what the formatter and the compiler see: no tabs,
/// every header guarded by "#pragma once", no test that waits for a fixed time. `path` is relative
/// to the project's root. Each answer is one complaint; none means that the file is in order.
[[nodiscard]] std::vector<std::string> textBreaches(std::string_view path, std::string_view text);

}  // namespace tarvin
