#include "scan/folder_descriptors.h"

#include <mutex>
#include <utility>

namespace tarvin {

const Descriptor* FolderDescriptors::of(const Directory& folder) {
    {
        const std::shared_lock lock(mutex_);
        const auto known = folders_.find(&folder);
        if (known != folders_.end() || folders_.size() >= most_) {
            return known == folders_.end() ? nullptr : known->second.get();
        }
    }
    Result<Descriptor> opened = fileSystem_.openFolderOfFiles(folder.path());
    std::unique_ptr<const Descriptor> kept =
        opened ? std::make_unique<const Descriptor>(std::move(*opened)) : nullptr;
    const std::unique_lock lock(mutex_);
    // Another thread may have opened the folder, or the last one that may be kept, meanwhile.
    if (folders_.size() < most_) {
        folders_.try_emplace(&folder, std::move(kept));
    }
    const auto known = folders_.find(&folder);
    return known == folders_.end() ? nullptr : known->second.get();
}

}  // namespace tarvin
