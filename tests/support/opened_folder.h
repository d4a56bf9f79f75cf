#pragma once

#include "platform/open_folder.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace tarvin {

/// Opens the folder at a path; a link at its end is followed. Throws std::runtime_error if that
/// fails. `recordedPath` is the path in the result.
inline OpenFolder openedFolder(const std::string& path, const std::string& recordedPath) {
    FileSystem& fileSystem = systemFileSystem();
    auto folder = fileSystem.openRootDirectory(path);
    if (!folder) {
        throw std::runtime_error(path + ": " + folder.error().text());
    }
    const auto attributes = fileSystem.attributesOf(*folder);
    if (!attributes) {
        throw std::runtime_error(path + ": " + attributes.error().text());
    }
    return {std::move(*folder), attributes->identity, recordedPath};
}

inline OpenFolder openedFolder(const std::string& path) {
    return openedFolder(path, path);
}

}  // namespace tarvin
