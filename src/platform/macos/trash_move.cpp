#include "platform/trash_move.h"

#include "platform/file_paths.h"
#include "platform/macos/objective_c.h"
#include "platform/macos/trash_errors.h"
#include "platform/macos/user_folders.h"
#include "platform/posix/exclusive_move.h"
#include "platform/unique_fd.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

constexpr std::size_t listingBytes = std::size_t{64} << 10U;

TrashRefusal systemRefusal(int code) {
    const SystemError error{code};
    const bool isGone = code == ENOENT;
    return {isGone ? TrashRefusalKind::gone : TrashRefusalKind::system, error, error.text()};
}

std::string pathOf(const TrashPlace& place) {
    return pathIn(place.trash, place.name);
}

/// Moves files to the Trash as the Finder does. There are no .trashinfo files: where a file was is
/// known to the Finder, and to our journal.
class MacTrashMover final : public TrashMover {
 public:
    explicit MacTrashMover(TrashUser user) : user_(std::move(user)) {}

    Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) override {
        if (!user_.homeTrash) {
            return TrashRefusal{TrashRefusalKind::noHome, {ENOENT}, "the user has no home folder"};
        }
        // The system moves by path: it must lead to the open folder. The caller looks at the file
        // itself before and after.
        const std::optional<std::string> path = currentPathOf(folder.descriptor);
        if (!path) {
            // The system does not tell a path of 1,024 bytes and more, and moves no file there.
            return TrashRefusal{
                TrashRefusalKind::system, {ENAMETOOLONG}, SystemError{ENAMETOOLONG}.text()};
        }
        const auto there = fileSystem_.attributesAtPath(*path);
        if (!there || there->identity != folder.identity) {
            return systemRefusal(there ? ENOENT : there.error().code);
        }
        const auto before = fileSystem_.attributesAt(folder.descriptor, name);
        const macos::TrashAnswer answer = macos::moveToTrash(pathIn(*path, name));
        if (!answer.isMoved) {
            return macos::refusalOf(answer);
        }
        const std::size_t slash = answer.path.rfind('/');
        if (slash == std::string::npos || slash == 0) {
            return found(pathIn(*path, name), before ? before->identity : FileIdentity{}, name);
        }
        TrashPlace place{answer.path.substr(0, slash), answer.path.substr(slash + 1)};
        if (std::find(used_.begin(), used_.end(), place.trash) == used_.end()) {
            used_.push_back(place.trash);
        }
        return place;
    }

    Result<FileAttributes, TrashRefusal> attributes(const TrashPlace& place) override {
        auto attributes = fileSystem_.attributesAtPath(pathOf(place));
        if (!attributes) {
            return systemRefusal(attributes.error().code);
        }
        return *attributes;
    }

    std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                        const char* name) override {
        const std::string path = pathOf(place);
        const int failure = moveExclusively(calls_, AT_FDCWD, path.c_str(), folder.number(), name);
        if (failure == EEXIST) {
            return TrashRefusal{TrashRefusalKind::taken, {EEXIST}, SystemError{EEXIST}.text()};
        }
        if (failure == EXDEV) {
            return TrashRefusal{TrashRefusalKind::otherVolume, {EXDEV}, SystemError{EXDEV}.text()};
        }
        if (failure != 0) {
            return systemRefusal(failure);
        }
        if (std::find(used_.begin(), used_.end(), place.trash) == used_.end()) {
            used_.push_back(place.trash);
        }
        return std::nullopt;
    }

    std::string filesFolder(const std::string& trash) const override { return trash; }

    Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) override {
        const auto folder = fileSystem_.openDirectory(trash);
        if (!folder) {
            return systemRefusal(folder.error().code);
        }
        const std::unordered_set<FileIdentity, FileIdentityHash> identities(wanted.begin(),
                                                                            wanted.end());
        std::vector<TrashedFile> found;
        EntryBlock block(listingBytes);
        Result<bool> more = false;
        while ((more = fileSystem_.listEntries(*folder, block)) && *more) {
            for (const EntryBlock::Entry& entry : block.entries()) {
                const auto attributes = fileSystem_.attributesAt(*folder, entry.name);
                if (attributes && identities.contains(attributes->identity)) {
                    found.push_back({entry.name, *attributes});
                }
            }
        }
        if (!more) {
            return systemRefusal(more.error().code);
        }
        return found;
    }

    std::optional<TrashRefusal> repairTrashInfo(const TrashPlace& /*place*/,
                                                const std::string& /*path*/,
                                                Timestamp /*moved*/) override {
        return std::nullopt;
    }

    std::optional<TrashRefusal> removeUnusedTrashInfos(
        const std::string& /*trash*/, const std::vector<std::string>& /*paths*/) override {
        return std::nullopt;
    }

    std::optional<TrashRefusal> flush() override {
        std::optional<TrashRefusal> first;
        for (const std::string& trash : used_) {
            // Of the whole volume, also where the Trash itself must not be opened.
            const int flags = SYNC_VOLUME_FULLSYNC | SYNC_VOLUME_WAIT;
            if (::sync_volume_np(trash.c_str(), flags) != 0 && !first) {
                first = systemRefusal(errno);
            }
        }
        used_.clear();
        return first;
    }

    std::vector<std::string> trashesFor(const std::string& path) const override {
        return macos::trashesFor(path, processEnvironment(), user_.number);
    }

 private:
    /// Where a moved file is if the system did not say it. If it is nowhere, the place where it
    /// most likely is: there the caller finds no file, so it reports one that was moved and not
    /// checked.
    TrashPlace found(const std::string& path, const FileIdentity& wanted, const char* name) {
        const std::vector<std::string> trashes = trashesFor(path);
        for (const std::string& trash : trashes) {
            const auto there = find(trash, {&wanted, 1});
            if (there && !there->empty()) {
                return {trash, there->front().name};
            }
        }
        return {trashes.empty() ? user_.homeTrash.value_or("") : trashes.front(), name};
    }

    const TrashUser user_;
    MoveCalls calls_;
    FileSystem& fileSystem_ = systemFileSystem();
    std::vector<std::string> used_;  // Trashes since the last flush
};

}  // namespace

TrashUser processTrashUser() {
    return {macos::homeTrashFolder(processEnvironment()), ::geteuid()};
}

std::unique_ptr<TrashMover> makeTrashMover(TrashUser user) {
    return std::make_unique<MacTrashMover>(std::move(user));
}

}  // namespace tarvin
