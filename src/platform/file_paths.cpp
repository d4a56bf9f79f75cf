#include "platform/file_paths.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>

namespace tarvin {

namespace {

struct CleanPath {
    std::string path;
    bool hasParentPart = false;
};

/// Removes "." components and redundant slashes from an absolute path.
CleanPath cleaned(std::string_view path) {
    CleanPath clean;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view part = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (part.empty() || part == ".") {
            continue;
        }
        clean.hasParentPart = clean.hasParentPart || part == "..";
        clean.path += '/';
        clean.path += part;
    }
    if (clean.path.empty()) {
        clean.path += '/';
    }
    return clean;
}

}  // namespace

Result<std::string> absolutePath(const std::string& path) {
    if (path.empty()) {
        return SystemError{ENOENT};
    }
    std::string absolute = path;
    std::error_code failure;
    if (!path.starts_with('/')) {
        const std::filesystem::path folder = std::filesystem::current_path(failure);
        if (failure) {
            return SystemError{failure.value()};
        }
        absolute = folder.native() + '/' + path;
    }
    const CleanPath clean = cleaned(absolute);
    if (!clean.hasParentPart) {
        return clean.path;
    }
    const std::size_t slash = clean.path.rfind('/');
    const std::string_view last = std::string_view(clean.path).substr(slash + 1);
    const std::filesystem::path resolved = std::filesystem::canonical(
        last == ".." ? clean.path : clean.path.substr(0, slash + 1), failure);
    if (failure) {
        return clean.path;
    }
    return last == ".." ? resolved.native() : pathIn(resolved.native(), last);
}

std::string pathIn(const std::string& folder, std::string_view name) {
    std::string path = folder;
    if (!name.empty()) {
        path += folder == "/" ? "" : "/";
        path += name;
    }
    return path;
}

std::string folderPathOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool isWithin(std::string_view path, std::string_view folder) {
    return folder == "/" || (path.starts_with(folder) &&
                             (path.size() == folder.size() || path[folder.size()] == '/'));
}

}  // namespace tarvin
