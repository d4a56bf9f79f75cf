#include "store/exception_presence.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace tarvin {

namespace {

/// Paths between two looks at the mounted volumes: few enough for the looks to be close together,
/// and enough for their time, some tenths of a millisecond, not to matter.
constexpr std::size_t blockPaths = 512;

/// The limit of the kernel.
constexpr int maxLinks = 40;

bool isMissing(const SystemError& error) {
    return error.code == ENOENT || error.code == ENOTDIR;
}

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

/// The presence of a few paths. Where a folder that does not exist would be is found once for each
/// folder.
class PresenceBlock final {
 public:
    explicit PresenceBlock(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// `missing` for all that does not exist.
    Presence lookUp(const std::string& path) {
        // No file of another form was ever excluded by this program.
        if (!path.starts_with('/') || path.find('\0') != std::string::npos) {
            return Presence::unknown;
        }
        const Result<FileAttributes> attributes = fileSystem_.attributesAtPath(path);
        if (attributes) {
            return Presence::present;
        }
        return isMissing(attributes.error()) ? Presence::missing : Presence::unknown;
    }

    /// The presence of a missing file, with the mounted volumes before and after it was looked up.
    Presence judge(const std::string& path, const MountPlaces& before, const MountPlaces& after) {
        const std::optional<std::string>& folder = realFolderOf(parentOf(path));
        if (!folder) {
            return Presence::unknown;
        }
        const auto isUnmounted = [&](const MountPlaces& places) {
            return places.isOnUnmountedVolume(path) || places.isOnUnmountedVolume(*folder);
        };
        return isUnmounted(before) || isUnmounted(after) ? Presence::notAttached
                                                         : Presence::missing;
    }

 private:
    const std::optional<std::string>& realFolderOf(const std::string& folder) {
        const auto found = realFolders_.find(folder);
        if (found != realFolders_.end()) {
            return found->second;
        }
        return realFolders_.emplace(folder, resolved(folder, maxLinks)).first->second;
    }

    /// The path without symbolic links, whose end need not exist: a link that leads to a volume
    /// that is not mounted dangles. nullopt if that cannot be found out.
    std::optional<std::string> resolved(const std::string& folder, int links) {
        std::string existing = folder;
        for (;;) {
            const Result<FileAttributes> attributes = fileSystem_.attributesAtPath(existing);
            if (attributes) {
                break;
            }
            if (!isMissing(attributes.error()) || existing == "/") {
                return std::nullopt;
            }
            existing = parentOf(existing);
        }
        const std::string rest = folder.substr(existing == "/" ? 0 : existing.size());
        std::error_code failure;
        const std::filesystem::path real = std::filesystem::canonical(existing, failure);
        if (!failure) {
            return real == "/" ? rest : real.native() + rest;
        }
        const std::filesystem::path target = std::filesystem::read_symlink(existing, failure);
        if (failure || links == 0) {
            return std::nullopt;
        }
        std::filesystem::path next = std::filesystem::path(parentOf(existing)) / target;
        next += rest;
        next = next.lexically_normal();
        return resolved((next.has_filename() ? next : next.parent_path()).native(), links - 1);
    }

    FileSystem& fileSystem_;
    std::unordered_map<std::string, std::optional<std::string>> realFolders_;
};

}  // namespace

std::string_view presenceWord(Presence presence) {
    switch (presence) {
        case Presence::present:
            return "present";
        case Presence::missing:
            return "missing";
        case Presence::notAttached:
            return "notAttached";
        case Presence::unknown:
            break;
    }
    return "unknown";
}

std::vector<Presence> ExceptionPresence::of(std::span<const std::string> paths) const {
    std::vector<Presence> all;
    all.reserve(paths.size());
    MountPlaces before = platform_.mountPlaces();
    while (all.size() < paths.size()) {
        const auto block =
            paths.subspan(all.size()).first(std::min(blockPaths, paths.size() - all.size()));
        const std::size_t first = all.size();
        PresenceBlock files(platform_.fileSystem());
        for (const std::string& path : block) {
            all.push_back(files.lookUp(path));
        }
        MountPlaces after = platform_.mountPlaces();
        for (std::size_t index = 0; index < block.size(); ++index) {
            Presence& presence = all[first + index];
            if (presence == Presence::missing) {
                presence = files.judge(block[index], before, after);
            }
        }
        before = std::move(after);
    }
    return all;
}

}  // namespace tarvin
