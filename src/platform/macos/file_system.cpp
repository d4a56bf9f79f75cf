#include "platform/file_system.h"

#include "platform/macos/cloud_files.h"
#include "platform/macos/mount_list.h"
#include "platform/macos/mounts.h"
#include "platform/macos/rotational_disks.h"
#include "platform/macos/user_folders.h"
#include "platform/posix/open_paths.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/small_file.h"
#include "platform/posix/user_environment.h"
#include "platform/unique_fd.h"

#include <fcntl.h>
#include <sys/attr.h>
#include <sys/mount.h>
#include <sys/param.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syslimits.h>
#include <sys/unistd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// As in <sys/xattr.h>, which not all SDKs have.
extern "C" ssize_t fgetxattr(int file, const char* name, void* value, size_t size,
                             std::uint32_t position, int options);

namespace tarvin {

namespace {

/// The attribute as which the system shows a resource fork.
constexpr const char* resourceFork = "com.apple.ResourceFork";

/// nullopt for a date that the file system does not have: it is -1 or 0 then.
std::optional<Timestamp> dateOfCreation(const timespec& time) {
    return time.tv_sec > 0 ? std::optional(timestampFrom(time)) : std::nullopt;
}

FileAttributes toAttributes(const struct stat& from) {
    FileAttributes attributes;
    attributes.type = typeOfMode(from.st_mode);
    attributes.immutable = (from.st_flags & (UF_IMMUTABLE | SF_IMMUTABLE)) != 0;
    attributes.size = static_cast<std::uint64_t>(from.st_size);
    attributes.modified = timestampFrom(from.st_mtimespec);
    attributes.created = dateOfCreation(from.st_birthtimespec);
    attributes.changed = timestampFrom(from.st_ctimespec);
    attributes.linkCount = from.st_nlink;
    // Negative numbers of devices exist; the list of mounts has them, too (mount_list.cpp).
    attributes.identity = {static_cast<std::uint32_t>(from.st_dev), from.st_ino};
    return attributes;
}

/// A file of a cloud service whose content is not on this computer. Reading it, or listing such a
/// folder, would download it.
bool isInCloudOnly(const struct stat& status) {
    return (status.st_flags & SF_DATALESS) != 0;
}

// The values of ATTR_CMN_OBJTYPE, "enum vtype" in <sys/vnode.h>, which not all SDKs have.
constexpr fsobj_type_t noType = 0;
constexpr fsobj_type_t regularFile = 1;
constexpr fsobj_type_t directory = 2;

EntryType typeOfListed(fsobj_type_t listed) {
    switch (listed) {
        case regularFile:
            return EntryType::regular;
        case directory:
            return EntryType::directory;
        case noType:
            return EntryType::unknown;
        default:
            return EntryType::other;
    }
}

/// Reads the fields of one record of `getattrlistbulk`, which follow each other without gaps, in an
/// order that the manual page of `getattrlist` describes.
class RecordReader final {
 public:
    explicit RecordReader(const std::byte* at) : at_(at) {}

    [[nodiscard]] const std::byte* at() const { return at_; }
    template <typename Field>
    Field next() {
        Field field{};
        std::memcpy(&field, at_, sizeof(field));
        at_ += sizeof(field);
        return field;
    }

 private:
    const std::byte* at_;
};

class MacFileSystem final : public PosixFileSystem {
 public:
    MacFileSystem() : PosixFileSystem(OPEN_MAX) {
        // Content that is only in the cloud is not fetched: the system answers EDEADLK, also where
        // the checks below come too early.
        static_cast<void>(::setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES,
                                           IOPOL_SCOPE_PROCESS,
                                           IOPOL_MATERIALIZE_DATALESS_FILES_OFF));
        // The usual limit of open files is 256.
        rlimit limit{};
        if (::getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < OPEN_MAX) {
            limit.rlim_cur = std::min<rlim_t>(OPEN_MAX, limit.rlim_max);
            static_cast<void>(::setrlimit(RLIMIT_NOFILE, &limit));
        }
    }

    Result<bool> listEntries(const Descriptor& folder, EntryBlock& block) override {
        block.clear();
        const std::span<std::byte> room = block.bytes();
        attrlist wanted{};
        wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
        wanted.commonattr = ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_NAME | ATTR_CMN_ERROR |
                            ATTR_CMN_OBJTYPE | ATTR_CMN_FILEID;
        int count = -1;
        do {
            count = ::getattrlistbulk(folder.number(), &wanted, room.data(), room.size(), 0);
        } while (count < 0 && errno == EINTR);
        if (count < 0) {
            return SystemError{errno};
        }
        const std::byte* record = room.data();
        for (int left = count; left > 0; --left) {
            record = addListed(record, block);
        }
        return count > 0;
    }

    Result<FileAttributes> attributesAtPath(const std::string& path) override {
        if (path.size() < PATH_MAX) {
            return attributesFrom(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW);
        }
        const std::size_t slash = path.rfind('/', path.find_last_not_of('/'));
        const UniqueFd folder(
            openAnyLength(path.substr(0, slash), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        return folder
                   ? attributesFrom(folder.number(), path.c_str() + slash + 1, AT_SYMLINK_NOFOLLOW)
                   : Result<FileAttributes>(SystemError{errno});
    }

    /// There is no call for it; opening a file makes NFS and SMB ask the server. A file that cannot
    /// be opened there has no attributes that one may rely on.
    Result<FileAttributes> currentAttributesAtPath(const std::string& path) override {
        Result<FileAttributes> known = attributesAtPath(path);
        struct statfs volume{};
        if (!known || known->type == EntryType::other ||
            (::statfs(path.c_str(), &volume) == 0 && !mayBeStale(volume))) {
            return known;
        }
        const Result<Descriptor> opened =
            known->type == EntryType::directory ? openFolderOfFiles(path) : openFile(path);
        return opened ? attributesOf(*opened) : Result<FileAttributes>(opened.error());
    }

    Result<FileAttributes> attributesOf(const Descriptor& descriptor) override {
        struct stat answer{};
        while (::fstat(descriptor.number(), &answer) != 0) {
            if (errno != EINTR) {
                return SystemError{errno};
            }
        }
        return toAttributes(answer);
    }

    Result<Descriptor> openFile(const std::string& path) override {
        const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
        return macos::isCloudPlaceholder(name) ? Result<Descriptor>(SystemError{EDEADLK})
                                               : openedFile(openAnyLength(path, fileFlags));
    }

    Result<Descriptor> openFileAt(const Descriptor& folder, const char* name) override {
        return macos::isCloudPlaceholder(name)
                   ? Result<Descriptor>(SystemError{EDEADLK})
                   : openedFile(openAt(folder.number(), name, fileFlags));
    }

    Result<Descriptor> openFolderOfFiles(const std::string& path) override {
        return opened(openAnyLength(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }

    /// There is no such call: nothing counts as cached.
    Result<std::size_t> readCachedAt(const Descriptor& /*file*/, std::uint64_t /*offset*/,
                                     std::span<std::byte> /*into*/) override {
        return std::size_t{0};
    }

    void disableReadAhead(const Descriptor& file) override {
        static_cast<void>(::fcntl(file.number(), F_RDAHEAD, 0));
    }

    std::optional<std::uint64_t> placeOnDevice(const Descriptor& file,
                                               std::uint64_t offset) override {
        log2phys place{};
        place.l2p_contigbytes = 1;
        place.l2p_devoffset = static_cast<off_t>(offset);
        const bool isKnown = ::fcntl(file.number(), F_LOG2PHYS_EXT, &place) == 0;
        // Negative for a hole.
        return isKnown && place.l2p_devoffset >= 0
                   ? std::optional(static_cast<std::uint64_t>(place.l2p_devoffset))
                   : std::nullopt;
    }

    void readAhead(const Descriptor& file, std::uint64_t offset, std::uint64_t bytes) override {
        radvisory request{};
        request.ra_offset = static_cast<off_t>(offset);
        request.ra_count = static_cast<int>(std::min<std::uint64_t>(bytes, INT_MAX));
        static_cast<void>(::fcntl(file.number(), F_RDADVISE, &request));
    }

    bool isPseudoFileSystem(std::uint64_t device) override {
        // Not cached: device numbers are reused, and only mount points are checked.
        return macos::isLeftOut(device, macos::readMounts());
    }

    std::optional<std::uint64_t> rotationalDiskOf(std::uint64_t device) override {
        return macos::rotationalDiskUnder(device);
    }

    // lastingVolumeName() stays without an answer: when bytes written through a mapping change the
    // date of their file is not documented, so an unchanged date does not prove unchanged content.

    std::vector<MountedFolder> mountedFolders() override {
        constexpr std::size_t maxFirmlinksBytes = std::size_t{1} << 20U;
        return macos::mountedFoldersOf(
            macos::readMounts(),
            readSmallFile("/usr/share/firmlinks", maxFirmlinksBytes).value_or(""));
    }

    std::optional<FileIdentity> homeTrash() override {
        return identityAt(macos::homeTrashFolder(processEnvironment()));
    }

    std::optional<FileIdentity> ownFolder() override {
        return identityAt(macos::applicationSupportFolderOf(processEnvironment()));
    }

 protected:
    Result<FileAttributes> attributesFrom(int folder, const char* name, int flags) override {
        struct stat answer{};
        while (::fstatat(folder, name, &answer, flags) != 0) {
            if (errno != EINTR) {
                return SystemError{errno};
            }
        }
        return toAttributes(answer);
    }

    /// Refuses what is only in the cloud: opening it is harmless, using it would download it.
    Result<Descriptor> opened(int number) override {
        Result<Descriptor> descriptor = PosixFileSystem::opened(number);
        struct stat status{};
        if (descriptor && ::fstat(number, &status) == 0 && isInCloudOnly(status)) {
            return SystemError{EDEADLK};
        }
        return descriptor;
    }

 private:
    /// Refuses a file with a resource fork: that is content of its own, which nobody compares, and
    /// old files have nothing else.
    Result<Descriptor> openedFile(int number) {
        Result<Descriptor> descriptor = opened(number);
        if (descriptor && ::fgetxattr(number, resourceFork, nullptr, 0, 0, 0) > 0) {
            return SystemError{EFTYPE};
        }
        return descriptor;
    }

    /// Whether the file system keeps attributes in a cache for some time, as those of networks do.
    static bool mayBeStale(const struct statfs& volume) {
        return (volume.f_flags & MNT_LOCAL) == 0;
    }

    /// Returns where the next record begins.
    static const std::byte* addListed(const std::byte* record, EntryBlock& block) {
        RecordReader fields(record);
        const auto length = fields.next<std::uint32_t>();
        const auto returned = fields.next<attribute_set_t>();
        const auto has = [&returned](attrgroup_t attribute) {
            return (returned.commonattr & attribute) != 0;
        };
        if (has(ATTR_CMN_ERROR)) {
            // The entry has a name, but its attributes cannot be read.
            static_cast<void>(fields.next<std::uint32_t>());
        }
        const char* name = nullptr;
        if (has(ATTR_CMN_NAME)) {
            const std::byte* const reference = fields.at();
            const auto place = fields.next<attrreference_t>();
            const void* const text = reference + place.attr_dataoffset;
            name = static_cast<const char*>(text);
        }
        const auto type = has(ATTR_CMN_OBJTYPE) ? fields.next<fsobj_type_t>() : noType;
        const auto inode = has(ATTR_CMN_FILEID) ? fields.next<std::uint64_t>() : 0;
        if (name != nullptr && std::string_view(name) != "." && std::string_view(name) != "..") {
            block.add(name, typeOfListed(type), inode);
        }
        return record + length;
    }
};

}  // namespace

FileSystem& systemFileSystem() {
    // Never destroyed: an abandoned thread may return from a call while the process exits.
    static auto* const fileSystem = new MacFileSystem;
    return *fileSystem;
}

}  // namespace tarvin
