#include "clean/listed_name.h"

#include <algorithm>
#include <cstddef>

namespace tarvin {

namespace {

constexpr std::size_t listingBytes = 32 * 1024;

}  // namespace

bool listsName(FileSystem& fileSystem, const std::string& folder, std::string_view name) {
    const Result<Descriptor> opened = fileSystem.openRootDirectory(folder);
    EntryBlock block(listingBytes);
    while (opened) {
        const Result<bool> more = fileSystem.listEntries(*opened, block);
        const auto entries = block.entries();
        if (std::any_of(entries.begin(), entries.end(),
                        [&](const auto& entry) { return entry.name == name; })) {
            return true;
        }
        if (!more || !*more) {
            return false;
        }
    }
    return false;
}

}  // namespace tarvin
