#include "scan/duplicate_finder.h"

#include "scan/category.h"
#include "scan/size_classes.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <new>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

// 48 MiB for all that is read at once, whatever is compared.
constexpr std::size_t bufferSlabs = 48;
// Small classes are handed to the workers by about so much work. Nothing of a batch counts before
// all of it has come, so on a slow disk larger ones would let the progress stand still.
constexpr std::size_t filesABatch = WorkerPool::filesAShare;
constexpr std::uint64_t bytesABatch = 1024 * 1024;
constexpr std::uint32_t none = 0xFFFFFFFF;
// How long workers have to hand in what they have proven when the scan is stopped: many times the
// few milliseconds that a read takes.
constexpr std::chrono::milliseconds patienceAfterStop{250};
constexpr std::chrono::milliseconds betweenLooksAtTheStop{20};

}  // namespace

/// One category on its way: its classes are compared by the workers in the order in which the walk
/// through the list will come to them, and the walk waits for each class when it needs it. After a
/// stop it takes what the workers have decided and waits no longer.
class DuplicateFinder::CategoryComparison final {
 public:
    CategoryComparison(DuplicateFinder& finder, std::vector<File*> list, FileStore& store)
        : finder_(finder),
          list_(std::move(list)),
          store_(store),
          classes_(list_),
          nextEqual_(list_.size(), none),
          counted_(list_.size()),
          taken_(list_.size(), false) {}

    /// The sets of the list.
    std::shared_ptr<Modal> compare() {
        auto modal = std::make_shared<Modal>();
        try {
            handOver();
            walk(*modal);
        } catch (const std::bad_alloc&) {
            finder_.control_.stopForLackOfMemory();
        }
        if (finder_.control_.stop()) {
            waitForBatches(patienceAfterStop);
            closeVerdicts();
            fileWhatIsDecided(*modal);
        }
        return modal;
    }

    /// Whether no worker will look at anything here any more.
    [[nodiscard]] bool isLeft() {
        const std::lock_guard lock(mutex_);
        return batchesLeft_ == 0;
    }

    bool waitForBatches(std::chrono::milliseconds patience) {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (finder_.pool_.runOneHere()) {
        }
        std::unique_lock lock(mutex_);
        return changed_.wait_until(lock, deadline, [this] { return batchesLeft_ == 0; });
    }

    /// The files that were not taken out of the list.
    [[nodiscard]] std::vector<File*> rest() const {
        std::vector<File*> rest;
        for (std::size_t position = 0; position < list_.size(); ++position) {
            if (!taken_[position]) {
                rest.push_back(list_[position]);
            }
        }
        return rest;
    }

 private:
    /// Classes that one task compares, one after the other.
    struct Batch {
        std::size_t firstClass = 0;
        std::size_t endClass = 0;
        std::atomic<bool> done{false};  // set with mutex_ held
    };

    /// The files of one class; reused from class to class.
    struct Members {
        std::vector<std::uint32_t> positions;
        std::vector<File*> files;
    };

    /// Keeps what is told of a class that is compared in parts.
    class Verdict final : public ContentVerdict {
     public:
        Verdict(CategoryComparison& comparison, const Members& members)
            : comparison_(comparison), members_(members) {}

        void compared(std::uint32_t file, const FileStamp& stamp) override {
            comparison_.keepState(*members_.files[file], stamp);
        }

        void equal(FileGroup group) override {
            comparison_.keep(members_.positions, group);
            decided(group);
        }

        void decided(std::span<const std::uint32_t> files) override {
            for (const std::uint32_t file : files) {
                comparison_.count(members_.positions[file], true);
            }
        }

     private:
        CategoryComparison& comparison_;
        const Members& members_;
    };

    void handOver() {
        std::size_t files = 0;
        std::uint64_t bytes = 0;
        batchOf_.reserve(classes_.count());
        for (std::size_t number = 0; number < classes_.count(); ++number) {
            const std::uint64_t size = list_[classes_.firstOf(number)]->fileSize();
            const std::size_t members = classes_.memberCount(number);
            const bool alone = !isReadWhole(number);
            if (batches_.empty() || alone || files >= filesABatch || bytes >= bytesABatch) {
                submitLast();
                batches_.push_back(std::make_unique<Batch>());
                batches_.back()->firstClass = number;
                files = 0;
                bytes = 0;
            }
            batches_.back()->endClass = number + 1;
            batchOf_.push_back(batches_.back().get());
            // A class that is a task of its own leaves no room for another.
            files += alone ? filesABatch : members;
            bytes += size * members;
        }
        submitLast();
    }

    void submitLast() {
        if (batches_.empty()) {
            return;
        }
        changeBatchesLeft(1);
        try {
            finder_.pool_.submit([this, batch = batches_.back().get()] { run(*batch); });
        } catch (const std::bad_alloc&) {
            changeBatchesLeft(-1);
            throw;
        }
    }

    void changeBatchesLeft(int by) {
        const std::lock_guard lock(mutex_);
        batchesLeft_ += by;
    }

    void run(Batch& batch) {
        try {
            compareAll(batch);
        } catch (const std::bad_alloc&) {
            finder_.control_.stopForLackOfMemory();
        }
        // Behind the lock this object may be gone.
        const std::lock_guard lock(mutex_);
        batch.done = true;
        --batchesLeft_;
        changed_.notify_all();
    }

    void compareAll(const Batch& batch) {
        Members members;
        std::vector<std::size_t> inParts;
        {
            std::optional<ContentPartition::Workspace> workspace;
            for (std::size_t number = batch.firstClass; number < batch.endClass; ++number) {
                if (!finder_.control_.mayGoOn()) {
                    break;
                }
                if (!compareWhole(number, members, workspace)) {
                    inParts.push_back(number);
                }
            }
        }
        for (const std::size_t number : inParts) {
            find(number, members);
            Verdict verdict(*this, members);
            finder_.partition_.partition(members.files, verdict);
            countAll(members, true);
        }
    }

    bool compareWhole(std::size_t number, Members& members,
                      std::optional<ContentPartition::Workspace>& workspace) {
        if (!isReadWhole(number)) {
            return false;
        }
        if (!workspace) {
            workspace.emplace(finder_.partition_.makeWorkspace());
        }
        find(number, members);
        const auto groups = finder_.partition_.compareWhole(members.files, *workspace);
        if (!groups) {
            return false;
        }
        for (const FileGroup& group : *groups) {
            for (const std::uint32_t file : group) {
                keepState(*members.files[file], workspace->stampOf(file));
            }
            keep(members.positions, group);
            for (const std::uint32_t file : group) {
                count(members.positions[file], false);
            }
        }
        countAll(members, false);
        return true;
    }

    [[nodiscard]] bool isReadWhole(std::size_t number) const {
        return ContentPartition::isReadWhole(list_[classes_.firstOf(number)]->fileSize(),
                                             classes_.memberCount(number));
    }

    void find(std::size_t number, Members& members) const {
        classes_.members(number, members.positions);
        members.files.clear();
        members.files.reserve(members.positions.size());
        for (const std::uint32_t position : members.positions) {
            members.files.push_back(list_[position]);
        }
    }

    /// Chains a group's files, the first to the last. Too late once the walk has taken what there
    /// was.
    void keep(const std::vector<std::uint32_t>& members, const FileGroup& group) {
        const std::lock_guard lock(mutex_);
        if (closed_) {
            return;
        }
        for (std::size_t at = 0; at + 1 < group.size(); ++at) {
            nextEqual_[members[group[at]]] = members[group[at + 1]];
        }
    }

    /// For whoever moves the file. Without it, or where it is not the file of the listing any more,
    /// it has to be compared anew then.
    void keepState(File& file, const FileStamp& stamp) {
        if (stamp.size == file.fileSize() && stamp.modified == file.fileModificationDate()) {
            store_.keepCompared(file, {stamp.identity, stamp.changed});
        }
    }

    /// Of a class that was compared to its end.
    void countAll(const Members& members, bool tells) {
        if (finder_.control_.stop()) {
            return;
        }
        for (const std::uint32_t position : members.positions) {
            count(position, tells);
        }
    }

    /// Each file once, whoever comes to it first.
    void count(std::uint32_t position, bool tells) {
        if (counted_[position].exchange(true, std::memory_order_relaxed)) {
            return;
        }
        finder_.processed_.fetch_add(1, std::memory_order_relaxed);
        if (tells && isWaiting_.load(std::memory_order_relaxed)) {
            finder_.updateProgressBarWith(*list_[position]);
        }
    }

    void closeVerdicts() {
        const std::lock_guard lock(mutex_);
        closed_ = true;
    }

    void walk(Modal& modal) {
        for (std::uint32_t pivot = 0; pivot < list_.size(); ++pivot) {
            if (taken_[pivot]) {
                continue;
            }
            take(pivot);
            inHand_ = pivot;
            if (!finder_.control_.mayGoOn() || !waitForClassOf(pivot)) {
                return;
            }
            fileGroupOf(pivot, modal);
            inHand_ = none;
        }
    }

    /// False if the scan was stopped before the class was compared.
    bool waitForClassOf(std::uint32_t pivot) {
        const std::uint32_t number = classes_.classOf(pivot);
        if (number == SizeClasses::noClass) {
            return true;
        }
        const Batch& batch = *batchOf_[number];
        if (batch.done) {
            return true;
        }
        if (!isTold_) {
            // It may take long; what was told last is done with.
            finder_.tellOf(*list_[pivot]);
        }
        isWaiting_ = true;
        while (finder_.pool_.runOneHere()) {
        }
        std::unique_lock lock(mutex_);
        while (!batch.done && !finder_.control_.stop()) {
            changed_.wait_for(lock, betweenLooksAtTheStop, [&batch] { return batch.done.load(); });
        }
        isWaiting_ = false;
        return batch.done;
    }

    void fileGroupOf(std::uint32_t pivot, Modal& modal) {
        if (nextEqual_[pivot] == none) {
            return;
        }
        taken_[pivot] = true;
        std::vector<std::shared_ptr<File>> group{store_.share(list_[pivot])};
        for (std::uint32_t at = nextEqual_[pivot]; at != none; at = nextEqual_[at]) {
            finder_.control_.waitWhilePaused();
            take(at);
            group.push_back(store_.share(list_[at]));
        }
        fileSetUnderExtension(modal, group);
    }

    /// The sets that the walk did not come to before the stop.
    void fileWhatIsDecided(Modal& modal) {
        for (std::uint32_t pivot = 0; pivot < list_.size(); ++pivot) {
            if (!taken_[pivot] || pivot == inHand_) {
                fileGroupOf(pivot, modal);
            }
        }
    }

    void take(std::uint32_t position) {
        taken_[position] = true;
        count(position, false);
        isTold_ = !finder_.control_.stop() && finder_.updateProgressBarWith(*list_[position]);
    }

    DuplicateFinder& finder_;
    const std::vector<File*> list_;
    FileStore& store_;
    const SizeClasses classes_;
    std::vector<std::unique_ptr<Batch>> batches_;
    std::vector<Batch*> batchOf_;             // by class
    std::vector<std::uint32_t> nextEqual_;    // by position; written with mutex_ held, and before
                                              // the batch is done
    std::vector<std::atomic<bool>> counted_;  // by position
    std::vector<bool> taken_;                 // by position; the walk's own
    std::uint32_t inHand_ = none;             // the pivot taken, whose set is not filed yet
    bool isTold_ = false;                     // the file taken last was told of
    std::atomic<bool> isWaiting_{false};      // the walk waits for a class
    std::mutex mutex_;
    std::condition_variable changed_;
    std::ptrdiff_t batchesLeft_ = 0;  // guarded by mutex_; not done yet
    bool closed_ = false;             // guarded by mutex_; nothing more is kept
};

DuplicateFinder::DuplicateFinder(const ScanServices& services, ScanObserver& observer,
                                 ProgressGate& gate, std::atomic<std::uint64_t>& processed)
    : pool_(services.pool),
      control_(services.control),
      observer_(observer),
      gate_(gate),
      processed_(processed),
      reader_(services),
      buffers_(bufferSlabs),
      partition_(reader_, buffers_, pool_) {}

DuplicateFinder::~DuplicateFinder() {
    // Nobody calls any more, so the list stays as it is.
    for (const std::unique_ptr<CategoryComparison>& comparison : comparisons_) {
        // What an abandoned pool had queued never runs.
        while (!pool_.isAbandoned() && !comparison->waitForBatches(betweenLooksAtTheStop)) {
        }
    }
}

std::shared_ptr<Modal> DuplicateFinder::findDuplicates(std::vector<File*>& list, FileStore& store) {
    CategoryComparison& comparison =
        keep(std::make_unique<CategoryComparison>(*this, std::exchange(list, {}), store));
    std::shared_ptr<Modal> modal = comparison.compare();
    list = comparison.rest();
    letGoOf(comparison);
    return modal;
}

DuplicateFinder::CategoryComparison& DuplicateFinder::keep(
    std::unique_ptr<CategoryComparison> comparison) {
    const std::lock_guard lock(mutex_);
    return *comparisons_.emplace_back(std::move(comparison));
}

/// Unless a worker is inside it still.
void DuplicateFinder::letGoOf(const CategoryComparison& comparison) {
    std::unique_ptr<CategoryComparison> left;
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(comparisons_.begin(), comparisons_.end(),
                                    [&](const auto& kept) { return kept.get() == &comparison; });
    if (found != comparisons_.end() && (*found)->isLeft()) {
        left = std::move(*found);
        comparisons_.erase(found);
    }
}

std::shared_ptr<Set> DuplicateFinder::setOfFileDetailsFrom(
    const std::vector<std::shared_ptr<File>>& group) {
    auto set = std::make_shared<Set>();
    std::uint64_t bytes = 0;
    std::int64_t position = 0;
    for (const std::shared_ptr<File>& file : group) {
        file->setState(CheckState::off);
        file->setIndex(position++);
        bytes += file->fileSize();
        set->addFiles(file);
    }
    set->setTotalFilesInSet(group.size() - 1);
    set->setTotalFilesInSetSize(bytes - group.front()->fileSize());
    return set;
}

bool DuplicateFinder::updateProgressBarWith(const File& file) {
    // While paused the screen keeps what it showed at the moment of pausing.
    if (control_.pause() || !gate_.due()) {
        return false;
    }
    tellOf(file);
    return true;
}

void DuplicateFinder::tellOf(const File& file) {
    if (!control_.pause()) {
        observer_.processing(file.filePath(), processed_.load(std::memory_order_relaxed));
    }
}

void fileSetUnderExtension(Modal& modal, const std::vector<std::shared_ptr<File>>& group) {
    const std::string key = extensionKey(group.front()->fileName());
    std::shared_ptr<Extensions> extension = modal.getExtensionWithName(key);
    if (extension) {
        modal.setTotalFiles(modal.totalFiles() - extension->totalFilesInExtension());
        modal.setTotalFilesSize(modal.totalFilesSize() - extension->totalFilesInExtensionSize());
    } else {
        extension = std::make_shared<Extensions>(key);
        modal.addExtension(extension);
    }
    const std::shared_ptr<Set> set = DuplicateFinder::setOfFileDetailsFrom(group);
    extension->addSet(set);
    extension->setTotalFilesInExtension(extension->totalFilesInExtension() +
                                        set->totalFilesInSet());
    extension->setTotalFilesInExtensionSize(extension->totalFilesInExtensionSize() +
                                            set->totalFilesInSetSize());
    modal.setTotalFiles(modal.totalFiles() + extension->totalFilesInExtension());
    modal.setTotalFilesSize(modal.totalFilesSize() + extension->totalFilesInExtensionSize());
}

}  // namespace tarvin
