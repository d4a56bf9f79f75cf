#include "store/property_list.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

/// Whatever stands in a file of ours, reading it ends, and paths that were read are written and
/// read again as they were.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const void* const bytes = data;
    const auto list =
        tarvin::PropertyList::parse(std::string_view(static_cast<const char*>(bytes), size));
    if (!list) {
        return 0;
    }
    static_cast<void>(list->number("deletedCount"));
    static_cast<void>(list->xml());
    const auto paths = list->paths();
    const auto again = tarvin::PropertyList::parse(tarvin::PropertyList::arrayOfPaths(paths).xml());
    if (!again || again->paths() != paths) {
        std::abort();
    }
    return 0;
}
