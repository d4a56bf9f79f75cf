#include "platform/linux/open_trashes.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace tarvin {

namespace {

/// How long a check of a Trash, a mount or a device is valid.
constexpr std::chrono::seconds maxAge{1};

/// Each holds three descriptors.
constexpr std::size_t maxOpen = 16;

/// False for file systems without owners and permissions, which show those of the mount instead.
bool keepsRights(std::string_view fileSystemType) {
    constexpr auto without = std::to_array<std::string_view>(
        {"exfat", "fuseblk", "msdos", "ntfs", "ntfs3", "umsdos", "vfat"});
    return std::find(without.begin(), without.end(), fileSystemType) == without.end();
}

}  // namespace

bool OpenTrashes::isRecent(Time checked) const {
    return around_.clock.steadyNow() - checked < maxAge;
}

Result<OpenTrash*, TrashRefusal> OpenTrashes::forFolder(const OpenFolder& folder) {
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

/// The device of the home Trash or, before it exists, of its nearest existing parent.
Result<std::uint64_t, TrashRefusal> OpenTrashes::homeDevice() {
    if (!user_.homeTrash) {
        return TrashRefusal{TrashRefusalKind::noHome, {ENOENT}, "there is no home folder"};
    }
    if (homeDevice_ && isRecent(homeChecked_)) {
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
    homeChecked_ = around_.clock.steadyNow();
    return *homeDevice_;
}

Result<OpenTrash*, TrashRefusal> OpenTrashes::homeTrash() {
    const std::string path = user_.homeTrash.value_or("");
    OpenTrash* const known =
        find([&](const OpenTrash& each) { return each.folder.path() == path; });
    if (known != nullptr) {
        return known;
    }
    auto opened = TrashFolder::open(
        {.path = path, .user = user_.number, .isHome = true, .make = true}, around_.calls);
    if (!opened) {
        return opened.error();
    }
    return add({std::move(*opened), "", 0, around_.clock.steadyNow()});
}

Result<OpenTrash*, TrashRefusal> OpenTrashes::volumeTrash(std::uint64_t mount) {
    OpenTrash* const known =
        find([&](const OpenTrash& each) { return mount != 0 && each.mount == mount; });
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
    return add(
        {std::move(*opened), std::move(entry->mountPoint), mount, around_.clock.steadyNow()});
}

/// The mount table's entry of a mount, unless another mount hides it.
Result<MountEntry, TrashRefusal> OpenTrashes::mountEntry(std::uint64_t mount) {
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

Result<TrashFolder, TrashRefusal> OpenTrashes::openVolume(const MountEntry& entry) {
    const std::string number = std::to_string(user_.number);
    TrashRequest request{.path = pathIn(entry.mountPoint, ".Trash/" + number),
                         .user = user_.number,
                         .make = true,
                         .keepsRights = keepsRights(entry.fileSystemType),
                         .isShared = true};
    // If the shared ".Trash" is refused for any reason, the user's own is used.
    auto shared = TrashFolder::open(request, around_.calls);
    if (shared) {
        return shared;
    }
    request.path = pathIn(entry.mountPoint, ".Trash-" + number);
    request.isShared = false;
    return TrashFolder::open(request, around_.calls);
}

Result<OpenTrash*, TrashRefusal> OpenTrashes::at(const std::string& path) {
    OpenTrash* const known =
        find([&](const OpenTrash& each) { return each.folder.path() == path; });
    if (known != nullptr) {
        return known;
    }
    TrashRequest request{.path = path, .user = user_.number, .isHome = path == user_.homeTrash};
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
    return add({std::move(*opened), std::move(top), 0, around_.clock.steadyNow()});
}

/// The first open Trash that meets a condition and is still the one at its path.
template <typename Condition>
OpenTrash* OpenTrashes::find(const Condition& condition) {
    const auto found = std::find_if(open_.begin(), open_.end(),
                                    [&](const auto& each) { return condition(*each); });
    if (found == open_.end()) {
        return nullptr;
    }
    if (!isRecent((*found)->checked)) {
        if (!(*found)->folder.isIntact()) {
            flush(**found);
            open_.erase(found);
            return nullptr;
        }
        (*found)->checked = around_.clock.steadyNow();
    }
    return found->get();
}

OpenTrash* OpenTrashes::add(OpenTrash trash) {
    if (open_.size() >= maxOpen) {
        for (const auto& each : open_) {
            flush(*each);
        }
        open_.clear();
    }
    open_.push_back(std::make_unique<OpenTrash>(std::move(trash)));
    return open_.back().get();
}

void OpenTrashes::closeChanged() {
    std::erase_if(open_, [this](const auto& each) {
        const bool isChanged = !each->folder.isIntact();
        if (isChanged) {
            flush(*each);
        }
        return isChanged;
    });
    homeDevice_.reset();
}

std::optional<TrashRefusal> OpenTrashes::flush() {
    for (const auto& each : open_) {
        flush(*each);
    }
    return std::exchange(notFlushed_, std::nullopt);
}

/// Keeps the first failure for the next flush() of all.
void OpenTrashes::flush(OpenTrash& trash) {
    auto failure = trash.isFlushed ? std::nullopt : trash.folder.flush();
    trash.isFlushed = !failure;
    if (failure && !notFlushed_) {
        notFlushed_ = std::move(failure);
    }
}

}  // namespace tarvin
