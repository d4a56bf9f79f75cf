#include "scan/duplicate_finder.h"

#include "scan/category.h"
#include "scan/size_classes.h"

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

}  // namespace

/// One category on its way: its classes are compared by the workers in the order in which the walk
/// through the list will come to them, and the walk waits for each class when it needs it.
class DuplicateFinder::CategoryComparison final {
 public:
    CategoryComparison(DuplicateFinder& finder, std::vector<File*>& list, FileStore& store)
        : finder_(finder),
          list_(list),
          store_(store),
          classes_(list),
          nextEqual_(list.size(), none),
          taken_(list.size(), false) {}

    std::shared_ptr<Modal> compare() {
        handOver();
        auto modal = std::make_shared<Modal>();
        for (std::uint32_t pivot = 0; pivot < list_.size(); ++pivot) {
            if (taken_[pivot]) {
                continue;
            }
            take(pivot);
            if (!finder_.control_.mayGoOn()) {
                break;
            }
            const std::vector<std::shared_ptr<File>> group = groupOf(pivot);
            if (group.size() > 1) {
                fileSetUnderExtension(*modal, group);
            }
        }
        for (const std::shared_ptr<Batch>& batch : batches_) {
            batch->done.wait(false);
        }
        dropTaken();
        return modal;
    }

 private:
    /// Classes that one task compares, one after the other. Shared with the task, which still has
    /// it in hand when the walk has seen that it is done.
    struct Batch {
        std::size_t firstClass = 0;
        std::size_t endClass = 0;
        std::atomic<bool> done{false};
    };

    /// The files of one class; reused from class to class.
    struct Members {
        std::vector<std::uint32_t> positions;
        std::vector<File*> files;
    };

    void handOver() {
        std::size_t files = 0;
        std::uint64_t bytes = 0;
        for (std::size_t number = 0; number < classes_.count(); ++number) {
            const std::uint64_t size = list_[classes_.firstOf(number)]->fileSize();
            const std::size_t members = classes_.memberCount(number);
            const bool alone = !isReadWhole(number);
            if (batches_.empty() || alone || files >= filesABatch || bytes >= bytesABatch) {
                submitLast();
                batches_.push_back(std::make_shared<Batch>());
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
        finder_.pool_.submit([this, batch = batches_.back()] { run(*batch); });
    }

    void run(Batch& batch) {
        Members members;
        std::vector<std::size_t> byStretches;
        {
            std::optional<ContentPartition::Workspace> workspace;
            for (std::size_t number = batch.firstClass; number < batch.endClass; ++number) {
                if (!finder_.control_.mayGoOn()) {
                    break;
                }
                if (!compareWhole(number, members, workspace)) {
                    byStretches.push_back(number);
                }
            }
        }
        for (const std::size_t number : byStretches) {
            find(number, members);
            keep(members.positions, finder_.partition_.partition(members.files));
        }
        batch.done.store(true);
        batch.done.notify_all();
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
        if (groups) {
            keep(members.positions, *groups);
        }
        return groups.has_value();
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

    /// Chains each group's files, the first to the last. Nothing is kept of a class that a stop may
    /// have cut short.
    void keep(const std::vector<std::uint32_t>& members, const std::vector<FileGroup>& groups) {
        if (finder_.control_.stop()) {
            return;
        }
        for (const FileGroup& group : groups) {
            for (std::size_t at = 0; at + 1 < group.size(); ++at) {
                nextEqual_[members[group[at]]] = members[group[at + 1]];
            }
        }
    }

    std::vector<std::shared_ptr<File>> groupOf(std::uint32_t pivot) {
        const std::uint32_t number = classes_.classOf(pivot);
        if (number == SizeClasses::noClass) {
            return {};
        }
        if (!isTold_ && !batchOf_[number]->done) {
            // It may take long; what was told last is done with.
            finder_.tellOf(*list_[pivot]);
        }
        batchOf_[number]->done.wait(false);
        if (nextEqual_[pivot] == none) {
            return {};
        }
        std::vector<std::shared_ptr<File>> group{store_.share(list_[pivot])};
        for (std::uint32_t at = nextEqual_[pivot]; at != none; at = nextEqual_[at]) {
            if (!finder_.control_.mayGoOn()) {
                break;
            }
            take(at);
            group.push_back(store_.share(list_[at]));
        }
        return group;
    }

    void take(std::uint32_t position) {
        taken_[position] = true;
        isTold_ = finder_.updateProgressBarWith(*list_[position]);
    }

    void dropTaken() {
        std::size_t kept = 0;
        for (std::size_t position = 0; position < list_.size(); ++position) {
            if (!taken_[position]) {
                list_[kept++] = list_[position];
            }
        }
        list_.resize(kept);
        list_.shrink_to_fit();
    }

    DuplicateFinder& finder_;
    std::vector<File*>& list_;  // not changed while workers compare
    FileStore& store_;
    const SizeClasses classes_;
    std::vector<std::shared_ptr<Batch>> batches_;
    std::vector<Batch*> batchOf_;           // by class
    std::vector<std::uint32_t> nextEqual_;  // by position; written before the batch is done
    std::vector<bool> taken_;               // by position; the walk's own
    bool isTold_ = false;                   // the file taken last was told of
};

DuplicateFinder::DuplicateFinder(FileSystem& fileSystem, WorkerPool& pool,
                                 const ScanControl& control, ScanObserver& observer,
                                 ProgressGate& gate, std::atomic<std::uint64_t>& processed)
    : pool_(pool),
      control_(control),
      observer_(observer),
      gate_(gate),
      processed_(processed),
      reader_(fileSystem, control),
      buffers_(bufferSlabs),
      partition_(reader_, buffers_, pool) {}

std::shared_ptr<Modal> DuplicateFinder::findDuplicates(std::vector<File*>& list, FileStore& store) {
    return CategoryComparison(*this, list, store).compare();
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
    const std::uint64_t processed = processed_.fetch_add(1, std::memory_order_relaxed) + 1;
    // While paused the screen keeps what it showed at the moment of pausing.
    if (control_.pause() || !gate_.due()) {
        return false;
    }
    observer_.processing(file.filePath(), processed);
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
