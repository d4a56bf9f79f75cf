#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvin {

/// A file's name with `addition` in front of its extension, or at its end if it has none. Shortened
/// in front of both to `longest` bytes, between two characters of UTF-8, or between two bytes of
/// anything else; an extension of usual length is kept. `addition` may be empty; `longest` is at
/// least 64.
[[nodiscard]] std::string variedName(std::string_view name, std::string_view addition,
                                     std::size_t longest);

}  // namespace tarvin
