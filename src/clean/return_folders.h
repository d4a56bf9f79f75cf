#pragma once

#include "clean/open_folders.h"
#include "platform/file_system.h"
#include "platform/result.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvin {

/// Opens the folders that files are put back into, by their recorded paths. Fails with ELOOP if a
/// folder of the path is a symlink now, since files would go elsewhere. One thread.
class ReturnFolders final {
 public:
    using Opened = Result<std::shared_ptr<const OpenFolder>>;

    explicit ReturnFolders(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// Fails with ENOENT if the folder does not exist, with ENOTDIR if the path is a file.
    Opened open(const std::string& path);

    /// Also creates missing folders of the path. Each call forgets what the previous one created.
    Opened openOrMake(const std::string& path);
    /// Removes the folders that the last openOrMake() created, if they are empty.
    void removeMade();

 private:
    Opened openAnew(const std::string& path);
    Opened make(const std::string& path);

    FileSystem& fileSystem_;
    std::unordered_map<std::string, std::shared_ptr<const OpenFolder>> kept_;
    std::vector<std::pair<std::shared_ptr<const OpenFolder>, std::string>>
        made_;  // outermost first
};

}  // namespace tarvin
