#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// The text for a search without regard to case and accents, and for sorting: Unicode case folding,
/// compatible characters replaced by plain ones, combining marks removed; independent of the
/// locale. So "Ä", "a" and a letter with a separate accent are equal, and "ß" is "ss". U+FFFD
/// replaces bytes that are not UTF-8. Any thread.
[[nodiscard]] std::string searchKey(std::string_view text);

}  // namespace tarvin
