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
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tarvin {

/// What a walk wants to know of an entry before it sees it.
enum class EntryInterest : std::uint8_t {
    none,       ///< the entry is left out of the listing
    name,       ///< its name and kind are enough
    attributes  ///< its size and dates, too, if it is a regular file
};

/// One entry of a folder as a walk sees it.
struct ListedEntry {
    std::string_view name;  ///< lives as long as the block it came in; ended by a zero byte
    EntryType type = EntryType::unknown;
    bool attributesKnown = false;  ///< `attributes` were asked for and could be read
    SystemError error;             ///< why they could not; code 0 if they were not asked for
    FileAttributes attributes;
};

/// Lists folders ahead of the walk that consumes them.
///
/// The walk asks for folders one by one, depth first, and gets every folder's entries block by
/// block in listing order. Meanwhile workers list the folders that come next and read their
/// entries' attributes; also inside one large folder. What is read ahead is bounded, whatever the
/// tree. The user's Trash and file systems that hold nobody's files are refused like unreadable
/// folders.
///
/// One thread walks: it alone calls the public functions. A pause holds the workers; after a stop
/// folders end early.
class TreeReader final {
 public:
    /// Says what is wanted of an entry, by its name. Called on workers.
    using Interest = EntryInterest (*)(std::string_view name);

    class Listing;

    /// A portion of one folder's entries. Owns their names.
    struct Block {
        std::vector<ListedEntry> entries;
        std::unique_ptr<char[]> names;
    };

    /// Waits until a pause is over. Called on the walking thread, when it would wait for workers
    /// that a pause holds or for the pause itself.
    using PauseWait = std::function<void()>;

    /// Without a `waitOutPause` the walk waits in silence. Made on the thread that walks.
    TreeReader(const ScanServices& services, Interest interest, PauseWait waitOutPause = {});
    TreeReader(const TreeReader&) = delete;
    TreeReader& operator=(const TreeReader&) = delete;
    /// Waits for the workers that are inside a folder.
    ~TreeReader();

    /// The folder a walk begins at; a symbolic link to one is followed.
    static std::shared_ptr<Listing> makeRoot(const Directory* directory);
    /// A folder found in a block of `parent`, which must be open still. Lists nothing yet.
    static std::shared_ptr<Listing> makeListing(const std::shared_ptr<Listing>& parent,
                                                const Directory* directory);
    /// Tells the workers what the walk comes to next, in its order, before anything told earlier.
    void announce(const std::vector<std::shared_ptr<Listing>>& folders);

    /// Waits until the folder is open and says which it is. The error if it cannot be opened.
    Result<FileIdentity> identityOf(const std::shared_ptr<Listing>& listing);
    /// Why the folder could not be opened or not be listed to its end, as far as is known now.
    std::optional<SystemError> failureOf(const std::shared_ptr<Listing>& listing);
    /// Whether identityOf() refused the folder because it is never walked: a Trash, or a file
    /// system that holds nobody's files.
    [[nodiscard]] bool isRefused(const std::shared_ptr<Listing>& listing);
    /// The next block of the folder's entries; none when there are no more, the folder cannot be
    /// read on, or the scan was stopped.
    std::unique_ptr<Block> nextBlock(const std::shared_ptr<Listing>& listing);
    /// Says that the walk is done with the folder. Must be called for each listing it opened.
    void close(const std::shared_ptr<Listing>& listing);

 private:
    struct PendingBlock;

    using PendingBlocks = std::vector<std::shared_ptr<PendingBlock>>;

    void pump();
    class TaskPlace;
    void runTask(TaskPlace& place);
    using Upcoming = std::deque<std::shared_ptr<Listing>>;

    [[nodiscard]] bool mayBeTaken(const Listing& listing) const;
    Upcoming::iterator nextToTake();
    std::shared_ptr<Listing> takeUpcoming();
    void makeRoomForOne();
    void readOn(const std::shared_ptr<Listing>& listing, std::unique_lock<std::mutex>& lock);
    struct Portion;
    Portion readPortion(Listing& listing, bool toTheEnd);
    void fillPortion(Listing& listing, bool toTheEnd, Portion& portion);
    Result<bool> listSome(const Listing& listing, EntryBlock& listed);
    void keepPortion(const std::shared_ptr<Listing>& listing, const Portion& portion);
    std::optional<SystemError> open(Listing& listing);
    Result<Descriptor> openFolder(const Listing& listing);
    [[nodiscard]] bool isNeverWalked(const Listing& listing, const FileIdentity& identity) const;
    void closeKeptOpen();
    [[nodiscard]] std::unique_ptr<Block> wanted(const EntryBlock& listed) const;
    void readAttributes(const Listing& listing, const Descriptor& folder, Block& block);
    void releaseDescriptor(Listing& listing);
    void waitForChange(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] bool mayGoOn();

    FileSystem& fileSystem_;
    WorkerPool& pool_;
    ScanControl& control_;
    IoWatch& watch_;
    const Interest interest_;
    const PauseWait waitOutPause_;
    const std::thread::id walkingThread_ = std::this_thread::get_id();
    const std::optional<FileIdentity> homeTrash_;
    const std::size_t mostOpenFolders_;

    std::mutex mutex_;
    std::condition_variable changed_;
    Upcoming upcoming_;  // guarded by mutex_; front is next in the walk
    // Listed to the end, but still open, so that the folders inside need not be opened by path; the
    // oldest is closed when others need its place. Guarded by mutex_.
    std::deque<std::shared_ptr<Listing>> keptOpen_;
    std::size_t entriesAhead_ = 0;    // guarded by mutex_
    std::size_t openFolders_ = 0;     // guarded by mutex_
    std::atomic<unsigned> tasks_{0};  // queued or running; grows with mutex_ held
    bool ending_ = false;             // guarded by mutex_
};

}  // namespace tarvin
