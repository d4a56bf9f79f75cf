#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvin {

/// A file name with `addition` inserted before its extension, or appended if it has none. Shortened
/// before both to `maxBytes`, at a UTF-8 character boundary, or at a byte boundary in other
/// encodings; an extension of up to 32 bytes is kept. `addition` may be empty; `maxBytes` must be
/// at least 64. Pure.
[[nodiscard]] std::string variedName(std::string_view name, std::string_view addition,
                                     std::size_t maxBytes);

}  // namespace tarvin
