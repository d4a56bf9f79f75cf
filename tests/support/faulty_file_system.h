#pragma once

#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// The calls of a FileSystem that can be counted and made to fail.
enum class FileCall : std::uint8_t {
    openRootDirectory,
    openDirectory,
    openDirectoryAt,
    listEntries,
    attributesAt,
    targetAttributesAt,
    attributesAtPath,
    attributesOf,
    openFile,    ///< also openFileAt()
    openFileAt,  ///< only counted
    openFolderOfFiles,
    readAt,
    readCachedAt,
    disableReadAhead,   ///< counted and acted on, but cannot fail
    lastingVolumeName,  ///< the same
    count               ///< how many there are; no call
};

/// The order in which folders list their entries.
enum class ListingOrder : std::uint8_t {
    asListed,  ///< that of the file system
    sorted,    ///< by the bytes of the names
    reversed,  ///< by the bytes of the names, last first
    shuffled   ///< random, but the same for the same names and seed
};

/// A file system with fault injection: forwards to another one (by default the real one), counts
/// the calls, makes the n-th call of a kind fail or runs an action before it, and returns set
/// values for devices. At first it changes nothing, except that there is no home Trash. Any thread;
/// an action runs on the thread of the call and may use this object.
class FaultyFileSystem final : public FileSystem {
 public:
    using Action = std::function<void()>;

    /// Value of `nth` for every call.
    static constexpr std::uint64_t each = 0;

    /// `real` must outlive this object.
    explicit FaultyFileSystem(FileSystem& real = systemFileSystem()) : real_(real) {}

    // Faults. Calls of a kind whose path contains `pathPart` (all if it is empty) are numbered from
    // 1, beginning when the fault is set. The path of a call on an open file or folder is the path
    // by which it was opened; the path of an entry is that of its folder plus the name.

    /// Makes the `nth` such call fail with errno `error`, without calling the real file system.
    void failCall(FileCall call, std::uint64_t nth, int error, std::string_view pathPart = {});
    /// Runs `action` just before the `nth` such call, or its fault.
    void beforeCall(FileCall call, std::uint64_t nth, Action action,
                    std::string_view pathPart = {});
    /// Removes all faults and actions.
    void clearFaults();

    // Return values.

    /// Sets the result of descriptorLimit().
    void setDescriptorLimit(std::size_t limit);
    /// Makes every open fail with EMFILE while `max` descriptors are open.
    void refuseMoreDescriptorsThan(std::size_t max);
    /// Makes every device a rotational disk of its own, or none.
    void setRotational(bool rotational);
    /// Makes every device a part of the same rotational disk, unless none is.
    void setRotationalDisk(std::uint64_t disk);
    /// Sets the result of isPseudoFileSystem() for this device.
    void setPseudoFileSystem(std::uint64_t device, bool pseudo);
    void setHomeTrash(std::optional<FileIdentity> identity);
    void setOwnFolder(std::optional<FileIdentity> identity);
    /// Reports the entry with exactly this path as immutable.
    void setImmutable(const std::string& path);
    /// Reports that time of creation for the entry with exactly this path.
    void setCreated(const std::string& path, Timestamp created);
    /// Reports that identity for the entry with exactly this path.
    void setIdentity(const std::string& path, FileIdentity identity);
    /// Reports those attributes for the entry with exactly this path, whatever it is.
    void setAttributes(const std::string& path, const FileAttributes& attributes);
    /// Lists the entry with exactly this path with that inode number, if a listing order is set.
    void setListedInode(const std::string& path, std::uint64_t inode);
    /// Reports other inode numbers, dates or both of regular files at each call.
    void jitterInodes() { jittersInodes_ = true; }
    void jitterDates() { jittersDates_ = true; }
    /// Reports other inode numbers of folders at each call.
    void jitterFolders() { jittersFolders_ = true; }
    /// Reports that the file with exactly this path begins there on its device.
    void setPlace(const std::string& path, std::uint64_t place);
    /// Sets the result of lastingVolumeName() for every folder.
    void setVolumeName(std::optional<std::string> name);
    void setMountedFolders(std::vector<MountedFolder> folders);
    /// Sets the order of entries for folders that are opened from now on.
    void setListingOrder(ListingOrder order, std::uint64_t seed = 0);
    /// Lists entries without their types, like some file systems.
    void hideEntryTypes();
    /// Appends `count` fake empty regular files to the entries of the folder at the path:
    /// "invented-0.txt" and so on. They are listed and have attributes, but cannot be opened.
    void inventFiles(const std::string& folder, std::uint64_t count);

    // Counters.

    [[nodiscard]] std::uint64_t calls(FileCall call) const;
    /// The number of times that this path was opened, successfully or not.
    [[nodiscard]] std::uint64_t opens(const std::string& path) const;
    /// All paths passed to openFile(), sorted, without repetitions.
    [[nodiscard]] std::vector<std::string> openedFiles() const;
    /// A call of readAhead().
    struct ReadAheadCall {
        std::string path;
        std::uint64_t offset = 0;
        std::uint64_t bytes = 0;
        bool operator==(const ReadAheadCall&) const = default;
    };
    /// The calls of readAhead(), in their order.
    [[nodiscard]] std::vector<ReadAheadCall> readAheadCalls() const;
    /// Bytes returned by readAt() and readCachedAt() of the file opened by this path.
    [[nodiscard]] std::uint64_t bytesRead(const std::string& path) const;
    /// Bytes returned by readAt() and readCachedAt() of all files.
    [[nodiscard]] std::uint64_t bytesRead() const;
    /// Entries returned by listEntries(), of all folders.
    [[nodiscard]] std::uint64_t entriesListed() const;
    /// Files and folders open now.
    [[nodiscard]] std::size_t openNow() const;
    /// The highest number that were open at the same time.
    [[nodiscard]] std::size_t openAtMost() const;
    /// The highest number of threads inside readAtLeast() for files of one device.
    [[nodiscard]] std::size_t readersOfOneDeviceAtMost() const;

    Result<Descriptor> openRootDirectory(const std::string& path) override;
    Result<Descriptor> openDirectory(const std::string& path) override;
    Result<Descriptor> openDirectoryAt(const Descriptor& parent, const char* name) override;
    Result<bool> listEntries(const Descriptor& directory, EntryBlock& block) override;
    Result<FileAttributes> attributesAt(const Descriptor& directory, const char* name) override;
    Result<FileAttributes> targetAttributesAt(const Descriptor& directory,
                                              const char* name) override;
    Result<FileAttributes> attributesAtPath(const std::string& path) override;
    Result<FileAttributes> attributesOf(const Descriptor& descriptor) override;
    Result<Descriptor> openFile(const std::string& path) override;
    /// Counts as openFile().
    Result<Descriptor> openFileAt(const Descriptor& folder, const char* name) override;
    Result<Descriptor> openFolderOfFiles(const std::string& path) override;
    Result<std::size_t> readAtLeast(const Descriptor& file, std::uint64_t offset,
                                    std::span<std::byte> into, std::size_t enough) override;
    Result<std::size_t> readCachedAt(const Descriptor& file, std::uint64_t offset,
                                     std::span<std::byte> into) override;
    void disableReadAhead(const Descriptor& file) override;
    /// That of setPlace(), or the real one.
    std::optional<std::uint64_t> placeOnDevice(const Descriptor& file,
                                               std::uint64_t offset) override;
    void readAhead(const Descriptor& file, std::uint64_t offset, std::uint64_t bytes) override;
    bool isPseudoFileSystem(std::uint64_t device) override;
    std::optional<std::uint64_t> rotationalDiskOf(std::uint64_t device) override;
    /// That of setVolumeName(), or the real one.
    std::optional<std::string> lastingVolumeName(const std::string& folder,
                                                 std::uint64_t device) override;
    /// Those of setMountedFolders(), or the real ones.
    std::vector<MountedFolder> mountedFolders() override;
    std::optional<FileIdentity> homeTrash() override;
    std::optional<FileIdentity> ownFolder() override;
    std::size_t descriptorLimit() override;

 protected:
    void close(int number) override;

 private:
    static constexpr auto callKinds = static_cast<std::size_t>(FileCall::count);

    struct Fault {
        std::uint64_t nth;
        std::string pathPart;
        int error;  // errno; 0 for an action
        Action action;
        std::uint64_t seen = 0;
    };

    struct ListedName {
        std::string name;
        EntryType type;
    };

    /// An open file or folder. Shared with the calls that use it.
    struct Open {
        Descriptor real;
        std::string path;
        std::uint64_t device = 0;       // of a file
        std::vector<ListedName> names;  // of a folder that is listed in another order
        std::size_t nextName = 0;
        bool allListed = false;
        std::uint64_t invented = 0;
        std::uint64_t nextInvented = 0;
    };

    struct PathRecord {
        std::uint64_t opens = 0;
        std::uint64_t bytesRead = 0;
        bool openedAsFile = false;
    };

    std::optional<SystemError> enter(FileCall call, const std::string& path);
    std::optional<SystemError> enterAt(FileCall call, const std::string& folder, const char* name);
    static std::optional<FileAttributes> inventedAttributes(const Open& folder, const char* name);
    Result<FileAttributes> withFlags(Result<FileAttributes> attributes,
                                     const std::string& path) const;
    void jitter(FileAttributes& attributes) const;
    std::optional<SystemError> reserveDescriptor();
    Result<Descriptor> keepOpen(Result<Descriptor> opened, const std::string& path, bool isFile);
    std::shared_ptr<Open> find(const Descriptor& descriptor) const;
    Result<bool> listReordered(Open& folder, EntryBlock& block);
    std::uint64_t listedInode(const std::string& path);
    std::optional<SystemError> listAll(Open& folder);
    static bool listInvented(Open& folder, EntryBlock& block);
    void countRead(const Open& file, const Result<std::size_t>& read);

    FileSystem& real_;

    mutable std::mutex mutex_;  // guards all fields below
    std::array<std::vector<Fault>, callKinds> faults_;
    std::array<std::uint64_t, callKinds> calls_{};
    std::unordered_map<int, std::shared_ptr<Open>> open_;
    std::unordered_map<std::string, PathRecord> paths_;
    std::uint64_t bytesRead_ = 0;
    std::uint64_t entriesListed_ = 0;
    std::size_t openNow_ = 0;
    std::size_t openAtMost_ = 0;
    std::unordered_map<std::uint64_t, std::size_t> readers_;  // inside readAtLeast(), by device
    std::size_t readersAtMost_ = 0;

    std::optional<std::size_t> descriptorLimit_;
    std::optional<std::size_t> maxDescriptors_;
    std::optional<bool> rotational_;
    std::optional<std::uint64_t> rotationalDisk_;
    std::map<std::uint64_t, bool> pseudo_;
    std::optional<FileIdentity> homeTrash_;
    std::optional<FileIdentity> ownFolder_;
    std::optional<std::optional<std::string>> volumeName_;
    std::optional<std::vector<MountedFolder>> mountedFolders_;
    std::unordered_set<std::string> immutable_;
    std::unordered_map<std::string, Timestamp> created_;
    std::unordered_map<std::string, FileIdentity> identities_;
    std::unordered_map<std::string, FileAttributes> attributes_;
    std::unordered_map<std::string, std::uint64_t> listedInodes_;
    std::unordered_map<std::string, std::uint64_t> places_;
    std::vector<ReadAheadCall> readAhead_;
    std::unordered_map<std::string, std::uint64_t> invented_;  // by folder
    ListingOrder order_ = ListingOrder::asListed;
    std::uint64_t seed_ = 0;
    bool typesHidden_ = false;
    std::atomic<bool> jittersInodes_ = false;
    std::atomic<bool> jittersDates_ = false;
    std::atomic<bool> jittersFolders_ = false;
    mutable std::atomic<std::uint64_t> answers_{0};
};

}  // namespace tarvin
