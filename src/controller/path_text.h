#pragma once

#include <QString>
#include <string_view>

namespace tarvin {

/// A path, or a part of one, as text for the screen, in one line. U+FFFD stands for each byte that
/// is not UTF-8, for control characters and line ends, and for the marks that turn the direction of
/// writing: a name shall not look like another one. Never to be turned back into a path.
[[nodiscard]] QString textOfPath(std::string_view path);

}  // namespace tarvin
