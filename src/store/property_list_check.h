#pragma once

#include <cstddef>
#include <string_view>

namespace tarvin {

/// Whether a property list from anywhere may be handed to libplist: that its nesting cannot exhaust
/// the stack, and that what it unfolds to is in proportion to its bytes. It has at most
/// `deepestPropertyList` levels and `mostPropertyListValues` values. A binary list, in which one
/// object may be referred to many times, has no more values than bytes, and its texts and data,
/// each counted as often as it is met, are at most `roomForRepeatedBytes` longer than the list.
///
/// An XML list is refused also where it could be taken for less deep than it is: with a DOCTYPE
/// that defines something, with attributes below the root, or where something is never closed. Says
/// nothing of whether the list is well formed, but what begins like neither form is refused. Costs
/// time in proportion to the bytes and, for a binary list, 16 bytes for each value that one
/// container holds, so at most 64 MB. Any thread.
///
/// Our own lists have two levels and as many values as a person has excluded files.
[[nodiscard]] bool isHarmlessPropertyList(std::string_view bytes);

inline constexpr std::size_t deepestPropertyList = 64;
inline constexpr std::size_t mostPropertyListValues = 4'000'000;
inline constexpr std::size_t roomForRepeatedBytes = 1024 * 1024;

}  // namespace tarvin
