#include "clean/return_folders.h"

#include "platform/file_paths.h"
#include "platform/open_folder.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>

namespace tarvin {

namespace {

/// Folders kept open; when full, all are closed.
constexpr std::size_t maxKept = 64;

}  // namespace

ReturnFolders::Opened ReturnFolders::open(const std::string& path) {
    const auto kept = kept_.find(path);
    if (kept != kept_.end()) {
        const Result<FileAttributes> now = fileSystem_.attributesAtPath(path);
        if (now && now->identity == kept->second->identity) {
            return kept->second;
        }
        kept_.erase(kept);
    }
    Opened folder = openAnew(path);
    if (folder) {
        if (kept_.size() >= maxKept) {
            kept_.clear();
        }
        kept_.emplace(path, *folder);
    }
    return folder;
}

ReturnFolders::Opened ReturnFolders::openOrMake(const std::string& path) {
    made_.clear();
    return make(path);
}

void ReturnFolders::removeMade() {
    for (; !made_.empty(); made_.pop_back()) {
        const auto& [parent, name] = made_.back();
        removeEmptyFolderAt(parent->descriptor, name);
        kept_.erase(pathIn(parent->path, name));
    }
}

/// Compares the path with that of the opened folder, as the system reports it: a check before
/// opening could be out of date.
ReturnFolders::Opened ReturnFolders::openAnew(const std::string& path) {
    OpenFolder folder;
    folder.path = path;
    Result<Descriptor> opened = fileSystem_.openDirectory(path);
    if (!opened) {
        const Result<FileAttributes> now = fileSystem_.attributesAtPath(path);
        if (!now || now->type == EntryType::directory) {
            return opened.error();
        }
        std::error_code unknown;
        return SystemError{std::filesystem::is_symlink(path, unknown) ? ELOOP : ENOTDIR};
    }
    const Result<FileAttributes> attributes = fileSystem_.attributesOf(*opened);
    if (!attributes) {
        return attributes.error();
    }
    if (currentPathOf(*opened) != path) {
        return SystemError{ELOOP};
    }
    folder.descriptor = std::move(*opened);
    folder.identity = attributes->identity;
    return std::shared_ptr<const OpenFolder>(std::make_shared<OpenFolder>(std::move(folder)));
}

ReturnFolders::Opened ReturnFolders::make(const std::string& path) {
    Opened there = open(path);
    const std::size_t slash = path.rfind('/');
    if (there || there.error().code != ENOENT || slash == std::string::npos || path == "/") {
        return there;
    }
    Opened parent = make(slash == 0 ? "/" : path.substr(0, slash));
    if (!parent) {
        return parent;
    }
    const std::string name = path.substr(slash + 1);
    const std::optional<SystemError> failure = makeFolderAt((*parent)->descriptor, name);
    if (failure && failure->code != EEXIST) {
        return *failure;
    }
    if (!failure) {
        made_.emplace_back(*parent, name);
    }
    return open(path);
}

}  // namespace tarvin
