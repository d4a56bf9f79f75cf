#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "platform/open_folder.h"
#include "platform/unsteady_volumes.h"

#include <chrono>
#include <list>
#include <memory>
#include <unordered_map>

namespace tarvin {

/// Caches open folders that files are moved out of, so that a folder is not opened for each of its
/// files. Returns a folder only if its path still leads to the folder that was scanned, as far as
/// its volume tells. One thread.
class OpenFolders final {
 public:
    /// A folder is opened again by its path after `maxAge`. Keeps at most `maxOpen` folders open.
    /// Adds the volumes of folders that turn out to be unsteady. Both references must outlive this
    /// object.
    OpenFolders(FileSystem& fileSystem, UnsteadyVolumes& unsteadyVolumes,
                std::chrono::milliseconds maxAge, std::size_t maxOpen)
        : fileSystem_(fileSystem),
          unsteadyVolumes_(unsteadyVolumes),
          maxAge_(maxAge),
          maxOpen_(maxOpen) {}

    /// Returns the open folder, which stays open as long as the result is held. Fails with ESTALE
    /// if another folder is at the path now, which cannot be noticed on an unsteady volume. Follows
    /// a symlink at the end of the path only for a root of the scan.
    Result<std::shared_ptr<const OpenFolder>> open(const Directory& directory);

    /// Has every folder opened again by its path on the next call of open().
    void invalidate();

 private:
    using Clock = std::chrono::steady_clock;

    struct Kept {
        const Directory* directory = nullptr;
        std::shared_ptr<const OpenFolder> folder;
        Clock::time_point checkedAt;
    };

    Result<std::shared_ptr<const OpenFolder>> openAnew(const Directory& directory);

    FileSystem& fileSystem_;
    UnsteadyVolumes& unsteadyVolumes_;
    const std::chrono::milliseconds maxAge_;
    const std::size_t maxOpen_;
    std::list<Kept> kept_;  // most recently used first
    std::unordered_map<const Directory*, std::list<Kept>::iterator> byDirectory_;
};

}  // namespace tarvin
