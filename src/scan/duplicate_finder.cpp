#include "scan/duplicate_finder.h"

#include "scan/category.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

namespace tarvin {

namespace {

// 48 MiB for everything that is read at once.
constexpr std::size_t bufferSlabs = 48;
constexpr std::chrono::milliseconds abandonPollInterval{20};

}  // namespace

DuplicateFinder::DuplicateFinder(const ScanServices& services, ScanObserver& observer,
                                 ProgressGate& gate, std::atomic<std::uint64_t>& processed,
                                 ComparedBytes& bytes)
    : pool_(services.pool),
      control_(services.control),
      progress_(control_, observer, gate, processed),
      bytes_(bytes),
      reader_(services),
      buffers_(bufferSlabs),
      partition_(reader_, buffers_, pool_),
      readAhead_(services) {}

DuplicateFinder::~DuplicateFinder() {
    // No call is running, so the list does not change.
    for (const std::unique_ptr<CategoryComparison>& comparison : comparisons_) {
        // An abandoned pool never runs its queued tasks.
        while (!pool_.isAbandoned() && !comparison->waitForBatches(abandonPollInterval)) {
        }
    }
}

std::shared_ptr<Modal> DuplicateFinder::findDuplicates(std::vector<File*>& list, FileStore& store) {
    CategoryComparison& comparison = keep(std::make_unique<CategoryComparison>(
        CategoryComparison::Context{pool_, control_, partition_, progress_, bytes_, readAhead_},
        std::exchange(list, {}), store));
    std::shared_ptr<Modal> modal = comparison.compare();
    list = comparison.rest();
    letGoOf(comparison);
    return modal;
}

CategoryComparison& DuplicateFinder::keep(std::unique_ptr<CategoryComparison> comparison) {
    const std::lock_guard lock(mutex_);
    return *comparisons_.emplace_back(std::move(comparison));
}

/// Destroys the comparison, unless a worker is still inside it.
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

std::shared_ptr<Extensions> fileSetUnderExtension(Modal& modal,
                                                  const std::vector<std::shared_ptr<File>>& group) {
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
    return extension;
}

}  // namespace tarvin
