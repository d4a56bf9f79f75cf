#pragma once

#include <string>

namespace tarvin {

/// The same JSON with control and bidirectional characters escaped, as in "\u009b". JSON itself
/// requires that only below U+0020. `text` must be UTF-8. Pure; any thread.
[[nodiscard]] std::string harmlessJson(std::string text);

}  // namespace tarvin
