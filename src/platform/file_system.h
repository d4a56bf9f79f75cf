#pragma once

#include "platform/result.h"
#include "platform/timestamp.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

class FileSystem;

enum class EntryType : std::uint8_t {
    unknown,    ///< not in the listing; stat it
    regular,    ///< a regular file
    directory,  ///< a folder
    other       ///< symbolic link, socket, pipe, device
};

/// Identifies a file or folder independently of its path.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// For hash tables by identity.
struct FileIdentityHash {
    std::size_t operator()(const FileIdentity& identity) const {
        // Inode numbers of one device are close together; the product spreads them.
        return static_cast<std::size_t>((identity.inode * 0x9E3779B97F4A7C15U) ^ identity.device);
    }
};

/// The metadata of one entry.
struct FileAttributes {
    EntryType type = EntryType::unknown;
    bool immutable = false;  ///< the immutable flag; false where the file system has none
    std::uint64_t size = 0;  ///< bytes
    std::optional<Timestamp> modified;
    std::optional<Timestamp> created;
    /// Last change of content or metadata (ctime); cannot be set by programs.
    std::optional<Timestamp> changed;
    FileIdentity identity;
    std::uint32_t linkCount = 0;  ///< hard links; 0 if it was removed
};

/// A folder of a file system that is mounted: its root, or another folder (a bind mount, a
/// subvolume).
struct MountedFolder {
    /// Tells file systems apart; not comparable with FileIdentity::device.
    std::uint64_t fileSystem = 0;
    std::string root;        ///< absolute path within the file system; "/" is all of it
    std::string mountPoint;  ///< absolute path

    bool operator==(const MountedFolder&) const = default;
};

/// A file or folder opened by a FileSystem, which closes it on destruction and must outlive it.
class Descriptor final {
 public:
    Descriptor() = default;
    Descriptor(FileSystem& owner, int number) : owner_(&owner), number_(number) {}
    Descriptor(Descriptor&& other) noexcept
        : owner_(std::exchange(other.owner_, nullptr)), number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { reset(); }

    [[nodiscard]] bool isOpen() const { return owner_ != nullptr; }
    [[nodiscard]] int number() const { return number_; }
    void reset();

 private:
    FileSystem* owner_ = nullptr;
    int number_ = -1;
};

/// One batch of a folder's listing, in the order of the file system. Reused from call to call.
class EntryBlock final {
 public:
    struct Entry {
        const char* name;  ///< null-terminated; valid until the block is filled again
        EntryType type;
        std::uint64_t inode;  ///< 0 if unknown; that of what lies below a mount point
    };

    /// `capacity` is the size of one batch in bytes; at least 4,096.
    explicit EntryBlock(std::size_t capacity);

    [[nodiscard]] std::span<const Entry> entries() const { return entries_; }
    [[nodiscard]] std::span<std::byte> bytes() { return {bytes_.get(), capacity_}; }
    void clear() { entries_.clear(); }
    void add(const char* name, EntryType type, std::uint64_t inode = 0) {
        entries_.push_back({name, type, inode});
    }

 private:
    std::unique_ptr<std::byte[]> bytes_;
    std::size_t capacity_;
    std::vector<Entry> entries_;
};

/// Listing, metadata and reading, as the scan needs them. Paths are absolute, native bytes and of
/// any length. Any thread. Symbolic links in the last component are not followed, except where
/// stated. Interrupted calls are repeated.
class FileSystem {
 public:
    virtual ~FileSystem() = default;

    /// Opens the folder that a walk begins at; follows a symbolic link.
    virtual Result<Descriptor> openRootDirectory(const std::string& path) = 0;
    virtual Result<Descriptor> openDirectory(const std::string& path) = 0;
    virtual Result<Descriptor> openDirectoryAt(const Descriptor& parent, const char* name) = 0;

    /// Fills `block` with the next batch of the folder's entries, without "." and "..". Returns
    /// false at the end. On failure the block is empty.
    virtual Result<bool> listEntries(const Descriptor& directory, EntryBlock& block) = 0;

    /// The metadata of one entry of an open folder.
    virtual Result<FileAttributes> attributesAt(const Descriptor& directory, const char* name) = 0;
    /// The same, but follows a symbolic link.
    virtual Result<FileAttributes> targetAttributesAt(const Descriptor& directory,
                                                      const char* name) = 0;
    /// The metadata of the entry at a path, whether or not it can be opened.
    virtual Result<FileAttributes> attributesAtPath(const std::string& path) = 0;
    /// The same, without the system's cache: a network volume asks its server, and may block as
    /// long as that takes. On macOS, which has no such call, by opening a file of such a volume.
    virtual Result<FileAttributes> currentAttributesAtPath(const std::string& path) {
        return attributesAtPath(path);
    }
    /// The metadata of an open file or folder.
    virtual Result<FileAttributes> attributesOf(const Descriptor& descriptor) = 0;
    /// The same, without the system's cache, as currentAttributesAtPath().
    virtual Result<FileAttributes> currentAttributesOf(const Descriptor& descriptor) {
        return attributesOf(descriptor);
    }

    /// Opens for reading. Does not wait for the other end of a pipe or for a device: the caller
    /// checks the metadata before it reads.
    virtual Result<Descriptor> openFile(const std::string& path) = 0;
    /// The same for a file of a folder that openFolderOfFiles() has opened.
    virtual Result<Descriptor> openFileAt(const Descriptor& folder, const char* name) = 0;
    /// Opens a folder for openFileAt(); follows a symbolic link. Nothing else can be done with it.
    virtual Result<Descriptor> openFolderOfFiles(const std::string& path) = 0;

    /// Reads from `offset`. Returns fewer bytes than requested only at the end of the file.
    Result<std::size_t> readAt(const Descriptor& file, std::uint64_t offset,
                               std::span<std::byte> into) {
        return readAtLeast(file, offset, into, into.size());
    }
    /// The same, but stops after at least `enough` bytes: fewer means the end of the file, more may
    /// follow otherwise. Saves the call that detects the end of a file whose size is known.
    virtual Result<std::size_t> readAtLeast(const Descriptor& file, std::uint64_t offset,
                                            std::span<std::byte> into, std::size_t enough) = 0;
    /// The same, but only from the page cache: fewer bytes than requested, or none, means that the
    /// rest is not cached or that the file ends there.
    virtual Result<std::size_t> readCachedAt(const Descriptor& file, std::uint64_t offset,
                                             std::span<std::byte> into) = 0;
    /// Whether the byte at `offset` is in the page cache. Where the kernel tells (Linux since 6.5,
    /// `cachestat`), the question does not make it read the byte, as readCachedAt() does.
    virtual bool isCached(const Descriptor& file, std::uint64_t offset);

    /// `posix_fadvise` hint: no read-ahead for this open file. Cannot fail.
    virtual void disableReadAhead(const Descriptor& file) = 0;

    /// Where the byte at `offset` of the file is on its device, in bytes, for reading several files
    /// in the order in which they lie; nullopt if the file system does not tell, or the byte has no
    /// place of its own there (the file ends before it, is inside its inode, or not written yet).
    virtual std::optional<std::uint64_t> placeOnDevice(const Descriptor& file,
                                                       std::uint64_t offset) = 0;
    /// `posix_fadvise` hint: begin to read `bytes` of the file from `offset` into the page cache.
    /// Waits only while the queue of the device is full. Cannot fail.
    virtual void readAhead(const Descriptor& file, std::uint64_t offset, std::uint64_t bytes) = 0;

    /// Whether the device is a pseudo file system (procfs, sysfs and the like).
    virtual bool isPseudoFileSystem(std::uint64_t device) = 0;
    /// A number of the rotational disk that holds the device, which all its partitions and volumes
    /// have in common; of a volume on several, that of one. nullopt if the device is on no such
    /// disk, or nobody knows. Two readers of one such disk are slower than one. This and
    /// isPseudoFileSystem() take some tenths of a millisecond.
    virtual std::optional<std::uint64_t> rotationalDiskOf(std::uint64_t device) = 0;
    /// A name of the file system that holds `folder`, which no other file system has and which
    /// outlives unmounting: with it, a file's inode number, size and dates identify its content at
    /// any later time. nullopt if the file system has no such name, does not keep inode numbers, or
    /// may change a file for longer than timeToSettle without a new date; also if it cannot be read
    /// or `folder` is not on `device`.
    virtual std::optional<std::string> lastingVolumeName(const std::string& /*folder*/,
                                                         std::uint64_t /*device*/) {
        return std::nullopt;
    }
    /// Bytes written through a shared mapping into a page that waits to be written back change no
    /// date, and dates have a granularity. So the content of a file whose dates are younger than
    /// this may still change without a new date.
    static constexpr std::chrono::seconds timeToSettle{60};
    /// What is mounted now; empty if that is unknown.
    virtual std::vector<MountedFolder> mountedFolders() { return {}; }
    /// The home Trash, if it exists.
    virtual std::optional<FileIdentity> homeTrash() = 0;
    /// The folder with the program's own files, if it exists.
    virtual std::optional<FileIdentity> ownFolder() = 0;
    /// Maximum number of open files of the process.
    virtual std::size_t descriptorLimit() = 0;

    /// Number of descriptors of this file system that have been closed so far.
    [[nodiscard]] std::uint64_t descriptorsClosed() const {
        return descriptorsClosed_.load(std::memory_order_relaxed);
    }

 protected:
    friend class Descriptor;
    virtual void close(int number) = 0;

 private:
    std::atomic<std::uint64_t> descriptorsClosed_{0};
};

/// The real file system; one object for the process.
FileSystem& systemFileSystem();

}  // namespace tarvin
