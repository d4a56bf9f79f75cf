#pragma once

#include <plist/plist.h>

#include <cstdint>
#include <string_view>

namespace tarvin {

// The calls of libplist that are not the same in all of its versions that we build with: 2.3.0 gave
// plist_from_memory() a fourth argument and plist_mem_free() for whatever the library allocated.

/// The list in `bytes`, to be given back with plist_free(); null if there is none. At most 2^32 - 1
/// bytes.
inline plist_t readPropertyList(std::string_view bytes) {
    plist_t root = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
#if TARVIN_LIBPLIST_2_3
    plist_from_memory(bytes.data(), length, &root, nullptr);
#else
    plist_from_memory(bytes.data(), length, &root);
#endif
    return root;
}

/// Gives back what plist_to_xml() or plist_to_bin() allocated; null is allowed.
inline void freeWrittenList(char* text) {
#if TARVIN_LIBPLIST_2_3
    plist_mem_free(text);
#else
    plist_to_xml_free(text);
#endif
}

}  // namespace tarvin
