#include "store/plist_library.h"

#include <plist/plist.h>

#include <cstdint>

namespace tarvin {

void* readPropertyList(std::string_view bytes) {
    plist_t root = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
#if TARVIN_LIBPLIST_2_3
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): length is given.
    plist_from_memory(bytes.data(), length, &root, nullptr);
#else
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): length is given.
    plist_from_memory(bytes.data(), length, &root);
#endif
    return root;
}

void freeWrittenList(char* text) {
#if TARVIN_LIBPLIST_2_3
    plist_mem_free(text);
#else
    plist_to_xml_free(text);
#endif
}

}  // namespace tarvin
