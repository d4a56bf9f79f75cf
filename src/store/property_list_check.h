#pragma once

#include <cstddef>
#include <string_view>

namespace tarvin {

/// Whether a property list from anywhere may be handed to a parser: that its nesting cannot exhaust
/// the stack nor its contents the memory. XML and binary lists; what is neither passes, for the
/// parser to refuse. Says nothing of whether the list is well formed. Costs time in proportion to
/// its bytes and, for a binary list, 16 bytes for each value that one container holds, so at most
/// 64 MB. Any thread.
///
/// Our own lists have two levels and as many values as a person has excluded files.
[[nodiscard]] bool isHarmlessPropertyList(std::string_view bytes);

inline constexpr std::size_t deepestPropertyList = 64;
inline constexpr std::size_t mostPropertyListValues = 4'000'000;

}  // namespace tarvin
