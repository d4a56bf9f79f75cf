#pragma once

#include <string_view>

namespace tarvin {

// The libplist calls that differ between supported versions: 2.3.0 added a fourth argument to
// plist_from_memory(), and plist_mem_free() for all memory that the library allocated.

/// Parses at most 2^32 - 1 bytes. Returns a plist_t that the caller frees with plist_free(); null
/// if `bytes` is not a property list.
[[nodiscard]] void* readPropertyList(std::string_view bytes);

/// Frees what plist_to_xml() or plist_to_bin() allocated; null is allowed.
void freeWrittenList(char* text);

}  // namespace tarvin
