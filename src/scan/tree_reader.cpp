#include "scan/tree_reader.h"

#include "scan/concurrency_search.h"
#include "scan/open_with_retry.h"
#include "scan/own_folder.h"
#include "scan/trash_folders.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <new>
#include <utility>

namespace tarvin {

namespace {

// Bytes of one block of a listing: about a thousand entries, so that several workers read the
// attributes of a large folder, and a stop is noticed within a few milliseconds.
constexpr std::size_t blockBytes = 32 * 1024;
// A batch is extended while it has fewer entries than this.
constexpr std::size_t minBatchEntries = 512;
// Entries listed but not yet consumed: about two megabytes.
constexpr std::size_t maxEntriesAhead = 16 * 1024;
// How many queued folders a worker checks for one that it may take.
constexpr std::size_t maxFoldersChecked = 64;
// Levels below the walk on which folders are listed ahead. A folder that leads into itself, as one
// of a server can, must not be followed further than that in vain.
constexpr std::uint32_t maxLevelsAhead = 8;
constexpr std::size_t entriesBetweenChecks = 64;
// The first entries of a folder, and then so many at a time, are read one after the other. If that
// takes longer than slowShare (from the cache, so many take 10 microseconds), the others of the
// folder are read at the same time.
constexpr std::size_t entriesAShare = 4;
constexpr std::chrono::milliseconds slowShare{2};
constexpr std::chrono::milliseconds poolPollInterval{20};
// Folders of a rotational disk that are read together, and the time after which no further one is
// listed: the progress stands still meanwhile.
constexpr std::size_t maxFoldersTogether = 64;
constexpr std::chrono::milliseconds maxListingTogether{200};
constexpr std::size_t minFoldersKeptOpen = 4;
constexpr std::size_t maxFoldersKeptOpen = 128;
// Reserved for the rest of the process: standard streams, libraries, files being compared.
constexpr std::size_t descriptorsNotForFolders = 48;

std::size_t foldersToKeepOpen(std::size_t descriptorLimit) {
    const std::size_t spare =
        descriptorLimit > descriptorsNotForFolders ? descriptorLimit - descriptorsNotForFolders : 0;
    return std::clamp(spare / 2, minFoldersKeptOpen, maxFoldersKeptOpen);
}

}  // namespace

/// Which entries of the block are directories.
std::vector<std::size_t> TreeReader::foldersIn(const Block& block) {
    std::vector<std::size_t> folders;
    for (std::size_t at = 0; at < block.entries.size(); ++at) {
        if (block.entries[at].type == EntryType::directory) {
            folders.push_back(at);
        }
    }
    return folders;
}

struct TreeReader::PendingBlock {
    std::unique_ptr<Block> block;
    std::size_t entryCount = 0;
    // Guarded by the reader's mutex_:
    std::uint64_t firstEntry = 0;  // its number in the folder
    bool ready = false;
};

/// Where the walk comes to a folder. Lives until the folder and those inside it are closed.
struct TreeReader::Place {
    std::shared_ptr<const Place> above;  // nullptr for the first folder
    std::uint64_t number = 0;            // among the entries of the folder that it is in
    std::uint32_t level = 0;
};

/// Counts one of the reader's tasks, queued or running, also if the pool drops it.
class TreeReader::TaskPlace final {
 public:
    explicit TaskPlace(std::atomic<unsigned>& tasks) : tasks_(&tasks) { ++tasks; }
    TaskPlace(const TaskPlace&) = delete;
    TaskPlace& operator=(const TaskPlace&) = delete;
    ~TaskPlace() { giveBack(); }

    void giveBack() {
        if (tasks_ != nullptr) {
            --*std::exchange(tasks_, nullptr);
        }
    }

 private:
    std::atomic<unsigned>* tasks_;
};

/// The blocks that a task lists at once.
struct TreeReader::Batch {
    PendingBlocks blocks;
    bool more = false;  // the folder may have more entries
    std::optional<SystemError> failure;
};

/// A batch of a folder, before the attributes of its entries are read.
struct TreeReader::ListedBatch {
    std::shared_ptr<Listing> listing;
    std::shared_ptr<Descriptor> folder;
    Batch batch;
};

/// One folder. All fields are guarded by the reader's mutex_, except that the thread which has set
/// `state` to working owns the fields that open() sets.
class TreeReader::Listing final {
 public:
    enum class State : std::uint8_t { waiting, working, finished };

    explicit Listing(const Directory* root)
        : directory(root), place(std::make_shared<const Place>()) {}
    /// A folder found in `in`: the entry with that number and inode number.
    Listing(const Directory* of, const std::shared_ptr<Listing>& in, std::uint64_t number,
            std::uint64_t listedInode)
        : directory(of),
          place(std::make_shared<const Place>(Place{in->place, number, in->place->level + 1})),
          inode(listedInode),
          isOnRotationalDisk(in->isOnRotationalDisk),
          parent(in) {}

    const Directory* const directory;
    std::shared_ptr<const Place> place;  // nullptr once it is closed
    const std::uint64_t inode = 0;       // as listed; 0 if unknown
    bool isOnRotationalDisk = false;     // that of its parent until it is open
    std::weak_ptr<Listing> parent;       // none for the first folder and once this one is open
    std::uint64_t entriesListed = 0;
    State state = State::waiting;
    bool abandoned = false;
    bool opened = false;
    bool refused = false;
    std::optional<SystemError> failure;
    FileIdentity identity;
    std::shared_ptr<Descriptor> descriptor;
    std::deque<std::shared_ptr<PendingBlock>> blocks;
};

/// The order of a walk: depth first, and a folder before those inside it.
bool TreeReader::IsEarlier::operator()(const std::shared_ptr<Listing>& one,
                                       const std::shared_ptr<Listing>& other) const {
    const Place* first = one->place.get();
    const Place* second = other->place.get();
    while (first->level > second->level) {
        first = first->above.get();
    }
    while (second->level > first->level) {
        second = second->above.get();
    }
    if (first == second) {
        return one->place->level < other->place->level;
    }
    while (first->above != second->above) {
        first = first->above.get();
        second = second->above.get();
    }
    return first->number < second->number;
}

TreeReader::TreeReader(const ScanServices& services, Interest interest, MakeFolder makeFolder,
                       PauseWait waitOutPause, Devices devices)
    : fileSystem_(services.fileSystem),
      pool_(services.pool),
      control_(services.control),
      watch_(services.watch),
      unsteadyVolumes_(services.unsteadyVolumes),
      interest_(std::move(interest)),
      makeFolder_(std::move(makeFolder)),
      waitOutPause_(waitOutPause ? std::move(waitOutPause)
                                 : [&control = services.control] { control.waitWhilePaused(); }),
      devices_(devices),
      homeTrash_(services.fileSystem.homeTrash()),
      ownFolder_(services.fileSystem.ownFolder()),
      maxOpenFolders_(foldersToKeepOpen(services.fileSystem.descriptorLimit())) {}

TreeReader::~TreeReader() {
    std::unique_lock lock(mutex_);
    ending_ = true;
    while (tasks_ > 0) {
        lock.unlock();
        const bool ranOne = pool_.runOneHere();
        lock.lock();
        if (!ranOne) {
            changed_.wait_for(lock, poolPollInterval, [this] { return tasks_ == 0; });
        }
    }
}

std::shared_ptr<TreeReader::Listing> TreeReader::makeRoot(const Directory* directory) {
    return std::make_shared<Listing>(directory);
}

/// On the walking thread: makes the folders of a block that are not made, and queues them. Their
/// types are known, so no worker touches these entries any more.
void TreeReader::makeFolders(const std::shared_ptr<Listing>& listing, PendingBlock& pending,
                             const std::vector<std::size_t>& entries) {
    Block& block = *pending.block;
    std::vector<Folder> made = std::exchange(block.folders, {});
    block.folders.reserve(entries.size());
    auto next = made.begin();
    for (const std::size_t at : entries) {
        if (next != made.end() && next->entry == at) {
            block.folders.push_back(std::move(*next++));
            continue;
        }
        const ListedEntry& entry = block.entries[at];
        Directory* const directory = makeFolder_(*listing->directory, entry.name);
        block.folders.push_back(
            {at, directory,
             std::make_shared<Listing>(directory, listing, pending.firstEntry + at, entry.inode)});
        upcoming_.insert(block.folders.back().listing);
    }
}

/// On the walking thread: makes the folders that workers have found since. Returns whether there
/// were any.
bool TreeReader::makeFoundFolders() {
    bool hasMade = false;
    for (; !found_.empty(); found_.pop_front()) {
        const FoundFolders& found = found_.front();
        // The walk may have taken the block in the meantime.
        if (!found.in->abandoned && found.block->block && found.block->block->folders.empty() &&
            found.in->place->level < walkLevel_ + maxLevelsAhead) {
            makeFolders(found.in, *found.block, found.folders);
            hasMade = true;
        }
    }
    if (hasMade) {
        pump();
    }
    return hasMade;
}

Result<FileIdentity> TreeReader::identityOf(const std::shared_ptr<Listing>& listing) {
    std::unique_lock lock(mutex_);
    makeFoundFolders();
    while (!listing->opened && listing->state != Listing::State::finished) {
        if (listing->state == Listing::State::waiting) {
            readNow(listing, lock);
        } else {
            waitForChange(lock);
        }
    }
    if (!listing->opened) {
        return listing->failure.value_or(SystemError{EINTR});
    }
    return listing->identity;
}

std::optional<SystemError> TreeReader::failureOf(const std::shared_ptr<Listing>& listing) {
    const std::lock_guard lock(mutex_);
    return listing->failure;
}

bool TreeReader::isRefused(const std::shared_ptr<Listing>& listing) {
    const std::lock_guard lock(mutex_);
    return listing->refused;
}

std::unique_ptr<TreeReader::Block> TreeReader::nextBlock(const std::shared_ptr<Listing>& listing) {
    std::unique_lock lock(mutex_);
    walkLevel_ = listing->place->level;
    makeFoundFolders();
    while (true) {
        if (!listing->blocks.empty() && listing->blocks.front()->ready) {
            const std::shared_ptr<PendingBlock> pending = std::move(listing->blocks.front());
            listing->blocks.pop_front();
            entriesAhead_ -= pending->entryCount;
            // Some types become known, or other ones, with the attributes.
            const std::vector<std::size_t> folders = foldersIn(*pending->block);
            if (pending->block->folders.size() < folders.size()) {
                makeFolders(listing, *pending, folders);
            }
            pump();
            return std::move(pending->block);
        }
        if (listing->blocks.empty() && listing->state == Listing::State::finished) {
            return nullptr;
        }
        if (listing->blocks.empty() && listing->state == Listing::State::waiting) {
            readNow(listing, lock);
        } else {
            waitForChange(lock);
        }
    }
}

void TreeReader::close(const std::shared_ptr<Listing>& listing) {
    const std::lock_guard lock(mutex_);
    closeWithFolders(listing);
    pump();
}

/// Also closes the folders of its blocks that the walk will not get. They are few levels deep.
void TreeReader::closeWithFolders(const std::shared_ptr<Listing>& listing) {
    listing->abandoned = true;
    for (const std::shared_ptr<PendingBlock>& pending : listing->blocks) {
        entriesAhead_ -= pending->entryCount;
        for (const Folder& folder : pending->block->folders) {
            closeWithFolders(folder.listing);
        }
    }
    listing->blocks.clear();
    if (listing->state == Listing::State::waiting) {
        upcoming_.erase(listing);
        listing->state = Listing::State::finished;
    }
    if (listing->state == Listing::State::finished) {
        releaseDescriptor(*listing);
        std::erase(keptOpen_, listing);
    }
    // In a tree of many thousand levels no place must be the last to refer to those above it.
    listing->place = nullptr;
}

/// Queues as many tasks as there are folders to list, while there is room for their entries.
void TreeReader::pump() {
    if (entriesAhead_ >= maxEntriesAhead || ending_ || !nextToTake()) {
        return;
    }
    const std::size_t useful =
        std::min<std::size_t>(readingTasks_ + upcoming_.size(), pool_.networkWidth());
    while (tasks_ < useful) {
        pool_.submit([this, place = std::make_shared<TaskPlace>(tasks_)] { runTask(*place); });
    }
}

void TreeReader::runTask(TaskPlace& place) {
    std::unique_lock lock(mutex_);
    if (!ending_ && entriesAhead_ < maxEntriesAhead) {
        if (const std::shared_ptr<Listing> listing = nextToTake()) {
            ++readingTasks_;
            readOn(listing, lock);
            --readingTasks_;
        }
    }
    place.giveBack();
    pump();
    changed_.notify_all();
}

/// No folder is opened ahead of the walk that would have to be read to its end at once.
bool TreeReader::isTakeable(const Listing& listing) const {
    return listing.state == Listing::State::waiting &&
           (listing.opened || openFolders_ < maxOpenFolders_ || !keptOpen_.empty());
}

/// The folder that a worker may list now, or nullptr.
std::shared_ptr<TreeReader::Listing> TreeReader::nextToTake() const {
    std::size_t checked = 0;
    for (const std::shared_ptr<Listing>& listing : upcoming_) {
        if (isTakeable(*listing) && !isLeftToTheWalk(*listing)) {
            return listing;
        }
        if (++checked == maxFoldersChecked) {
            break;
        }
    }
    return nullptr;
}

/// Whether no worker may read the folder, because its disk would seek to and fro.
bool TreeReader::isLeftToTheWalk(const Listing& listing) const {
    return listing.isOnRotationalDisk && cachedBatches_ < batchesUntilCached;
}

/// On the walking thread: reads the next batch of a waiting folder that it needs now, on a
/// rotational disk together with folders that it needs soon. Called and left with the lock held.
void TreeReader::readNow(const std::shared_ptr<Listing>& listing, Lock& lock) {
    if (!isLeftToTheWalk(*listing)) {
        readOn(listing, lock);
        return;
    }
    const auto begin = std::chrono::steady_clock::now();
    std::vector<ListedBatch> listed;
    for (const std::shared_ptr<Listing>& next : nextOnDisk(listing)) {
        const bool isUseful = isLeftToTheWalk(*next) && isTakeable(*next) &&
                              entriesAhead_ < maxEntriesAhead &&
                              std::chrono::steady_clock::now() - begin < maxListingTogether;
        // A worker may have begun to read the folder while others were listed.
        if (isUseful || (next == listing && next->state == Listing::State::waiting)) {
            listed.push_back(listBatch(next, lock));
        }
    }
    finishOnDisk(listed, lock);
}

/// The folder and others that the walk reaches soon, in the order of their inode numbers.
std::vector<std::shared_ptr<TreeReader::Listing>> TreeReader::nextOnDisk(
    const std::shared_ptr<Listing>& listing) const {
    const std::size_t most = std::min(maxFoldersTogether, maxOpenFolders_ / 2);
    std::vector<std::shared_ptr<Listing>> next{listing};
    for (const std::shared_ptr<Listing>& upcoming : upcoming_) {
        if (next.size() >= most || listing->opened) {
            break;
        }
        if (upcoming != listing && !upcoming->opened && upcoming->isOnRotationalDisk) {
            next.push_back(upcoming);
        }
    }
    std::sort(next.begin(), next.end(),
              [](const auto& one, const auto& other) { return one->inode < other->inode; });
    return next;
}

/// Reads the next batch of a waiting folder. Called and left with the lock held.
void TreeReader::readOn(const std::shared_ptr<Listing>& listing, Lock& lock) {
    const ListedBatch listed = listBatch(listing, lock);
    if (std::this_thread::get_id() == walkingThread_) {
        makeFoundFolders();
    }
    if (listing->isOnRotationalDisk) {
        finishOnDisk({&listed, 1}, lock);
    } else {
        finish(listed, lock);
    }
}

/// Lists the next batch of a waiting folder. Called and left with the lock held.
TreeReader::ListedBatch TreeReader::listBatch(const std::shared_ptr<Listing>& listing, Lock& lock) {
    upcoming_.erase(listing);
    listing->state = Listing::State::working;
    if (!listing->opened) {
        makeRoomForOne();
    }
    // If too many folders are open that are not listed to their ends, this one is listed to its end
    // at once, so that it can be closed.
    const bool toTheEnd = openFolders_ > maxOpenFolders_;
    lock.unlock();
    const std::uint64_t readBefore = pool_.use().deviceReads;
    Batch batch = readBatch(*listing, toTheEnd);
    const bool wasOnDisk = pool_.use().deviceReads != readBefore;
    lock.lock();
    if (listing->isOnRotationalDisk) {
        cachedBatches_ = wasOnDisk ? 0 : cachedBatches_ + 1;
    }
    std::shared_ptr<Descriptor> folder = listing->descriptor;
    try {
        keepBatch(listing, batch);
    } catch (const std::bad_alloc&) {
        // The walk must not wait for it any longer.
        control_.stopForLackOfMemory();
        listing->failure = SystemError{ENOMEM};
        listing->state = Listing::State::finished;
        changed_.notify_all();
    }
    return {listing, std::move(folder), std::move(batch)};
}

/// Reads the attributes of the entries. Called and left with the lock held.
void TreeReader::finish(const ListedBatch& listed, Lock& lock) {
    for (const std::shared_ptr<PendingBlock>& pending : listed.batch.blocks) {
        lock.unlock();
        try {
            readAttributes(*listed.listing, *listed.folder, *pending->block);
        } catch (const std::bad_alloc&) {
            control_.stopForLackOfMemory();
        }
        lock.lock();
        pending->ready = true;
        changed_.notify_all();
    }
}

/// The same, of folders on rotational disks.
void TreeReader::finishOnDisk(std::span<const ListedBatch> listed, Lock& lock) {
    lock.unlock();
    const std::uint64_t readBefore = pool_.use().deviceReads;
    try {
        readAttributesInDiskOrder(listed);
    } catch (const std::bad_alloc&) {
        control_.stopForLackOfMemory();
    }
    const bool wereOnDisk = pool_.use().deviceReads != readBefore;
    lock.lock();
    if (wereOnDisk) {
        // Names alone may be in memory, without attributes.
        cachedBatches_ = 0;
    }
    for (const ListedBatch& of : listed) {
        for (const std::shared_ptr<PendingBlock>& pending : of.batch.blocks) {
            pending->ready = true;
        }
    }
    changed_.notify_all();
}

void TreeReader::readAttributesInDiskOrder(std::span<const ListedBatch> listed) {
    std::vector<std::pair<ListedEntry*, const ListedBatch*>> entries;
    for (const ListedBatch& of : listed) {
        for (const std::shared_ptr<PendingBlock>& pending : of.batch.blocks) {
            for (ListedEntry& entry : pending->block->entries) {
                entries.emplace_back(&entry, &of);
            }
        }
    }
    std::sort(entries.begin(), entries.end(), [](const auto& one, const auto& other) {
        return one.first->inode < other.first->inode;
    });
    std::size_t done = 0;
    for (const auto& [entry, of] : entries) {
        if (++done % entriesBetweenChecks == 0 && !mayGoOn()) {
            return;
        }
        readAttributesOf(*entry, *of->listing, *of->folder);
    }
}

/// If memory runs out, the rest of the folder counts as unreadable.
TreeReader::Batch TreeReader::readBatch(Listing& listing, bool toTheEnd) {
    Batch batch;
    try {
        fillBatch(listing, toTheEnd, batch);
    } catch (const std::bad_alloc&) {
        control_.stopForLackOfMemory();
        batch.failure = SystemError{ENOMEM};
    }
    return batch;
}

void TreeReader::fillBatch(Listing& listing, bool toTheEnd, Batch& batch) {
    if (!mayGoOn()) {
        return;
    }
    if (!listing.descriptor) {
        batch.failure = open(listing);
        if (batch.failure) {
            return;
        }
    }
    thread_local EntryBlock listed(blockBytes);
    std::size_t entries = 0;
    while (toTheEnd || entries < minBatchEntries) {
        const Result<bool> more = listSome(listing, listed);
        if (!more) {
            // The entries listed so far are kept.
            batch.failure = more.error();
            return;
        }
        if (!*more || !mayGoOn()) {
            return;
        }
        auto pending = std::make_shared<PendingBlock>();
        pending->block = wanted(*listing.directory, listed);
        pending->entryCount = pending->block->entries.size();
        entries += listed.entries().size();
        batch.blocks.push_back(std::move(pending));
    }
    batch.more = true;
}

Result<bool> TreeReader::listSome(const Listing& listing, EntryBlock& listed) {
    const IoWatch::Call call(watch_, *listing.directory);
    return fileSystem_.listEntries(*listing.descriptor, listed);
}

void TreeReader::keepBatch(const std::shared_ptr<Listing>& listing, const Batch& batch) {
    if (batch.failure) {
        listing->failure = batch.failure;
    }
    if (listing->descriptor && !listing->opened) {
        listing->opened = true;
        listing->parent.reset();
    } else if (!listing->opened) {
        --openFolders_;
    }
    if (!listing->abandoned) {
        for (const std::shared_ptr<PendingBlock>& pending : batch.blocks) {
            entriesAhead_ += pending->entryCount;
            pending->firstEntry = listing->entriesListed;
            listing->entriesListed += pending->entryCount;
            listing->blocks.push_back(pending);
            if (std::vector<std::size_t> folders = foldersIn(*pending->block); !folders.empty()) {
                found_.push_back({listing, pending, std::move(folders)});
            }
        }
    }
    if (batch.more && !listing->abandoned) {
        listing->state = Listing::State::waiting;
        upcoming_.insert(listing);
        pump();
    } else {
        listing->state = Listing::State::finished;
        if (listing->abandoned || openFolders_ > maxOpenFolders_) {
            releaseDescriptor(*listing);
        } else if (listing->descriptor) {
            keptOpen_.push_back(listing);
        }
    }
    changed_.notify_all();
}

/// Opens the folder. Returns the error, or nullopt if it is open now.
std::optional<SystemError> TreeReader::open(Listing& listing) {
    Result<Descriptor> opened = openWithRetry(fileSystem_, control_, [&] {
        Result<Descriptor> folder = openFolder(listing);
        if (!folder && isShortageOfDescriptors(folder.error())) {
            closeKeptOpen();
        }
        return folder;
    });
    if (!opened) {
        return opened.error();
    }
    const IoWatch::Call call(watch_, *listing.directory);
    const Result<FileAttributes> attributes = fileSystem_.attributesOf(*opened);
    if (!attributes) {
        return attributes.error();
    }
    const std::uint64_t device = attributes->identity.device;
    if (!isOnDeviceOfItsParent(listing, device)) {
        listing.isOnRotationalDisk = fileSystem_.rotationalDiskOf(device).has_value();
    }
    examineVolume(listing, attributes->identity, *opened);
    if (isNotWalked(listing, attributes->identity)) {
        const std::lock_guard lock(mutex_);
        listing.refused = true;
        return SystemError{EOPNOTSUPP};
    }
    listing.identity = attributes->identity;
    listing.descriptor = std::make_shared<Descriptor>(std::move(*opened));
    return std::nullopt;
}

Result<Descriptor> TreeReader::openFolder(const Listing& listing) {
    std::shared_ptr<Descriptor> parent;
    if (const std::shared_ptr<Listing> in = listing.parent.lock()) {
        const std::lock_guard lock(mutex_);
        parent = in->descriptor;
    }
    const IoWatch::Call call(watch_, *listing.directory);
    if (parent) {
        return fileSystem_.openDirectoryAt(*parent, listing.directory->name);
    }
    const std::string path = listing.directory->path();
    return listing.directory->parent == nullptr ? fileSystem_.openRootDirectory(path)
                                                : fileSystem_.openDirectory(path);
}

/// Frees the descriptors of folders that are only kept open for opening their subfolders.
void TreeReader::closeKeptOpen() {
    const std::lock_guard lock(mutex_);
    for (const std::shared_ptr<Listing>& listing : keptOpen_) {
        releaseDescriptor(*listing);
    }
    keptOpen_.clear();
}

bool TreeReader::isOnDeviceOfItsParent(const Listing& listing, std::uint64_t device) {
    const std::shared_ptr<Listing> parent = listing.parent.lock();
    return parent && parent->identity.device == device;
}

/// One more answer about the first folder of each file system shows a made-up inode number.
void TreeReader::examineVolume(const Listing& listing, const FileIdentity& identity,
                               const Descriptor& folder) {
    if (isOnDeviceOfItsParent(listing, identity.device) ||
        unsteadyVolumes_.contains(identity.device)) {
        return;
    }
    const Result<FileAttributes> again = fileSystem_.currentAttributesOf(folder);
    if (again && again->identity != identity) {
        unsteadyVolumes_.examine(fileSystem_, folder);
    }
}

/// Whether it is the folder `known`, which has this name; on an unsteady volume every folder with
/// the name is.
bool TreeReader::isFolder(const std::optional<FileIdentity>& known, std::string_view name,
                          const Directory& folder, const FileIdentity& identity) const {
    return known == identity || (known && known->device == identity.device &&
                                 unsteadyVolumes_.contains(identity.device) &&
                                 std::string_view(folder.name, folder.nameLength).ends_with(name));
}

/// Whether the folder is the user's Trash, that of our own files, or on a refused file system. Our
/// locks and the journal are empty at times: as copies of each other they could be moved, and two
/// clean-ups could then run at once.
bool TreeReader::isNotWalked(const Listing& listing, const FileIdentity& identity) const {
    const Directory& folder = *listing.directory;
    if (isFolder(homeTrash_, homeTrashName, folder, identity) ||
        isFolder(ownFolder_, ownFolderName, folder, identity)) {
        return true;
    }
    if (isOnDeviceOfItsParent(listing, identity.device)) {
        return false;
    }
    const bool isOther = folder.parent != nullptr && devices_ == Devices::ofTheRoot;
    return isOther || fileSystem_.isPseudoFileSystem(identity.device);
}

std::unique_ptr<TreeReader::Block> TreeReader::wanted(const Directory& folder,
                                                      const EntryBlock& listed) const {
    auto block = std::make_unique<Block>();
    block->entries.reserve(listed.entries().size());
    std::size_t nameBytes = 0;
    for (const EntryBlock::Entry& entry : listed.entries()) {
        const std::string_view name = entry.name;
        if (entry.type == EntryType::other) {
            continue;
        }
        const EntryInterest interest = interest_(folder, name, entry.type);
        if (interest == EntryInterest::none) {
            continue;
        }
        ListedEntry& kept = block->entries.emplace_back();
        kept.name = name;
        kept.type = entry.type;
        kept.inode = entry.inode;
        kept.attributesKnown =
            entry.type == EntryType::directory ||
            (entry.type == EntryType::regular && interest == EntryInterest::name);
        nameBytes += name.size() + 1;
    }
    block->names = std::make_unique_for_overwrite<char[]>(nameBytes);
    char* at = block->names.get();
    for (ListedEntry& entry : block->entries) {
        std::memcpy(at, entry.name.data(), entry.name.size());
        at[entry.name.size()] = '\0';
        entry.name = {at, entry.name.size()};
        at += entry.name.size() + 1;
    }
    return block;
}

void TreeReader::readAttributes(const Listing& listing, const Descriptor& folder, Block& block) {
    const std::span<ListedEntry> entries(block.entries);
    const std::size_t done = readAttributesWhileFast(listing, folder, entries);
    if (done < entries.size()) {
        pool_.widen();
        readAttributesAtOnce(listing, folder, entries.subspan(done));
    }
}

/// Reads attributes whose calls wait, as many at the same time as is worth it.
void TreeReader::readAttributesAtOnce(const Listing& listing, const Descriptor& folder,
                                      std::span<ListedEntry> entries) {
    ConcurrencySearch search(pool_.width());
    while (!entries.empty() && mayGoOn()) {
        const std::span<ListedEntry> next =
            entries.first(std::min(entries.size(), search.atOnce() * entriesAShare));
        const std::size_t shares = (next.size() + entriesAShare - 1) / entriesAShare;
        const auto begin = std::chrono::steady_clock::now();
        pool_.forEach(shares, [&](std::size_t share) {
            const std::size_t from = share * entriesAShare;
            for (ListedEntry& entry :
                 next.subspan(from, std::min(entriesAShare, next.size() - from))) {
                readAttributesOf(entry, listing, folder);
            }
        });
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        search.report(static_cast<double>(next.size()) / std::max(took.count(), 1e-9));
        if (std::this_thread::get_id() == walkingThread_) {
            // Others would be without work.
            const std::lock_guard lock(mutex_);
            makeFoundFolders();
        }
        entries = entries.subspan(next.size());
    }
}

/// Reads attributes until the calls turn out to wait, as those of a network do: the rest should
/// wait at the same time. Returns how many entries are done; all of them after a stop.
std::size_t TreeReader::readAttributesWhileFast(const Listing& listing, const Descriptor& folder,
                                                std::span<ListedEntry> entries) {
    auto begin = std::chrono::steady_clock::now();
    for (std::size_t done = 0; done < entries.size(); ++done) {
        if (done % entriesBetweenChecks == entriesBetweenChecks - 1) {
            if (!mayGoOn()) {
                return entries.size();
            }
            begin = std::chrono::steady_clock::now();
        } else if ((done % entriesAShare == entriesAShare - 1 || done < entriesAShare) &&
                   std::chrono::steady_clock::now() - begin > slowShare) {
            return done;
        }
        readAttributesOf(entries[done], listing, folder);
    }
    return entries.size();
}

void TreeReader::readAttributesOf(ListedEntry& entry, const Listing& listing,
                                  const Descriptor& folder) {
    if (entry.attributesKnown) {
        return;
    }
    const IoWatch::Call call(watch_, *listing.directory);
    const Result<FileAttributes> attributes =
        // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): null-terminated.
        fileSystem_.attributesAt(folder, entry.name.data());
    if (!attributes) {
        entry.error = attributes.error();
        return;
    }
    const bool isSkipped =
        entry.type == EntryType::unknown &&
        interest_(*listing.directory, entry.name, attributes->type) == EntryInterest::none;
    entry.attributes = *attributes;
    entry.type = isSkipped ? EntryType::other : attributes->type;
    entry.attributesKnown = true;
}

/// On the walking thread: blocks until something has changed, or waits out a pause.
void TreeReader::waitForChange(Lock& lock) {
    if (!control_.pause()) {
        if (!makeFoundFolders()) {
            changed_.wait(lock);
        }
        return;
    }
    lock.unlock();
    waitOutPause_();
    lock.lock();
}

/// Waits out a pause, then returns whether to continue. Called without the lock.
bool TreeReader::mayGoOn() {
    if (control_.pause()) {
        if (std::this_thread::get_id() == walkingThread_) {
            waitOutPause_();
        } else {
            {
                // Wakes the walk, which may be waiting for this worker, so that it sees the pause.
                const std::lock_guard lock(mutex_);
                changed_.notify_all();
            }
            control_.waitWhilePaused();
        }
    }
    return !control_.stop();
}

/// Counts one more open folder. At the limit, closes folders that were kept open.
void TreeReader::makeRoomForOne() {
    ++openFolders_;
    while (openFolders_ > maxOpenFolders_ && !keptOpen_.empty()) {
        releaseDescriptor(*keptOpen_.front());
        keptOpen_.pop_front();
    }
}

void TreeReader::releaseDescriptor(Listing& listing) {
    if (listing.descriptor) {
        listing.descriptor = nullptr;
        --openFolders_;
    }
}

}  // namespace tarvin
