#pragma once

#include "model/file.h"
#include "platform/file_system.h"

#include <cstddef>
#include <memory>
#include <shared_mutex>
#include <unordered_map>

namespace tarvin {

/// Keeps the folders open whose files are compared, so that a file is opened by its name instead of
/// its path. The system then looks up one name instead of one for each folder on the way, which on
/// a network volume are as many calls to the server. The first folders that are asked for stay open
/// as long as this object; further ones are not kept, because opening each for one file would take
/// longer. Any thread.
class FolderDescriptors final {
 public:
    /// Keeps at most `most` folders open. The references must outlive this object.
    FolderDescriptors(FileSystem& fileSystem, std::size_t most)
        : fileSystem_(fileSystem), most_(most) {}
    FolderDescriptors(const FolderDescriptors&) = delete;
    FolderDescriptors& operator=(const FolderDescriptors&) = delete;

    /// The folder, which is opened by its path at the first time; nullptr if it is not kept open.
    /// Another folder may be at its path now. Lives as long as this object.
    [[nodiscard]] const Descriptor* of(const Directory& folder);

 private:
    FileSystem& fileSystem_;
    const std::size_t most_;
    std::shared_mutex mutex_;
    // nullptr for a folder that could not be opened. Entries are never removed. Guarded by mutex_.
    std::unordered_map<const Directory*, std::unique_ptr<const Descriptor>> folders_;
};

}  // namespace tarvin
