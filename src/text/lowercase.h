#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// The whole of Unicode's lower case, whatever the language: a capital sigma that ends a word
/// becomes the final one, a dotted capital I becomes two characters. Bytes that are not UTF-8 stay.
/// Any thread.
[[nodiscard]] std::string lowercase(std::string_view text);

}  // namespace tarvin
