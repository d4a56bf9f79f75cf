#include "platform/file_system.h"

#include "platform/linux/block_devices.h"
#include "platform/linux/lasting_volume.h"
#include "platform/linux/mount_table.h"
#include "platform/linux/user_folders.h"
#include "platform/posix/open_paths.h"
#include "platform/posix/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fiemap.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <utility>

namespace tarvin {

namespace {

constexpr unsigned attributeMask =
    STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_CTIME | STATX_BTIME | STATX_INO | STATX_NLINK;
// Headers older than Linux 6.5 do not name it. The same on all architectures but Alpha.
#ifdef SYS_cachestat
constexpr long cachestatCall = SYS_cachestat;
#else
constexpr long cachestatCall = 451;
#endif

EntryType typeOfListed(unsigned char listed) {
    switch (listed) {
        case DT_REG:
            return EntryType::regular;
        case DT_DIR:
            return EntryType::directory;
        case DT_UNKNOWN:
            return EntryType::unknown;
        default:
            return EntryType::other;
    }
}

FileAttributes toAttributes(const struct statx& from) {
    FileAttributes attributes;
    attributes.type = typeOfMode(from.stx_mode);
    attributes.immutable = (from.stx_attributes & STATX_ATTR_IMMUTABLE) != 0;
    attributes.size = from.stx_size;
    if ((from.stx_mask & STATX_MTIME) != 0) {
        attributes.modified = timestampFrom(from.stx_mtime);
    }
    if ((from.stx_mask & STATX_BTIME) != 0) {
        attributes.created = timestampFrom(from.stx_btime);
    }
    if ((from.stx_mask & STATX_CTIME) != 0) {
        attributes.changed = timestampFrom(from.stx_ctime);
    }
    attributes.linkCount = from.stx_nlink;
    attributes.identity = {makedev(from.stx_dev_major, from.stx_dev_minor), from.stx_ino};
    return attributes;
}

class LinuxFileSystem final : public PosixFileSystem {
 public:
    LinuxFileSystem() : PosixFileSystem(1'000'000) {}

    Result<bool> listEntries(const Descriptor& directory, EntryBlock& block) override {
        block.clear();
        const std::span<std::byte> room = block.bytes();
        ssize_t filled = 0;
        do {
            filled = ::getdents64(directory.number(), room.data(), room.size());
            if (filled < 0 && errno == EINTR) {
                continue;
            }
            if (filled < 0) {
                return SystemError{errno};
            }
            addListed(room.first(static_cast<std::size_t>(filled)), block);
        } while (filled != 0 && block.entries().empty());
        return filled > 0;
    }

    Result<FileAttributes> attributesAtPath(const std::string& path) override {
        const Result<Descriptor> entry =
            opened(openAnyLength(path, O_PATH | O_NOFOLLOW | O_CLOEXEC));
        if (!entry) {
            return entry.error();
        }
        return attributesOf(*entry);
    }

    Result<FileAttributes> currentAttributesAtPath(const std::string& path) override {
        Result<FileAttributes> now =
            attributesFrom(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW | AT_STATX_FORCE_SYNC);
        const bool isLong = !now && now.error().code == ENAMETOOLONG;
        return isLong ? attributesAtPath(path) : now;
    }

    Result<FileAttributes> attributesOf(const Descriptor& descriptor) override {
        return attributesFrom(descriptor.number(), "", AT_EMPTY_PATH);
    }

    Result<FileAttributes> currentAttributesOf(const Descriptor& descriptor) override {
        return attributesFrom(descriptor.number(), "", AT_EMPTY_PATH | AT_STATX_FORCE_SYNC);
    }

    Result<Descriptor> openFile(const std::string& path) override {
        return openedToRead([&path](int flags) { return openAnyLength(path, flags); });
    }

    Result<Descriptor> openFileAt(const Descriptor& folder, const char* name) override {
        return openedToRead(
            [&folder, name](int flags) { return openAt(folder.number(), name, flags); });
    }

    Result<Descriptor> openFolderOfFiles(const std::string& path) override {
        return opened(openAnyLength(path, O_PATH | O_DIRECTORY | O_CLOEXEC));
    }

    Result<std::size_t> readCachedAt(const Descriptor& file, std::uint64_t offset,
                                     std::span<std::byte> into) override {
        const iovec buffer{into.data(), into.size()};
        const ssize_t got =
            ::preadv2(file.number(), &buffer, 1, static_cast<off_t>(offset), RWF_NOWAIT);
        // Where the file system does not support RWF_NOWAIT, nothing counts as cached.
        return got < 0 ? std::size_t{0} : static_cast<std::size_t>(got);
    }

    bool isCached(const Descriptor& file, std::uint64_t offset) override {
        // As in <linux/mman.h>, which older headers have without them.
        struct {
            std::uint64_t offset;
            std::uint64_t bytes;
        } const range{offset, 1};
        struct {
            std::uint64_t cachedPages;
            std::array<std::uint64_t, 4> others;
        } result{};
        if (::syscall(cachestatCall, file.number(), &range, &result, 0U) == 0) {
            return result.cachedPages > 0;
        }
        return FileSystem::isCached(file, offset);
    }

    void disableReadAhead(const Descriptor& file) override {
        ::posix_fadvise(file.number(), 0, 0, POSIX_FADV_RANDOM);
    }

    std::optional<std::uint64_t> placeOnDevice(const Descriptor& file,
                                               std::uint64_t offset) override {
        // Zeroed, with room for one extent behind it. See fiemap.rst of the kernel's documentation.
        alignas(fiemap) std::array<std::byte, sizeof(fiemap) + sizeof(fiemap_extent)> request{};
        // NOLINTNEXTLINE(bugprone-casting-through-void): it is aligned, as Clang cannot see.
        auto* const map = static_cast<fiemap*>(static_cast<void*>(request.data()));
        map->fm_start = offset;
        map->fm_length = FIEMAP_MAX_OFFSET - offset;
        map->fm_extent_count = 1;
        if (::ioctl(file.number(), FS_IOC_FIEMAP, request.data()) != 0 ||
            map->fm_mapped_extents == 0) {
            return std::nullopt;
        }
        fiemap_extent first{};
        std::memcpy(&first, request.data() + sizeof(fiemap), sizeof first);
        constexpr std::uint32_t withoutPlace = FIEMAP_EXTENT_UNKNOWN | FIEMAP_EXTENT_DATA_INLINE;
        if ((first.fe_flags & withoutPlace) != 0) {
            return std::nullopt;
        }
        // The extent may begin before the byte, or behind it, if the byte is in a hole.
        return offset > first.fe_logical ? first.fe_physical + (offset - first.fe_logical)
                                         : first.fe_physical;
    }

    void readAhead(const Descriptor& file, std::uint64_t offset, std::uint64_t bytes) override {
        // The kernel cuts one request down to its own read-ahead, on most disks 128 KiB.
        constexpr std::uint64_t bytesARequest = 128 * 1024;
        for (const std::uint64_t end = offset + bytes; offset < end; offset += bytesARequest) {
            ::posix_fadvise(file.number(), static_cast<off_t>(offset),
                            static_cast<off_t>(std::min(bytesARequest, end - offset)),
                            POSIX_FADV_WILLNEED);
        }
    }

    bool isPseudoFileSystem(std::uint64_t device) override {
        // Not cached: device numbers are reused, and only mount points are checked.
        const auto mounts = readMountInfo();
        return mounts && std::any_of(mounts->begin(), mounts->end(), [device](const auto& mount) {
                   return mount.device == device && isPseudoFileSystemType(mount.fileSystemType);
               });
    }

    std::optional<std::uint64_t> rotationalDiskOf(std::uint64_t device) override {
        return rotationalDiskUnder(device);
    }

    std::optional<std::string> lastingVolumeName(const std::string& folder,
                                                 std::uint64_t device) override {
        const Result<Descriptor> opened = openRootDirectory(folder);
        if (!opened) {
            return std::nullopt;
        }
        const Result<FileAttributes> attributes = attributesOf(*opened);
        return attributes && attributes->identity.device == device
                   ? lastingVolumeNameOf(opened->number())
                   : std::nullopt;
    }

    std::vector<MountedFolder> mountedFolders() override {
        std::vector<MountedFolder> folders;
        for (MountEntry& mount : readMountInfo().value_or(std::vector<MountEntry>())) {
            folders.push_back({mount.device, std::move(mount.root), std::move(mount.mountPoint)});
        }
        return folders;
    }

    std::optional<FileIdentity> homeTrash() override {
        return identityAt(homeTrashFolder(processEnvironment()));
    }

    std::optional<FileIdentity> ownFolder() override {
        return identityAt(applicationSupportFolderOf(processEnvironment()));
    }

 protected:
    Result<FileAttributes> attributesFrom(int directory, const char* name, int flags) override {
        struct statx answer{};
        while (::statx(directory, name, flags | AT_NO_AUTOMOUNT, attributeMask, &answer) != 0) {
            if (errno != EINTR) {
                return SystemError{errno};
            }
        }
        return toAttributes(answer);
    }

 private:
    /// A file that `open` opens with the flags it is given.
    template <typename Open>
    Result<Descriptor> openedToRead(const Open& open) {
        int number = open(fileFlags | O_NOATIME);
        if (number < 0 && errno == EPERM) {
            // O_NOATIME is for the owner only. A scan should not change access times.
            number = open(fileFlags);
        }
        return opened(number);
    }

    static void addListed(std::span<const std::byte> listed, EntryBlock& block) {
        while (!listed.empty()) {
            // The kernel writes the records aligned, one after the other.
            const auto* record =
                // NOLINTNEXTLINE(bugprone-casting-through-void): they are records.
                static_cast<const dirent64*>(static_cast<const void*>(listed.data()));
            const std::string_view name = record->d_name;
            if (name != "." && name != "..") {
                block.add(record->d_name, typeOfListed(record->d_type), record->d_ino);
            }
            listed = listed.subspan(record->d_reclen);
        }
    }
};

}  // namespace

FileSystem& systemFileSystem() {
    // Never destroyed: an abandoned thread may return from a call while the process exits.
    static auto* const fileSystem = new LinuxFileSystem;
    return *fileSystem;
}

}  // namespace tarvin
