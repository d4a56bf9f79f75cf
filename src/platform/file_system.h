#pragma once

#include "platform/result.h"
#include "platform/timestamp.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvin {

class FileSystem;

enum class EntryType : std::uint8_t {
    unknown,    ///< the listing does not say; ask for the attributes
    regular,    ///< a regular file
    directory,  ///< a folder
    other       ///< symbolic link, socket, pipe, device
};

/// What the system knows a file or folder by, whatever its path.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// For tables of folders or files by identity.
struct FileIdentityHash {
    std::size_t operator()(const FileIdentity& identity) const {
        // Inode numbers of one device run close together; the product spreads them.
        return static_cast<std::size_t>((identity.inode * 0x9E3779B97F4A7C15U) ^ identity.device);
    }
};

/// What is recorded of one entry.
struct FileAttributes {
    EntryType type = EntryType::unknown;
    bool immutable =
        false;  ///< locked against change; false where the file system has no such flag
    std::uint64_t size = 0;  ///< bytes
    std::optional<Timestamp> modified;
    std::optional<Timestamp> created;
    /// When anything about it was changed last; cannot be set back.
    std::optional<Timestamp> changed;
    FileIdentity identity;
    std::uint32_t linkCount = 0;  ///< names that it has; none any more if 0
};

/// An open file or folder. Closes itself.
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

/// One portion of a folder's listing, in the order of the file system. Reused from call to call.
class EntryBlock final {
 public:
    struct Entry {
        const char* name;  ///< ended by a zero byte; lives until the block is filled again
        EntryType type;
    };

    /// `capacity` is the room for one portion, in bytes; at least 4,096.
    explicit EntryBlock(std::size_t capacity);

    [[nodiscard]] std::span<const Entry> entries() const { return entries_; }
    [[nodiscard]] std::span<std::byte> bytes() { return {bytes_.get(), capacity_}; }
    void clear() { entries_.clear(); }
    void add(const char* name, EntryType type) { entries_.push_back({name, type}); }

 private:
    std::unique_ptr<std::byte[]> bytes_;
    std::size_t capacity_;
    std::vector<Entry> entries_;
};

/// Listing, attributes and reading, as the scan asks for them. Paths are absolute, native bytes and
/// of any length. Every call may be made on any thread and none follows a symbolic link in the last
/// component, except where it says so. An interrupted call is repeated inside.
class FileSystem {
 public:
    virtual ~FileSystem() = default;

    /// Opens the folder a walk begins at; a symbolic link is followed.
    virtual Result<Descriptor> openRootDirectory(const std::string& path) = 0;
    virtual Result<Descriptor> openDirectory(const std::string& path) = 0;
    virtual Result<Descriptor> openDirectoryAt(const Descriptor& parent, const char* name) = 0;

    /// Fills `block` with the next portion of the folder's entries, "." and ".." left out. False
    /// when there are no more. On failure the block is empty.
    virtual Result<bool> listEntries(const Descriptor& directory, EntryBlock& block) = 0;

    /// The attributes of one entry of an open folder.
    virtual Result<FileAttributes> attributesAt(const Descriptor& directory, const char* name) = 0;
    /// The same of what a symbolic link leads to; of the entry itself if it is no link.
    virtual Result<FileAttributes> targetAttributesAt(const Descriptor& directory,
                                                      const char* name) = 0;
    /// The attributes of the entry at a path, whether or not it can be opened.
    virtual Result<FileAttributes> attributesAtPath(const std::string& path) = 0;
    /// The same, asked of the volume itself where the system may remember them from before, as of
    /// other machines. May take as long as an answer from there.
    virtual Result<FileAttributes> currentAttributesAtPath(const std::string& path) {
        return attributesAtPath(path);
    }
    /// The attributes of what is open.
    virtual Result<FileAttributes> attributesOf(const Descriptor& descriptor) = 0;

    /// Opens for reading. Never waits, whatever stands at the path: a pipe or a device is opened or
    /// refused at once, and the caller looks at the attributes before it reads.
    virtual Result<Descriptor> openFile(const std::string& path) = 0;

    /// Reads from `offset`. Fewer bytes than asked for means that the file ends there.
    Result<std::size_t> readAt(const Descriptor& file, std::uint64_t offset,
                               std::span<std::byte> into) {
        return readAtLeast(file, offset, into, into.size());
    }
    /// The same, but content with `enough` bytes: fewer than that means that the file ends there,
    /// and it may go on behind as many or more. Spares a call to see the end of a file whose size
    /// is known.
    virtual Result<std::size_t> readAtLeast(const Descriptor& file, std::uint64_t offset,
                                            std::span<std::byte> into, std::size_t enough) = 0;
    /// The same, but only what is in memory already: fewer bytes than asked for (none, too) means
    /// that the rest has to come from the device or that the file ends there.
    virtual Result<std::size_t> readCachedAt(const Descriptor& file, std::uint64_t offset,
                                             std::span<std::byte> into) = 0;

    /// Tells the system that what is read of this open file will be all that is asked for, so that
    /// it fetches nothing beyond. A hint; cannot fail.
    virtual void disableReadAhead(const Descriptor& file) = 0;

    /// Whether the device holds no files of anybody's (process and kernel tables and the like).
    virtual bool isPseudoFileSystem(std::uint64_t device) = 0;
    /// Whether the device has moving heads, so that two readers are slower than one. These two take
    /// some tenths of a millisecond.
    virtual bool isRotational(std::uint64_t device) = 0;
    /// The Trash folder of the user's home, if there is one.
    virtual std::optional<FileIdentity> homeTrash() = 0;
    /// How many files the process may hold open at once.
    virtual std::size_t descriptorLimit() = 0;

    /// How many descriptors of this file system have been closed so far.
    [[nodiscard]] std::uint64_t descriptorsClosed() const {
        return descriptorsClosed_.load(std::memory_order_relaxed);
    }

 protected:
    friend class Descriptor;
    virtual void close(int number) = 0;

 private:
    std::atomic<std::uint64_t> descriptorsClosed_{0};
};

/// The file system of the machine; one for the process.
FileSystem& systemFileSystem();

}  // namespace tarvin
