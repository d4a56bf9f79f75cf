#include "platform/trash_move.h"

#include "platform/linux/mount_table.h"
#include "platform/linux/trash_folder.h"
#include "platform/linux/trash_mover.h"
#include "platform/linux/user_environment.h"
#include "platform/open_folder.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstddef>
#include <ctime>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// How long a Trash, a mount or a device counts as it was when it was looked at.
constexpr std::chrono::seconds lookingAgain{1};

/// Each takes three descriptors.
constexpr std::size_t mostHeld = 16;

/// File systems that record no owners and rights of files, but show those of the mount for all.
bool keepsRights(std::string_view fileSystemType) {
    constexpr auto without = std::to_array<std::string_view>(
        {"exfat", "fuseblk", "msdos", "ntfs", "ntfs3", "umsdos", "vfat"});
    return std::find(without.begin(), without.end(), fileSystemType) == without.end();
}

bool isWithin(std::string_view path, std::string_view folder) {
    return folder == "/" || (path.starts_with(folder) &&
                             (path.size() == folder.size() || path[folder.size()] == '/'));
}

/// Whether a path means the same whatever its folders are: links may change what ".." is.
bool isSettled(std::string_view path) {
    return path.starts_with('/') && path.find("/../") == std::string_view::npos &&
           !path.ends_with("/..");
}

/// The local date and time as a note has it.
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
        : user_(std::move(user)), around_(std::move(around)) {}

    Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) override;
    Result<FileAttributes, TrashRefusal> look(const TrashPlace& place) override;
    std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                        const char* name) override;
    Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) override;
    std::optional<TrashRefusal> mendNote(const TrashPlace& place, const std::string& path,
                                         Timestamp moved) override;
    std::optional<TrashRefusal> removeUnusedNotes(const std::string& trash,
                                                  const std::vector<std::string>& paths) override;
    [[nodiscard]] std::optional<TrashRefusal> flush() override;
    [[nodiscard]] std::vector<std::string> trashesFor(const std::string& path) const override;

 private:
    using Time = std::chrono::steady_clock::time_point;

    /// A Trash that is open.
    struct Held {
        TrashFolder folder;
        std::string top;          ///< of the volume; empty for the home Trash
        std::uint64_t mount = 0;  ///< of the volume; 0 for the home Trash and one opened by path
        Time looked;
        bool isFlushed = true;
    };

    Result<Held*, TrashRefusal> trashFor(const OpenFolder& folder);
    Result<Held*, TrashRefusal> homeTrash();
    Result<Held*, TrashRefusal> volumeTrash(std::uint64_t mount);
    Result<Held*, TrashRefusal> trashAt(const std::string& path);
    Result<TrashFolder, TrashRefusal> openVolume(const MountEntry& entry);
    Result<MountEntry, TrashRefusal> mountEntry(std::uint64_t mount);
    Result<std::uint64_t, TrashRefusal> homeDevice();
    template <typename Condition>
    Held* held(const Condition& condition);
    Held* hold(Held trash);
    void flush(Held& trash);
    void forgetChanged();
    static Result<std::string, TrashRefusal> pathForNote(const Held& trash,
                                                         const OpenFolder& folder,
                                                         const char* name);
    static std::string noted(const Held& trash, std::string path);
    const std::string& date();
    [[nodiscard]] bool isRecent(Time looked) const {
        return around_.clock.steadyNow() - looked < lookingAgain;
    }

    const TrashUser user_;
    const TrashSurroundings around_;
    std::vector<std::unique_ptr<Held>> held_;
    std::optional<TrashRefusal> notFlushed_;
    std::optional<std::uint64_t> homeDevice_;
    Time homeLooked_;
    std::time_t dateSecond_ = 0;
    std::string date_;
};

Result<TrashPlace, TrashRefusal> LinuxTrashMover::move(const OpenFolder& folder, const char* name) {
    for (bool again = false;; again = true) {
        const auto trash = trashFor(folder);
        if (!trash) {
            return trash.error();
        }
        const auto original = pathForNote(**trash, folder, name);
        if (!original) {
            return original.error();
        }
        auto moved = (*trash)->folder.take(folder.descriptor, name, *original, date());
        if (moved) {
            (*trash)->isFlushed = false;
            return TrashPlace{(*trash)->folder.path(), std::move(*moved)};
        }
        // Somebody may have emptied the Trash by removing it.
        const int code = moved.error().error.code;
        const bool mayBeLost =
            moved.error().kind == TrashRefusalKind::system && (code == ENOENT || code == ESTALE);
        if (again || !mayBeLost || (*trash)->folder.isIntact()) {
            return moved.error();
        }
        forgetChanged();
    }
}

Result<LinuxTrashMover::Held*, TrashRefusal> LinuxTrashMover::trashFor(const OpenFolder& folder) {
    const auto device = homeDevice();
    if (!device) {
        return device.error();
    }
    if (*device == folder.identity.device) {
        return homeTrash();
    }
    TrashEntryStatus status;
    const int failure = around_.calls.statusOf(folder.descriptor.number(), status);
    if (failure != 0) {
        return systemRefusal(failure);
    }
    return volumeTrash(status.mount);
}

/// The device that the home Trash is on or, before it is made, will be on.
Result<std::uint64_t, TrashRefusal> LinuxTrashMover::homeDevice() {
    if (!user_.homeTrash) {
        return TrashRefusal{TrashRefusalKind::noHome, {ENOENT}, "there is no home folder"};
    }
    if (homeDevice_ && isRecent(homeLooked_)) {
        return *homeDevice_;
    }
    std::string path = *user_.homeTrash;
    TrashEntryStatus status;
    int failure = around_.calls.status(TrashCalls::currentFolder, path.c_str(), status);
    while ((failure == ENOENT || failure == ENOTDIR) && path.size() > 1) {
        path.resize(std::max<std::size_t>(path.rfind('/'), 1));
        failure = around_.calls.targetStatus(TrashCalls::currentFolder, path.c_str(), status);
    }
    if (failure != 0) {
        return systemRefusal(failure);
    }
    homeDevice_ = status.identity.device;
    homeLooked_ = around_.clock.steadyNow();
    return *homeDevice_;
}

Result<LinuxTrashMover::Held*, TrashRefusal> LinuxTrashMover::homeTrash() {
    const std::string path = user_.homeTrash.value_or("");
    Held* const known = held([&](const Held& each) { return each.folder.path() == path; });
    if (known != nullptr) {
        return known;
    }
    auto opened = TrashFolder::open(
        {.path = path, .user = user_.number, .isHome = true, .make = true}, around_.calls);
    if (!opened) {
        return opened.error();
    }
    return hold({std::move(*opened), "", 0, around_.clock.steadyNow()});
}

Result<LinuxTrashMover::Held*, TrashRefusal> LinuxTrashMover::volumeTrash(std::uint64_t mount) {
    Held* const known = held([&](const Held& each) { return mount != 0 && each.mount == mount; });
    if (known != nullptr) {
        return known;
    }
    auto entry = mountEntry(mount);
    if (!entry) {
        return entry.error();
    }
    auto opened = openVolume(*entry);
    if (!opened) {
        return opened.error();
    }
    return hold(
        {std::move(*opened), std::move(entry->mountPoint), mount, around_.clock.steadyNow()});
}

/// The entry of a mount that its mount point leads to: another one may hide it.
Result<MountEntry, TrashRefusal> LinuxTrashMover::mountEntry(std::uint64_t mount) {
    const TrashRefusal refusal{
        TrashRefusalKind::noVolume, {ENODEV}, "the volume of the file is not accessible"};
    auto entry = mount == 0 ? std::nullopt : findMount(mount, around_.mountTable);
    TrashEntryStatus status;
    if (!entry || around_.calls.targetStatus(TrashCalls::currentFolder, entry->mountPoint.c_str(),
                                             status) != 0) {
        return refusal;
    }
    if (status.mount != mount) {
        return refusal;
    }
    return std::move(*entry);
}

Result<TrashFolder, TrashRefusal> LinuxTrashMover::openVolume(const MountEntry& entry) {
    const std::string number = std::to_string(user_.number);
    TrashFolder::Request request{.path = pathBelow(entry.mountPoint, ".Trash/" + number),
                                 .user = user_.number,
                                 .make = true,
                                 .keepsRights = keepsRights(entry.fileSystemType),
                                 .isShared = true};
    // Whatever stands against the Trash that the users share, there is their own.
    auto shared = TrashFolder::open(request, around_.calls);
    if (shared) {
        return shared;
    }
    request.path = pathBelow(entry.mountPoint, ".Trash-" + number);
    request.isShared = false;
    return TrashFolder::open(request, around_.calls);
}

/// A Trash that was used before, by its path.
Result<LinuxTrashMover::Held*, TrashRefusal> LinuxTrashMover::trashAt(const std::string& path) {
    Held* const known = held([&](const Held& each) { return each.folder.path() == path; });
    if (known != nullptr) {
        return known;
    }
    TrashFolder::Request request{
        .path = path, .user = user_.number, .isHome = path == user_.homeTrash};
    request.isShared = !request.isHome && path.ends_with("/.Trash/" + std::to_string(user_.number));
    TrashEntryStatus status;
    if (around_.calls.status(TrashCalls::currentFolder, path.c_str(), status) == 0) {
        const auto entry = findMount(status.mount, around_.mountTable);
        request.keepsRights = request.isHome || !entry || keepsRights(entry->fileSystemType);
    }
    auto opened = TrashFolder::open(request, around_.calls);
    if (!opened) {
        return opened.error();
    }
    std::string top = request.isHome ? "" : path.substr(0, path.rfind('/'));
    if (request.isShared) {
        top.erase(top.rfind('/'));
    }
    if (!request.isHome && top.empty()) {
        top = "/";
    }
    return hold({std::move(*opened), std::move(top), 0, around_.clock.steadyNow()});
}

/// The first open Trash that meets a condition and is still what stands at its path.
template <typename Condition>
LinuxTrashMover::Held* LinuxTrashMover::held(const Condition& condition) {
    const auto found = std::find_if(held_.begin(), held_.end(),
                                    [&](const auto& each) { return condition(*each); });
    if (found == held_.end()) {
        return nullptr;
    }
    if (!isRecent((*found)->looked)) {
        if (!(*found)->folder.isIntact()) {
            flush(**found);
            held_.erase(found);
            return nullptr;
        }
        (*found)->looked = around_.clock.steadyNow();
    }
    return found->get();
}

LinuxTrashMover::Held* LinuxTrashMover::hold(Held trash) {
    if (held_.size() >= mostHeld) {
        for (const auto& each : held_) {
            flush(*each);
        }
        held_.clear();
    }
    held_.push_back(std::make_unique<Held>(std::move(trash)));
    return held_.back().get();
}

void LinuxTrashMover::forgetChanged() {
    std::erase_if(held_, [this](const auto& each) {
        const bool isChanged = !each->folder.isIntact();
        if (isChanged) {
            flush(*each);
        }
        return isChanged;
    });
    homeDevice_.reset();
}

/// Where the file was, as its note is to tell: absolute in the home Trash, else below the top
/// folder of the volume.
Result<std::string, TrashRefusal> LinuxTrashMover::pathForNote(const Held& trash,
                                                               const OpenFolder& folder,
                                                               const char* name) {
    std::optional<std::string> path = folder.path;
    while (path->size() > 1 && path->ends_with('/')) {
        path->pop_back();
    }
    // The folder may have been reached by a link from elsewhere.
    if (!isSettled(*path) || !isWithin(*path, trash.top)) {
        path = placeOf(folder.descriptor);
    }
    if (!path || !isWithin(*path, trash.top)) {
        return systemRefusal(ENOENT);
    }
    return noted(trash, pathBelow(*path, name));
}

/// A path below the top folder of a volume, from there.
std::string LinuxTrashMover::noted(const Held& trash, std::string path) {
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

Result<FileAttributes, TrashRefusal> LinuxTrashMover::look(const TrashPlace& place) {
    const auto trash = trashAt(place.trash);
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

std::optional<TrashRefusal> LinuxTrashMover::putBack(const TrashPlace& place,
                                                     const Descriptor& folder, const char* name) {
    const auto trash = trashAt(place.trash);
    if (!trash) {
        return trash.error();
    }
    (*trash)->isFlushed = false;
    return (*trash)->folder.giveBack(place.name, folder, name);
}

Result<std::vector<TrashedFile>, TrashRefusal> LinuxTrashMover::find(
    const std::string& trash, std::span<const FileIdentity> wanted) {
    const auto known = trashAt(trash);
    if (!known) {
        return known.error();
    }
    FileSystem& fileSystem = systemFileSystem();
    // A listing of its own, from the beginning.
    const auto files = fileSystem.openDirectoryAt((*known)->folder.files(), ".");
    if (!files) {
        return systemRefusal(files.error().code);
    }
    const std::unordered_set<FileIdentity, FileIdentityHash> looked(wanted.begin(), wanted.end());
    std::vector<TrashedFile> found;
    EntryBlock block(trashListingBytes);
    Result<bool> more = false;
    while ((more = fileSystem.listEntries(*files, block)) && *more) {
        for (const EntryBlock::Entry& entry : block.entries()) {
            const auto attributes = fileSystem.attributesAt(*files, entry.name);
            if (attributes && looked.contains(attributes->identity)) {
                found.push_back({entry.name, *attributes});
            }
        }
    }
    if (!more) {
        return systemRefusal(more.error().code);
    }
    return found;
}

std::optional<TrashRefusal> LinuxTrashMover::mendNote(const TrashPlace& place,
                                                      const std::string& path, Timestamp moved) {
    const auto trash = trashAt(place.trash);
    if (!trash) {
        return trash.error();
    }
    const auto second = std::chrono::floor<std::chrono::seconds>(moved);
    const auto failure = (*trash)->folder.mendNote(
        place.name, noted(**trash, path),
        dateText(static_cast<std::time_t>(second.time_since_epoch().count())));
    (*trash)->isFlushed = false;
    return failure;
}

std::optional<TrashRefusal> LinuxTrashMover::removeUnusedNotes(
    const std::string& trash, const std::vector<std::string>& paths) {
    const auto known = trashAt(trash);
    if (!known) {
        return known.error();
    }
    std::unordered_set<std::string> originals;
    std::vector<std::string_view> names;
    for (const std::string& path : paths) {
        originals.insert(percentEncoded(noted(**known, path)));
        names.push_back(std::string_view(path).substr(path.rfind('/') + 1));
    }
    return (*known)->folder.removeUnusedNotes(originals, names);
}

std::optional<TrashRefusal> LinuxTrashMover::flush() {
    for (const auto& each : held_) {
        flush(*each);
    }
    return std::exchange(notFlushed_, std::nullopt);
}

/// The first failure is told by the next flush() of all.
void LinuxTrashMover::flush(Held& trash) {
    auto failure = trash.isFlushed ? std::nullopt : trash.folder.flush();
    trash.isFlushed = !failure;
    if (failure && !notFlushed_) {
        notFlushed_ = std::move(failure);
    }
}

std::vector<std::string> LinuxTrashMover::trashesFor(const std::string& path) const {
    const std::string user = std::to_string(user_.number);
    std::vector<std::string> trashes;
    if (user_.homeTrash) {
        trashes.push_back(*user_.homeTrash);
    }
    // Each folder above may have been the top folder of a mount.
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
