#include "scan/rule_folder.h"

#include "platform/file_paths.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_set>

namespace tarvin {

Result<std::string> ruleFolderAt(const std::string& given, FileSystem& fileSystem) {
    const Result<std::string> path = absolutePath(given);
    if (!path) {
        return path.error();
    }
    const Result<Descriptor> opened = fileSystem.openRootDirectory(*path);
    if (!opened) {
        return opened.error();
    }
    std::error_code failure;
    const std::filesystem::path resolved = std::filesystem::canonical(*path, failure);
    if (failure) {
        return SystemError{failure.value()};
    }
    return resolved.native();
}

std::vector<std::string> locationsOf(const Modal& modal) {
    std::vector<std::string> locations;
    std::unordered_set<const Directory*> seen;
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        for (const std::shared_ptr<Set>& set : extension->sets()) {
            for (const std::shared_ptr<File>& file : set->files()) {
                const Directory* at = file->directory();
                while (at != nullptr && seen.insert(at).second) {
                    if (at->parent == nullptr) {
                        locations.push_back(at->path());
                    }
                    at = at->parent;
                }
            }
        }
    }
    return locations;
}

std::vector<LinkedLocation> linkedLocationsOf(const std::vector<std::string>& locations) {
    std::vector<LinkedLocation> linked;
    for (const std::string& location : locations) {
        std::error_code failure;
        const std::filesystem::path target = std::filesystem::canonical(location, failure);
        if (!failure && target.native() != location) {
            linked.push_back({location, target.native()});
        }
    }
    return linked;
}

FolderPaths pathsInScan(const std::string& folder, const std::vector<LinkedLocation>& linked) {
    FolderPaths paths{folder};
    for (const LinkedLocation& location : linked) {
        if (isWithin(location.target, folder)) {
            paths.push_back(location.path);
        } else if (isWithin(folder, location.target)) {
            const std::string_view rest = std::string_view(folder).substr(location.target.size());
            paths.push_back(pathIn(location.path, rest.substr(rest.starts_with('/') ? 1 : 0)));
        }
    }
    return paths;
}

}  // namespace tarvin
