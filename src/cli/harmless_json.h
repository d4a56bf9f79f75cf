#pragma once

#include <string>

namespace tarvin {

/// The same JSON with each character that is not harmless on a terminal written as "\u009b". JSON
/// itself asks for that only below U+0020. `text` must be UTF-8. Pure; any thread.
[[nodiscard]] std::string harmlessJson(std::string text);

}  // namespace tarvin
