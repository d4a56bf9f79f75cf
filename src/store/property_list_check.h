#pragma once

#include <cstddef>
#include <string_view>

namespace tarvin {

/// Whether an untrusted property list may be handed to libplist: its nesting cannot exhaust the
/// stack, and its expanded size is in proportion to its bytes. It has at most
/// `maxPropertyListDepth` levels and `maxPropertyListValues` values. A binary list, in which many
/// references may name one object, has no more values than bytes, and its texts and data, each
/// counted once per reference, are at most `maxRepeatedBytes` longer than the list.
///
/// The source gives the input and the effect that each rule prevents, as seen with libplist 2.2
/// (Debian 12) and 2.6 (Debian 13). Does not check whether the list is well formed: libplist
/// refuses lists that are not.
///
/// Costs time in proportion to the bytes and, for a binary list, 16 bytes for each value that one
/// container holds, at most 64 MB. Any thread.
[[nodiscard]] bool isSafePropertyList(std::string_view bytes);

// Our own lists have two levels and as many values as the user has excluded files.

/// libplist writes and frees containers recursively. Both releases write 5,000 levels and overflow
/// a stack of 8 MB at 50,000; a thread may have less.
inline constexpr std::size_t maxPropertyListDepth = 64;
/// Each takes about 115 bytes in both releases, so 4 million take 470 MB.
inline constexpr std::size_t maxPropertyListValues = 4'000'000;
inline constexpr std::size_t maxRepeatedBytes = 1024 * 1024;

}  // namespace tarvin
