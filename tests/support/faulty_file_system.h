#pragma once

#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <array>
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
    openFile,
    readAt,
    readCachedAt,
    disableReadAhead  ///< counted and acted on, but cannot fail
};

/// The order in which folders list their entries.
enum class ListingOrder : std::uint8_t {
    asListed,  ///< that of the file system
    sorted,    ///< by the bytes of the names
    reversed,  ///< by the bytes of the names, last first
    shuffled   ///< by chance, but the same for the same names and seed
};

/// Another file system (the machine's, as a rule) with a fault wherever the test wants one. Counts
/// what is asked of it, fails or acts at the n-th call of a kind, and answers for devices as told.
/// At first it changes nothing, except that there is no Trash in the home. Any thread; an action
/// runs on the thread that made the call and may use everything here.
class FaultyFileSystem final : public FileSystem {
 public:
    using Action = std::function<void()>;

    /// `nth` for every call.
    static constexpr std::uint64_t each = 0;

    /// `real` outlives it.
    explicit FaultyFileSystem(FileSystem& real = systemFileSystem()) : real_(real) {}

    // Faults. Calls are numbered from 1, from the moment the fault is set, among those of the kind
    // whose path contains `pathPart` (all of them if it is empty). The path of a call on an open
    // file or folder is the one it was opened by; that of an entry is its folder's with the name
    // behind.

    /// Lets the `nth` such call fail with the error number `error`, without asking the real one.
    void failCall(FileCall call, std::uint64_t nth, int error, std::string_view pathPart = {});
    /// Runs `action` just before the `nth` such call is made, or failed.
    void beforeCall(FileCall call, std::uint64_t nth, Action action,
                    std::string_view pathPart = {});
    /// Forgets all faults and actions.
    void clearFaults();

    // Answers.

    /// What descriptorLimit() says from now on.
    void setDescriptorLimit(std::size_t limit);
    /// From now on opening anything while `most` descriptors are open fails with EMFILE.
    void refuseMoreDescriptorsThan(std::size_t most);
    /// What isRotational() says of every device.
    void setRotational(bool rotational);
    /// What isPseudoFileSystem() says of this device.
    void setPseudoFileSystem(std::uint64_t device, bool pseudo);
    void setHomeTrash(std::optional<FileIdentity> identity);
    /// Says that the entry with exactly this path is immutable.
    void setImmutable(const std::string& path);
    /// Says that the entry with exactly this path was made then.
    void setCreated(const std::string& path, Timestamp created);
    /// Folders opened after this list their entries in that order.
    void setListingOrder(ListingOrder order, std::uint64_t seed = 0);
    /// Listings say no entry's type, as some file systems do.
    void hideEntryTypes();
    /// Puts `count` empty regular files behind the entries of a folder, by its path:
    /// "invented-0.txt" and so on. They are listed and have attributes, and cannot be opened.
    void inventFiles(const std::string& folder, std::uint64_t count);

    // What was asked for so far.

    [[nodiscard]] std::uint64_t calls(FileCall call) const;
    /// How often a file or folder was opened by this path, successfully or not.
    [[nodiscard]] std::uint64_t opens(const std::string& path) const;
    /// All paths that openFile() was asked for, sorted, each once.
    [[nodiscard]] std::vector<std::string> openedFiles() const;
    /// Bytes that readAt() and readCachedAt() gave of the file opened by this path.
    [[nodiscard]] std::uint64_t bytesRead(const std::string& path) const;
    /// The same for all files together.
    [[nodiscard]] std::uint64_t bytesRead() const;
    /// Entries that listEntries() gave, of all folders together.
    [[nodiscard]] std::uint64_t entriesListed() const;
    /// Files and folders open now.
    [[nodiscard]] std::size_t openNow() const;
    /// The most that were open at once.
    [[nodiscard]] std::size_t openAtMost() const;
    /// The most threads that were inside readAtLeast() of one device's files at once.
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
    Result<std::size_t> readAtLeast(const Descriptor& file, std::uint64_t offset,
                                    std::span<std::byte> into, std::size_t enough) override;
    Result<std::size_t> readCachedAt(const Descriptor& file, std::uint64_t offset,
                                     std::span<std::byte> into) override;
    void disableReadAhead(const Descriptor& file) override;
    bool isPseudoFileSystem(std::uint64_t device) override;
    bool isRotational(std::uint64_t device) override;
    std::optional<FileIdentity> homeTrash() override;
    std::size_t descriptorLimit() override;

 protected:
    void close(int number) override;

 private:
    static constexpr std::size_t callKinds = 12;

    struct Fault {
        std::uint64_t nth;
        std::string pathPart;
        int error;  // none for an action
        Action action;
        std::uint64_t seen = 0;
    };

    struct ListedName {
        std::string name;
        EntryType type;
    };

    /// What is open. Kept alive by the calls that are inside it.
    struct Open {
        Descriptor real;
        std::string path;
        std::uint64_t device = 0;       // of a file
        std::vector<ListedName> names;  // of a folder whose order is not the file system's
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
    std::optional<SystemError> reserveDescriptor();
    Result<Descriptor> keepOpen(Result<Descriptor> opened, const std::string& path, bool isFile);
    std::shared_ptr<Open> find(const Descriptor& descriptor) const;
    Result<bool> listReordered(Open& folder, EntryBlock& block);
    std::optional<SystemError> listAll(Open& folder);
    static bool listInvented(Open& folder, EntryBlock& block);
    void countRead(const Open& file, const Result<std::size_t>& read);

    FileSystem& real_;

    mutable std::mutex mutex_;  // guards everything below
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
    std::optional<std::size_t> mostDescriptors_;
    std::optional<bool> rotational_;
    std::map<std::uint64_t, bool> pseudo_;
    std::optional<FileIdentity> homeTrash_;
    std::unordered_set<std::string> immutable_;
    std::unordered_map<std::string, Timestamp> created_;
    std::unordered_map<std::string, std::uint64_t> invented_;  // by folder
    ListingOrder order_ = ListingOrder::asListed;
    std::uint64_t seed_ = 0;
    bool typesHidden_ = false;
};

}  // namespace tarvin
