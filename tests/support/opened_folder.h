#pragma once

#include "platform/open_folder.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace tarvin {

/// The folder at a path, open; a link at its end is followed. Throws if there is none. `told` is
/// where it is said to be.
inline OpenFolder openedFolder(const std::string& path, const std::string& told) {
    FileSystem& fileSystem = systemFileSystem();
    auto folder = fileSystem.openRootDirectory(path);
    if (!folder) {
        throw std::runtime_error(path + ": " + folder.error().text());
    }
    const auto attributes = fileSystem.attributesOf(*folder);
    if (!attributes) {
        throw std::runtime_error(path + ": " + attributes.error().text());
    }
    return {std::move(*folder), attributes->identity, told};
}

inline OpenFolder openedFolder(const std::string& path) {
    return openedFolder(path, path);
}

}  // namespace tarvin
