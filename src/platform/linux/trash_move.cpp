#include "platform/trash_move.h"

#include "platform/file_paths.h"
#include "platform/linux/mount_table.h"
#include "platform/linux/open_trashes.h"
#include "platform/linux/trash_folder.h"
#include "platform/linux/trash_mover.h"
#include "platform/linux/user_folders.h"
#include "platform/open_folder.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// Whether a path is absolute without "..", whose meaning depends on symbolic links.
bool isSettled(std::string_view path) {
    return path.starts_with('/') && path.find("/../") == std::string_view::npos &&
           !path.ends_with("/..");
}

/// The local date and time as a .trashinfo file holds it.
std::string dateText(std::time_t seconds) {
    std::tm local{};
    if (::localtime_r(&seconds, &local) == nullptr) {
        ::gmtime_r(&seconds, &local);
    }
    char text[64];
    const std::size_t length = std::strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%S", &local);
    return {text, length};
}

class LinuxTrashMover final : public TrashMover {
 public:
    LinuxTrashMover(TrashUser user, TrashSurroundings around)
        : user_(std::move(user)), around_(std::move(around)), trashes_(user_, around_) {}

    Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) override;
    Result<FileAttributes, TrashRefusal> attributes(const TrashPlace& place) override;
    bool wasAt(const TrashPlace& place, const std::string& path) override;
    std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                        const char* name) override;
    [[nodiscard]] std::string filesFolder(const std::string& trash) const override {
        return trash + "/files";
    }
    Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) override;
    Result<std::vector<TrashedFrom>, TrashRefusal> findByPath(
        const std::string& trash, std::span<const std::string> paths) override;
    std::optional<TrashRefusal> repairTrashInfo(const TrashPlace& place, const std::string& path,
                                                Timestamp moved) override;
    std::optional<TrashRefusal> removeUnusedTrashInfos(
        const std::string& trash, const std::vector<std::string>& paths) override;
    [[nodiscard]] std::optional<TrashRefusal> flush() override { return trashes_.flush(); }
    [[nodiscard]] std::vector<std::string> trashesFor(const std::string& path) const override;

 private:
    static Result<std::string, TrashRefusal> pathForTrashInfo(const OpenTrash& trash,
                                                              const OpenFolder& folder,
                                                              const char* name);
    static std::string relativeToTop(const OpenTrash& trash, std::string path);
    const std::string& date();

    const TrashUser user_;
    const TrashSurroundings around_;
    OpenTrashes trashes_;
    std::time_t dateSecond_ = 0;
    std::string date_;
};

Result<TrashPlace, TrashRefusal> LinuxTrashMover::move(const OpenFolder& folder, const char* name) {
    for (bool again = false;; again = true) {
        const auto trash = trashes_.forFolder(folder);
        if (!trash) {
            return trash.error();
        }
        const auto original = pathForTrashInfo(**trash, folder, name);
        if (!original) {
            return original.error();
        }
        auto moved = (*trash)->folder.take(folder.descriptor, name, *original, date());
        if (moved) {
            (*trash)->isFlushed = false;
            return TrashPlace{(*trash)->folder.path(), std::move(*moved)};
        }
        // Another program may have emptied the Trash by removing it.
        const int code = moved.error().error.code;
        const bool mayBeLost =
            moved.error().kind == TrashRefusalKind::system && (code == ENOENT || code == ESTALE);
        if (again || !mayBeLost || (*trash)->folder.isIntact()) {
            return moved.error();
        }
        trashes_.closeChanged();
    }
}

/// The path for the .trashinfo file: absolute in the home Trash, else relative to the top directory
/// of the volume.
Result<std::string, TrashRefusal> LinuxTrashMover::pathForTrashInfo(const OpenTrash& trash,
                                                                    const OpenFolder& folder,
                                                                    const char* name) {
    std::optional<std::string> path = folder.path;
    while (path->size() > 1 && path->ends_with('/')) {
        path->pop_back();
    }
    // The folder may have been reached through a symbolic link.
    if (!isSettled(*path) || !isWithin(*path, trash.top)) {
        path = currentPathOf(folder.descriptor);
    }
    if (!path || !isWithin(*path, trash.top)) {
        return systemRefusal(ENOENT);
    }
    return relativeToTop(trash, pathIn(*path, name));
}

/// Makes a path relative to the top directory of the volume.
std::string LinuxTrashMover::relativeToTop(const OpenTrash& trash, std::string path) {
    if (!trash.top.empty() && isWithin(path, trash.top)) {
        path.erase(0, trash.top == "/" ? 1 : trash.top.size() + 1);
    }
    return path;
}

const std::string& LinuxTrashMover::date() {
    const auto now = std::chrono::floor<std::chrono::seconds>(around_.clock.now());
    const auto second = static_cast<std::time_t>(now.time_since_epoch().count());
    if (date_.empty() || second != dateSecond_) {
        date_ = dateText(second);
        dateSecond_ = second;
    }
    return date_;
}

Result<FileAttributes, TrashRefusal> LinuxTrashMover::attributes(const TrashPlace& place) {
    const auto trash = trashes_.at(place.trash);
    if (!trash) {
        return trash.error();
    }
    const auto attributes =
        systemFileSystem().attributesAt((*trash)->folder.files(), place.name.c_str());
    if (!attributes) {
        TrashRefusal refusal = systemRefusal(attributes.error().code);
        if (attributes.error().code == ENOENT) {
            refusal.kind = TrashRefusalKind::gone;
        }
        return refusal;
    }
    return *attributes;
}

bool LinuxTrashMover::wasAt(const TrashPlace& place, const std::string& path) {
    const auto trash = trashes_.at(place.trash);
    return trash && (*trash)->folder.wasAt(place.name, relativeToTop(**trash, path));
}

std::optional<TrashRefusal> LinuxTrashMover::putBack(const TrashPlace& place,
                                                     const Descriptor& folder, const char* name) {
    const auto trash = trashes_.at(place.trash);
    if (!trash) {
        return trash.error();
    }
    (*trash)->isFlushed = false;
    return (*trash)->folder.giveBack(place.name, folder, name);
}

Result<std::vector<TrashedFile>, TrashRefusal> LinuxTrashMover::find(
    const std::string& trash, std::span<const FileIdentity> wanted) {
    const auto known = trashes_.at(trash);
    if (!known) {
        return known.error();
    }
    FileSystem& fileSystem = systemFileSystem();
    // A separate descriptor: its listing starts at the beginning.
    const auto files = fileSystem.openDirectoryAt((*known)->folder.files(), ".");
    if (!files) {
        return systemRefusal(files.error().code);
    }
    const std::unordered_set<FileIdentity, FileIdentityHash> identities(wanted.begin(),
                                                                        wanted.end());
    std::vector<TrashedFile> found;
    EntryBlock block(trashListingBytes);
    Result<bool> more = false;
    while ((more = fileSystem.listEntries(*files, block)) && *more) {
        for (const EntryBlock::Entry& entry : block.entries()) {
            const auto attributes = fileSystem.attributesAt(*files, entry.name);
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

Result<std::vector<TrashedFrom>, TrashRefusal> LinuxTrashMover::findByPath(
    const std::string& trash, std::span<const std::string> paths) {
    const auto known = trashes_.at(trash);
    if (!known) {
        return known.error();
    }
    std::unordered_map<std::string, std::size_t> originals;
    for (std::size_t number = 0; number < paths.size(); ++number) {
        originals.emplace(percentEncoded(relativeToTop(**known, paths[number])), number);
    }
    return (*known)->folder.findByPath(originals);
}

std::optional<TrashRefusal> LinuxTrashMover::repairTrashInfo(const TrashPlace& place,
                                                             const std::string& path,
                                                             Timestamp moved) {
    const auto trash = trashes_.at(place.trash);
    if (!trash) {
        return trash.error();
    }
    const auto second = std::chrono::floor<std::chrono::seconds>(moved);
    const auto failure = (*trash)->folder.repairTrashInfo(
        place.name, relativeToTop(**trash, path),
        dateText(static_cast<std::time_t>(second.time_since_epoch().count())));
    (*trash)->isFlushed = false;
    return failure;
}

std::optional<TrashRefusal> LinuxTrashMover::removeUnusedTrashInfos(
    const std::string& trash, const std::vector<std::string>& paths) {
    const auto known = trashes_.at(trash);
    if (!known) {
        return known.error();
    }
    std::unordered_set<std::string> originals;
    std::vector<std::string_view> names;
    for (const std::string& path : paths) {
        originals.insert(percentEncoded(relativeToTop(**known, path)));
        names.push_back(std::string_view(path).substr(path.rfind('/') + 1));
    }
    return (*known)->folder.removeUnusedTrashInfos(originals, names);
}

std::vector<std::string> LinuxTrashMover::trashesFor(const std::string& path) const {
    const std::string user = std::to_string(user_.number);
    std::vector<std::string> trashes;
    if (user_.homeTrash) {
        trashes.push_back(*user_.homeTrash);
    }
    // Each parent folder may have been the top directory of a mount.
    for (std::size_t end = path.rfind('/'); end != std::string::npos;
         end = end == 0 ? std::string::npos : path.rfind('/', end - 1)) {
        const std::string top = path.substr(0, end);
        trashes.push_back(top + "/.Trash/" + user);
        trashes.push_back(top + "/.Trash-" + user);
    }
    return trashes;
}

}  // namespace

TrashUser processTrashUser() {
    return {homeTrashFolder(processEnvironment()), ::geteuid()};
}

TrashSurroundings systemTrashSurroundings() {
    return {systemTrashCalls(), systemClock(), mountInfoFile};
}

std::unique_ptr<TrashMover> makeTrashMover(TrashUser user) {
    return makeTrashMover(std::move(user), systemTrashSurroundings());
}

std::unique_ptr<TrashMover> makeTrashMover(TrashUser user, const TrashSurroundings& around) {
    return std::make_unique<LinuxTrashMover>(std::move(user), around);
}

}  // namespace tarvin
