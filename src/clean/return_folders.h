#pragma once

#include "clean/open_folders.h"
#include "platform/file_system.h"
#include "platform/result.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvin {

/// Opens the folders that files go back to, by the path they had. Where one of its folders is a
/// link now, files would land elsewhere: that is refused (ELOOP). One thread.
class ReturnFolders final {
 public:
    using Opened = Result<std::shared_ptr<const OpenFolder>>;

    explicit ReturnFolders(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// ENOENT if it is not there, ENOTDIR if something else is.
    Opened open(const std::string& path);

    /// Makes what is missing of the path, too. What one call has made, the next one forgets.
    Opened openOrMake(const std::string& path);
    /// Takes away again what the last openOrMake() has made, as far as it is empty.
    void removeMade();

 private:
    Opened openAnew(const std::string& path);
    Opened make(const std::string& path);

    FileSystem& fileSystem_;
    std::unordered_map<std::string, std::shared_ptr<const OpenFolder>> kept_;
    std::vector<std::pair<std::shared_ptr<const OpenFolder>, std::string>> made_;  // in order
};

}  // namespace tarvin
