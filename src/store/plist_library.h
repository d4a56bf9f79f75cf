#pragma once

#include <string_view>

namespace tarvin {

// The calls of libplist that are not the same in all of its versions that we build with: 2.3.0 gave
// plist_from_memory() a fourth argument and plist_mem_free() for whatever the library allocated.

/// The list in `bytes`, a plist_t to be given back with plist_free(); null if there is none. At
/// most 2^32 - 1 bytes.
[[nodiscard]] void* readPropertyList(std::string_view bytes);

/// Gives back what plist_to_xml() or plist_to_bin() allocated; null is allowed.
void freeWrittenList(char* text);

}  // namespace tarvin
