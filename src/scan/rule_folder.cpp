#include "scan/rule_folder.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

/// The part of `path` behind `folder`, in which it is; empty for the folder itself.
std::string_view restBehind(std::string_view path, std::string_view folder) {
    const std::string_view rest = path.substr(folder == "/" ? 0 : folder.size());
    return rest.substr(rest.starts_with('/') ? 1 : 0);
}

/// The folders that hold the one at an absolute path, from the innermost to "/".
template <typename Visit>
void forEachAbove(const std::string& path, const Visit& visit) {
    std::string above = path;
    while (above.size() > 1) {
        above.resize(std::max<std::size_t>(above.rfind('/'), 1));
        visit(above);
    }
}

/// Finds the reached folders of a scan. Asks for each path once.
class ReachedFinder final {
 public:
    explicit ReachedFinder(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// `path` has no links.
    void addLocation(const std::string& path) {
        locations_.insert(path);
        ReachedFolder folder{identityAt(path), {}};
        addName(path, folder);
        add(std::move(folder));
    }

    /// Call after the locations were added.
    void addMounted(const std::vector<MountedFolder>& mounted) {
        std::map<std::uint64_t, std::vector<const MountedFolder*>> byFileSystem;
        for (const MountedFolder& folder : mounted) {
            byFileSystem[folder.fileSystem].push_back(&folder);
        }
        // A file system mounted once has one name for each folder.
        std::erase_if(byFileSystem, [](const auto& each) { return each.second.size() < 2; });
        std::unordered_set<const MountedFolder*> done;
        // Another name of a mounted folder may lead through further mount points.
        for (std::size_t before = done.size() + 1; before != done.size();) {
            before = done.size();
            for (const auto& [number, folders] : byFileSystem) {
                for (const MountedFolder* folder : folders) {
                    if (isOnAWay(folder->mountPoint) && done.insert(folder).second) {
                        addNamesOf(*folder, folders);
                    }
                }
            }
        }
    }

    [[nodiscard]] std::vector<ReachedFolder> take() { return std::move(reached_); }

 private:
    /// Inode 0 if it is unknown.
    FileIdentity identityAt(const std::string& path) {
        const auto [known, isNew] = known_.try_emplace(path);
        if (isNew) {
            if (const Result<FileAttributes> found = fileSystem_.attributesAtPath(path)) {
                known->second = found->identity;
            }
        }
        return known->second;
    }

    void addName(const std::string& path, ReachedFolder& folder) {
        ways_.insert(path);
        forEachAbove(path, [&](const std::string& above) {
            ways_.insert(above);
            if (const FileIdentity identity = identityAt(above); identity.inode != 0) {
                folder.above.push_back(identity);
            }
        });
    }

    /// A folder may be visible at one mount point of its file system and be reached by another.
    void addNamesOf(const MountedFolder& mounted,
                    const std::vector<const MountedFolder*>& ofItsFileSystem) {
        ReachedFolder folder{identityAt(mounted.mountPoint), {}};
        for (const MountedFolder* other : ofItsFileSystem) {
            if (isWithin(mounted.root, other->root)) {
                const std::string name =
                    pathIn(other->mountPoint, restBehind(mounted.root, other->root));
                // Not if another volume is mounted over it.
                if (identityAt(name) == folder.identity) {
                    addName(name, folder);
                }
            }
        }
        add(std::move(folder));
    }

    void add(ReachedFolder folder) {
        if (folder.identity.inode != 0 && !folder.above.empty()) {
            reached_.push_back(std::move(folder));
        }
    }

    /// Other volumes are not asked: they may not respond.
    [[nodiscard]] bool isOnAWay(const std::string& mountPoint) const {
        bool isOn = ways_.contains(mountPoint);
        forEachAbove(mountPoint,
                     [&](const std::string& above) { isOn = isOn || locations_.contains(above); });
        return isOn;
    }

    FileSystem& fileSystem_;
    std::unordered_set<std::string> locations_;
    std::unordered_set<std::string> ways_;  // names of reached folders, and of those above them
    std::unordered_map<std::string, FileIdentity> known_;
    std::vector<ReachedFolder> reached_;
};

/// An absolute path without symbolic links, as far as they can be resolved.
std::string resolvedPath(const std::string& path) {
    std::error_code failure;
    std::string resolved = std::filesystem::canonical(path, failure).native();
    if (!failure) {
        return resolved;
    }
    std::string known;
    forEachAbove(path, [&](const std::string& above) {
        if (known.empty()) {
            std::error_code unresolved;
            resolved = std::filesystem::canonical(above, unresolved).native();
            known = unresolved ? "" : above;
        }
    });
    return known.empty() ? path : pathIn(resolved, restBehind(path, known));
}

}  // namespace

Result<FoundFolder> ruleFolderAt(const std::string& given, FileSystem& fileSystem) {
    const Result<std::string> path = absolutePath(given);
    if (!path) {
        return path.error();
    }
    const Result<Descriptor> opened = fileSystem.openRootDirectory(*path);
    if (!opened) {
        return opened.error();
    }
    const Result<FileAttributes> attributes = fileSystem.attributesOf(*opened);
    if (!attributes) {
        return attributes.error();
    }
    std::error_code failure;
    const std::filesystem::path resolved = std::filesystem::canonical(*path, failure);
    if (failure) {
        return SystemError{failure.value()};
    }
    return FoundFolder{resolved.native(), attributes->identity};
}

FoundFolder findRuleFolder(const std::string& path, FileSystem& fileSystem) {
    FoundFolder folder{resolvedPath(path)};
    const Result<FileAttributes> attributes = fileSystem.attributesAtPath(folder.path);
    if (!attributes) {
        const int error = attributes.error().code;
        folder.isGone = error == ENOENT || error == ENOTDIR;
    } else if (attributes->type == EntryType::directory) {
        folder.identity = attributes->identity;
    } else {
        folder.isGone = true;
    }
    return folder;
}

std::vector<std::string> locationsOf(const Modal& modal, const std::atomic<bool>* stop) {
    std::vector<std::string> locations;
    std::unordered_set<const Directory*> seen;
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        for (const std::shared_ptr<Set>& set : extension->sets()) {
            if (stop != nullptr && stop->load(std::memory_order_relaxed)) {
                return locations;
            }
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

ScanWays scanWaysOf(const std::vector<std::string>& locations, FileSystem& fileSystem) {
    ScanWays ways;
    ReachedFinder finder(fileSystem);
    for (const std::string& location : locations) {
        std::error_code failure;
        const std::string target = std::filesystem::canonical(location, failure).native();
        if (failure) {
            continue;
        }
        if (target != location) {
            ways.linked.push_back({location, target});
        }
        finder.addLocation(target);
    }
    finder.addMounted(fileSystem.mountedFolders());
    ways.reached = finder.take();
    return ways;
}

RuleFolder folderInScan(const FoundFolder& folder, const ScanWays& ways) {
    RuleFolder known{{folder.path}};
    for (const LinkedLocation& location : ways.linked) {
        if (isWithin(location.target, folder.path)) {
            known.paths.push_back(location.path);
        } else if (isWithin(folder.path, location.target)) {
            known.paths.push_back(pathIn(location.path, restBehind(folder.path, location.target)));
        }
    }
    if (folder.identity.inode == 0) {
        return known;
    }
    known.identities.push_back(folder.identity);
    std::unordered_set<FileIdentity, FileIdentityHash> inside{folder.identity};
    // A reached folder may hold the mount point of another one.
    for (bool hasGrown = true; hasGrown;) {
        hasGrown = false;
        for (const ReachedFolder& reached : ways.reached) {
            const bool isInside =
                std::any_of(reached.above.begin(), reached.above.end(),
                            [&](const FileIdentity& each) { return inside.contains(each); });
            if (isInside && inside.insert(reached.identity).second) {
                known.identities.push_back(reached.identity);
                hasGrown = true;
            }
        }
    }
    return known;
}

}  // namespace tarvin
