#include "scan/tree_reader.h"

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

struct TreeReader::PendingBlock {
    std::unique_ptr<Block> block;
    std::size_t entryCount = 0;
    bool ready = false;  // guarded by the reader's mutex_
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

    Listing(const Directory* of, std::shared_ptr<Listing> in, std::uint64_t listedInode)
        : directory(of),
          inode(listedInode),
          isOnRotationalDisk(in && in->isOnRotationalDisk),
          parent(std::move(in)) {}

    const Directory* const directory;
    const std::uint64_t inode;
    bool isOnRotationalDisk;          // that of its parent until it is open
    std::shared_ptr<Listing> parent;  // nullptr for the first folder and once this one is open
    State state = State::waiting;
    bool abandoned = false;
    bool opened = false;
    bool refused = false;
    std::optional<SystemError> failure;
    FileIdentity identity;
    std::shared_ptr<Descriptor> descriptor;
    std::deque<std::shared_ptr<PendingBlock>> blocks;
};

TreeReader::TreeReader(const ScanServices& services, Interest interest, PauseWait waitOutPause,
                       Devices devices)
    : fileSystem_(services.fileSystem),
      pool_(services.pool),
      control_(services.control),
      watch_(services.watch),
      unsteadyVolumes_(services.unsteadyVolumes),
      interest_(std::move(interest)),
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
    return std::make_shared<Listing>(directory, nullptr, 0);
}

std::shared_ptr<TreeReader::Listing> TreeReader::makeListing(const std::shared_ptr<Listing>& parent,
                                                             const Directory* directory,
                                                             std::uint64_t inode) {
    return std::make_shared<Listing>(directory, parent, inode);
}

void TreeReader::announce(const std::vector<std::shared_ptr<Listing>>& folders) {
    const std::lock_guard lock(mutex_);
    upcoming_.insert(upcoming_.begin(), folders.begin(), folders.end());
    pump();
}

Result<FileIdentity> TreeReader::identityOf(const std::shared_ptr<Listing>& listing) {
    std::unique_lock lock(mutex_);
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
    while (true) {
        if (!listing->blocks.empty() && listing->blocks.front()->ready) {
            const std::shared_ptr<PendingBlock> pending = std::move(listing->blocks.front());
            listing->blocks.pop_front();
            entriesAhead_ -= pending->entryCount;
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
    listing->abandoned = true;
    for (const std::shared_ptr<PendingBlock>& pending : listing->blocks) {
        entriesAhead_ -= pending->entryCount;
    }
    listing->blocks.clear();
    if (listing->state == Listing::State::waiting) {
        listing->state = Listing::State::finished;
    }
    if (listing->state == Listing::State::finished) {
        releaseDescriptor(*listing);
        std::erase(keptOpen_, listing);
    }
    pump();
}

/// Queues as many tasks as there are folders to list, while there is room for their entries.
void TreeReader::pump() {
    while (!upcoming_.empty() && upcoming_.front()->state != Listing::State::waiting) {
        upcoming_.pop_front();
    }
    if (entriesAhead_ >= maxEntriesAhead || ending_ || nextToTake() == upcoming_.end()) {
        return;
    }
    const std::size_t useful = std::min<std::size_t>(upcoming_.size(), pool_.width());
    while (tasks_ < useful) {
        pool_.submit([this, place = std::make_shared<TaskPlace>(tasks_)] { runTask(*place); });
    }
}

void TreeReader::runTask(TaskPlace& place) {
    std::unique_lock lock(mutex_);
    if (!ending_ && entriesAhead_ < maxEntriesAhead) {
        if (const std::shared_ptr<Listing> listing = takeUpcoming()) {
            readOn(listing, lock);
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

TreeReader::Upcoming::iterator TreeReader::nextToTake() {
    const auto end = upcoming_.begin() +
                     static_cast<std::ptrdiff_t>(std::min(upcoming_.size(), maxFoldersChecked));
    const auto next = std::find_if(upcoming_.begin(), end, [this](const auto& listing) {
        return isTakeable(*listing) && !isLeftToTheWalk(*listing);
    });
    return next == end ? upcoming_.end() : next;
}

std::shared_ptr<TreeReader::Listing> TreeReader::takeUpcoming() {
    const auto next = nextToTake();
    if (next == upcoming_.end()) {
        return nullptr;
    }
    std::shared_ptr<Listing> listing = std::move(*next);
    upcoming_.erase(next);
    return listing;
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
        if (upcoming != listing && upcoming->state == Listing::State::waiting &&
            !upcoming->opened && upcoming->isOnRotationalDisk) {
            next.push_back(upcoming);
        }
    }
    std::sort(next.begin(), next.end(),
              [](const auto& one, const auto& other) { return one->inode < other->inode; });
    return next;
}

/// Reads the next batch of a waiting folder. Called and left with the lock held.
void TreeReader::readOn(const std::shared_ptr<Listing>& listing, Lock& lock) {
    ListedBatch listed = listBatch(listing, lock);
    if (isLeftToTheWalk(*listing)) {
        finishOnDisk({std::move(listed)}, lock);
    } else {
        finish(listed, lock);
    }
}

/// Lists the next batch of a waiting folder. Called and left with the lock held.
TreeReader::ListedBatch TreeReader::listBatch(const std::shared_ptr<Listing>& listing, Lock& lock) {
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

/// The same, of several folders on a rotational disk.
void TreeReader::finishOnDisk(const std::vector<ListedBatch>& listed, Lock& lock) {
    lock.unlock();
    try {
        readAttributesInDiskOrder(listed);
    } catch (const std::bad_alloc&) {
        control_.stopForLackOfMemory();
    }
    lock.lock();
    for (const ListedBatch& of : listed) {
        for (const std::shared_ptr<PendingBlock>& pending : of.batch.blocks) {
            pending->ready = true;
        }
    }
    changed_.notify_all();
}

void TreeReader::readAttributesInDiskOrder(const std::vector<ListedBatch>& listed) {
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
        listing->parent = nullptr;
    } else if (!listing->opened) {
        --openFolders_;
    }
    if (!listing->abandoned) {
        for (const std::shared_ptr<PendingBlock>& pending : batch.blocks) {
            entriesAhead_ += pending->entryCount;
            listing->blocks.push_back(pending);
        }
    }
    if (batch.more && !listing->abandoned) {
        listing->state = Listing::State::waiting;
        upcoming_.push_front(listing);
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
    if (!listing.parent || listing.parent->identity.device != device) {
        listing.isOnRotationalDisk = fileSystem_.isRotational(device);
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
    if (listing.parent) {
        const std::lock_guard lock(mutex_);
        parent = listing.parent->descriptor;
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

/// One more answer about the first folder of each file system shows a made-up inode number.
void TreeReader::examineVolume(const Listing& listing, const FileIdentity& identity,
                               const Descriptor& folder) {
    const bool isFirst = !listing.parent || listing.parent->identity.device != identity.device;
    if (!isFirst || unsteadyVolumes_.contains(identity.device)) {
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
    if (listing.parent && listing.parent->identity.device == identity.device) {
        return false;
    }
    const bool isOther = listing.parent != nullptr && devices_ == Devices::ofTheRoot;
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

/// Reads attributes whose calls wait, several at the same time: fewer while other folders are read,
/// because some networks answer one call for a name of each folder at a time.
void TreeReader::readAttributesAtOnce(const Listing& listing, const Descriptor& folder,
                                      std::span<ListedEntry> entries) {
    while (!entries.empty() && mayGoOn()) {
        const std::size_t most = pool_.width() / std::max(1U, tasks_.load());
        const std::span<ListedEntry> next =
            entries.first(std::min(entries.size(), std::max<std::size_t>(most, 1) * entriesAShare));
        const std::size_t shares = (next.size() + entriesAShare - 1) / entriesAShare;
        pool_.forEach(shares, [&](std::size_t share) {
            const std::size_t from = share * entriesAShare;
            for (ListedEntry& entry :
                 next.subspan(from, std::min(entriesAShare, next.size() - from))) {
                readAttributesOf(entry, listing, folder);
            }
        });
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
        changed_.wait(lock);
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
