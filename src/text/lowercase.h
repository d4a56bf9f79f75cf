#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// Full Unicode lower case, independent of the locale: a capital sigma at the end of a word becomes
/// a final sigma, a dotted capital I becomes two characters. Bytes that are not UTF-8 stay
/// unchanged. Any thread.
[[nodiscard]] std::string lowercase(std::string_view text);

}  // namespace tarvin
