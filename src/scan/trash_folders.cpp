#include "scan/trash_folders.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>

namespace tarvin {

namespace {

/// Whether a folder gets another inode number at each call.
bool isRenumbered(FileSystem& fileSystem, const std::string& path) {
    const Result<FileAttributes> one = fileSystem.currentAttributesAtPath(path);
    const Result<FileAttributes> next = fileSystem.currentAttributesAtPath(path);
    return one && next && one->identity != next->identity;
}

}  // namespace

bool isVolumeTrash(std::string_view name) {
    constexpr std::string_view prefix = ".Trash-";
    if (!name.starts_with(prefix) || name.size() == prefix.size()) {
        return false;
    }
    return name.find_first_not_of("0123456789", prefix.size()) == std::string_view::npos;
}

Result<bool> isInTrash(FileSystem& fileSystem, const std::string& folder) {
    const std::optional<FileIdentity> homeTrash = fileSystem.homeTrash();
    std::error_code failure;
    std::filesystem::path resolved = std::filesystem::canonical(folder, failure);
    if (failure.value() == ENAMETOOLONG) {
        resolved = folder;
    } else if (failure) {
        return SystemError{failure.value()};
    }
    for (std::filesystem::path at = resolved; at.has_relative_path(); at = at.parent_path()) {
        const std::string name = at.filename().string();
        if (name == ".Trash" || name == ".Trashes" || isVolumeTrash(name)) {
            return true;
        }
        if (!homeTrash) {
            continue;
        }
        const Result<FileAttributes> attributes = fileSystem.attributesAtPath(at.string());
        if (!attributes && attributes.error().code != ENAMETOOLONG) {
            return attributes.error();
        }
        if (attributes && attributes->identity == *homeTrash) {
            return true;
        }
        if (attributes && name == homeTrashName &&
            attributes->identity.device == homeTrash->device && isRenumbered(fileSystem, at)) {
            return true;
        }
    }
    return false;
}

}  // namespace tarvin
