#include "platform/macos/user_folders.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <cstddef>

namespace tarvin::macos {

namespace {

constexpr std::string_view cloudFolder = "Library/Mobile Documents";

std::string_view nameOf(UserFolder folder) {
    switch (folder) {
        case UserFolder::desktop:
            return "Desktop";
        case UserFolder::documents:
            return "Documents";
        case UserFolder::pictures:
            return "Pictures";
        case UserFolder::home:
            break;
    }
    return {};
}

/// The mount point of a path below "/Volumes"; empty for other paths.
std::string_view volumeOf(std::string_view path) {
    constexpr std::string_view volumes = "/Volumes/";
    if (!path.starts_with(volumes)) {
        return {};
    }
    return path.substr(0, path.find('/', volumes.size()));
}

}  // namespace

std::optional<std::string> userFolderOf(UserFolder folder, const UserEnvironment& environment) {
    return below(homeFolder(environment), nameOf(folder));
}

std::optional<std::string> applicationSupportFolderOf(const UserEnvironment& environment) {
    return below(homeFolder(environment),
                 "Library/Application Support/Tarvin Software/Tarvin Duplicate File Remover");
}

std::optional<std::string> homeTrashFolder(const UserEnvironment& environment) {
    return below(homeFolder(environment), ".Trash");
}

std::vector<std::string> trashesFor(std::string_view path, const UserEnvironment& environment,
                                    std::uint32_t user) {
    std::vector<std::string> trashes;
    if (const std::string_view volume = volumeOf(path); !volume.empty()) {
        trashes.push_back(std::string(volume) + "/.Trashes/" + std::to_string(user));
    }
    const auto cloud = below(homeFolder(environment), cloudFolder);
    if (cloud && isWithin(path, *cloud)) {
        trashes.push_back(*cloud + "/com~apple~CloudDocs/.Trash");
    }
    if (auto home = homeTrashFolder(environment)) {
        trashes.push_back(std::move(*home));
    }
    return trashes;
}

std::vector<std::string> meetingFolders(const std::string& privateTemporary, std::uint32_t user) {
    constexpr std::string_view name = "tarvin-duplicate-file-remover";
    std::vector<std::string> folders;
    if (const auto own = below(absoluteFolder(privateTemporary), name)) {
        folders.push_back(*own);
    }
    folders.push_back("/tmp/" + std::string(name) + '-' + std::to_string(user));
    return folders;
}

}  // namespace tarvin::macos
