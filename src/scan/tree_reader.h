#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "scan/scan_services.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

namespace tarvin {

/// The data of an entry that a walk needs.
enum class EntryInterest : std::uint8_t {
    none,       ///< nothing: the entry is skipped
    name,       ///< its name and type
    attributes  ///< also its size and dates, if it is a regular file
};

/// One entry of a folder.
struct ListedEntry {
    std::string_view name;  ///< null-terminated; lives as long as its block
    EntryType type = EntryType::unknown;
    bool attributesKnown = false;  ///< `attributes` were read, or are not needed
    SystemError error;             ///< why reading them failed; code 0 if it did not
    FileAttributes attributes;
    std::uint64_t inode = 0;  ///< as listed; 0 if unknown
};

/// Lists folders ahead of the walk that consumes them.
///
/// The walk requests folders one by one, depth first, and gets the entries of each block by block
/// in listing order. Meanwhile workers list the folders that the walk reaches next, also some
/// levels below it, and read the attributes of their entries, also inside one large folder. The
/// amount read ahead is bounded. While a rotational disk has to be read, the walking thread does
/// this instead, several folders at a time: first it lists them, then it reads their attributes,
/// both in the order of the inode numbers. That is nearly the order in which they lie on the disk,
/// and one reader does not seek to and fro. The user's Trash, the folder with the program's own
/// files and pseudo file systems are refused like unreadable folders. Where a walk comes to another
/// file system, it finds out whether the inode numbers of folders change there (UnsteadyVolumes).
///
/// Only the walking thread may call the public functions. Workers wait during a pause; after a stop
/// folders end early.
class TreeReader final {
 public:
    /// Returns which data of the entry `name` of `folder` are needed. Called on workers; a second
    /// time for an entry whose type was unknown.
    using Interest = std::function<EntryInterest(const Directory& folder, std::string_view name,
                                                 EntryType type)>;

    /// Creates the folder `name` of `parent`. Called on the walking thread only, inside the public
    /// functions, which it must not call, and perhaps long before the walk reaches the folder.
    using MakeFolder = std::function<Directory*(const Directory& parent, std::string_view name)>;

    /// Which folders found by a walk are refused because of their file system.
    enum class Devices : std::uint8_t {
        all,       ///< pseudo file systems
        ofTheRoot  ///< also all others but that of the folder at which the walk began
    };

    class Listing;

    /// A folder inside a block.
    struct Folder {
        std::size_t entry = 0;  ///< which one of the block
        Directory* directory = nullptr;
        std::shared_ptr<Listing> listing;
    };

    /// A block of one folder's entries. Owns their names.
    struct Block {
        std::vector<ListedEntry> entries;
        std::unique_ptr<char[]> names;
        std::vector<Folder> folders;  ///< one for each entry that is a directory, in their order
    };

    /// Blocks until a pause is over. Called on the walking thread when it has to wait for paused
    /// workers or for the end of a pause.
    using PauseWait = std::function<void()>;

    /// Without `waitOutPause` a pause is only waited out. To be constructed on the walking thread.
    TreeReader(const ScanServices& services, Interest interest, MakeFolder makeFolder,
               PauseWait waitOutPause = {}, Devices devices = Devices::all);
    TreeReader(const TreeReader&) = delete;
    TreeReader& operator=(const TreeReader&) = delete;
    /// Waits for the workers that are inside a folder.
    ~TreeReader();

    /// A folder at which a walk begins; may be a symbolic link to one.
    static std::shared_ptr<Listing> makeRoot(const Directory* directory);
    /// Blocks until the folder is open and returns its identity, or the error if it cannot be
    /// opened.
    Result<FileIdentity> identityOf(const std::shared_ptr<Listing>& listing);
    /// The error that prevented opening the folder or listing it to its end; nullopt if there has
    /// been none so far.
    std::optional<SystemError> failureOf(const std::shared_ptr<Listing>& listing);
    /// Whether identityOf() refused the folder because it is not walked: a Trash, the folder with
    /// the program's own files or, by `devices`, because of its file system.
    [[nodiscard]] bool isRefused(const std::shared_ptr<Listing>& listing);
    /// Blocks until the next block of the folder's entries is ready. Returns nullptr if there is
    /// none, the folder cannot be read further, or the scan was stopped.
    std::unique_ptr<Block> nextBlock(const std::shared_ptr<Listing>& listing);
    /// Ends the use of the folder. Must be called once for each listing, also for those in blocks
    /// that nextBlock() has returned, for a folder after those inside it. Those in other blocks are
    /// closed with their folder.
    void close(const std::shared_ptr<Listing>& listing);

 private:
    struct PendingBlock;
    struct Place;

    using PendingBlocks = std::vector<std::shared_ptr<PendingBlock>>;

    /// A block in which folders were listed that have not been made.
    struct FoundFolders {
        std::shared_ptr<Listing> in;
        std::shared_ptr<PendingBlock> block;
        std::vector<std::size_t> folders;  // which entries
    };

    void pump();
    class TaskPlace;
    void runTask(TaskPlace& place);
    struct IsEarlier {
        bool operator()(const std::shared_ptr<Listing>& one,
                        const std::shared_ptr<Listing>& other) const;
    };
    using Upcoming = std::set<std::shared_ptr<Listing>, IsEarlier>;

    [[nodiscard]] static std::vector<std::size_t> foldersIn(const Block& block);
    void makeFolders(const std::shared_ptr<Listing>& listing, PendingBlock& pending,
                     const std::vector<std::size_t>& entries);
    bool makeFoundFolders();
    void closeWithFolders(const std::shared_ptr<Listing>& listing);

    [[nodiscard]] bool isTakeable(const Listing& listing) const;
    [[nodiscard]] std::shared_ptr<Listing> nextToTake() const;
    void makeRoomForOne();
    struct Batch;
    struct ListedBatch;
    using Lock = std::unique_lock<std::mutex>;

    void readNow(const std::shared_ptr<Listing>& listing, Lock& lock);
    void readOn(const std::shared_ptr<Listing>& listing, Lock& lock);
    [[nodiscard]] std::vector<std::shared_ptr<Listing>> nextOnDisk(
        const std::shared_ptr<Listing>& listing) const;
    [[nodiscard]] bool isLeftToTheWalk(const Listing& listing) const;
    ListedBatch listBatch(const std::shared_ptr<Listing>& listing, Lock& lock);
    void finish(const ListedBatch& listed, Lock& lock);
    void finishOnDisk(std::span<const ListedBatch> listed, Lock& lock);
    void readAttributesInDiskOrder(std::span<const ListedBatch> listed);
    Batch readBatch(Listing& listing, bool toTheEnd);
    void fillBatch(Listing& listing, bool toTheEnd, Batch& batch);
    Result<bool> listSome(const Listing& listing, EntryBlock& listed);
    void keepBatch(const std::shared_ptr<Listing>& listing, const Batch& batch);
    std::optional<SystemError> open(Listing& listing);
    Result<Descriptor> openFolder(const Listing& listing);
    [[nodiscard]] static bool isOnDeviceOfItsParent(const Listing& listing, std::uint64_t device);
    void examineVolume(const Listing& listing, const FileIdentity& identity,
                       const Descriptor& folder);
    [[nodiscard]] bool isFolder(const std::optional<FileIdentity>& known, std::string_view name,
                                const Directory& folder, const FileIdentity& identity) const;
    [[nodiscard]] bool isNotWalked(const Listing& listing, const FileIdentity& identity) const;
    void closeKeptOpen();
    [[nodiscard]] std::unique_ptr<Block> wanted(const Directory& folder,
                                                const EntryBlock& listed) const;
    void readAttributes(const Listing& listing, const Descriptor& folder, Block& block);
    void readAttributesAtOnce(const Listing& listing, const Descriptor& folder,
                              std::span<ListedEntry> entries);
    std::size_t readAttributesWhileFast(const Listing& listing, const Descriptor& folder,
                                        std::span<ListedEntry> entries);
    void readAttributesOf(ListedEntry& entry, const Listing& listing, const Descriptor& folder);
    void releaseDescriptor(Listing& listing);
    void waitForChange(Lock& lock);
    [[nodiscard]] bool mayGoOn();

    // After so many of them the others are taken to be in memory, too.
    static constexpr std::size_t batchesUntilCached = 8;

    FileSystem& fileSystem_;
    WorkerPool& pool_;
    ScanControl& control_;
    IoWatch& watch_;
    UnsteadyVolumes& unsteadyVolumes_;
    const Interest interest_;
    const MakeFolder makeFolder_;
    const PauseWait waitOutPause_;
    const Devices devices_;
    const std::thread::id walkingThread_ = std::this_thread::get_id();
    const std::optional<FileIdentity> homeTrash_;
    const std::optional<FileIdentity> ownFolder_;
    const std::size_t maxOpenFolders_;

    std::mutex mutex_;
    std::condition_variable changed_;
    Upcoming upcoming_;               // waiting, in the order of the walk; guarded by mutex_
    std::deque<FoundFolders> found_;  // guarded by mutex_
    std::uint32_t walkLevel_ = 0;     // of the folder whose block was taken last; guarded by mutex_
    // Listed to the end, but still open, so that subfolders can be opened relative to them. The
    // oldest is closed when the limit is reached. Guarded by mutex_.
    std::deque<std::shared_ptr<Listing>> keptOpen_;
    std::size_t entriesAhead_ = 0;    // guarded by mutex_
    std::size_t openFolders_ = 0;     // guarded by mutex_
    std::atomic<unsigned> tasks_{0};  // queued or running; grows with mutex_ held
    unsigned readingTasks_ = 0;       // those inside a folder; guarded by mutex_
    bool ending_ = false;             // guarded by mutex_
    // Batches of folders on rotational disks that were in memory, since the last one that had to be
    // read. Guarded by mutex_.
    std::size_t cachedBatches_ = batchesUntilCached;
};

}  // namespace tarvin
