#include "scan/scan_work.h"

#include "scan/list_collector.h"

#include <new>
#include <utility>

namespace tarvin {

std::shared_ptr<ScanWork> ScanWork::create(FileSystem& fileSystem, ScanObserver& observer,
                                           Settings settings) {
    std::shared_ptr<ScanWork> work(new ScanWork(fileSystem, observer, settings));
    work->pool_.keepAlive(work);
    return work;
}

ScanWork::ScanWork(FileSystem& fileSystem, ScanObserver& observer, Settings settings)
    : observer_(observer),
      gate_(settings.progressInterval),
      pool_(settings.workers),
      services_{fileSystem, pool_, control_, watch_, unreadable_, unsteadyVolumes_} {}

ScanWork::~ScanWork() = default;

void ScanWork::setInputs(std::vector<LocationRow> rows, ExceptionFilter exceptions,
                         ScanFilter filter) {
    rows_ = std::move(rows);
    exceptions_ = std::move(exceptions);
    filter_ = std::move(filter);
}

void ScanWork::setInputs(std::shared_ptr<ListedFiles> files, ExceptionFilter exceptions) {
    listedFiles_ = std::move(files);
    exceptions_ = std::move(exceptions);
}

void ScanWork::useMemory(std::string folder, Timestamp now) {
    recollection_.emplace(std::move(folder), now);
    lists_.store->keepVersions();
}

void ScanWork::storeMemory(ScanObserver& observer) {
    try {
        if (recollection_) {
            recollection_->store(*lists_.store);
            observer.memoryStored(recollection_->report());
        }
        // NOLINTNEXTLINE(bugprone-empty-catch): nothing is lost but time.
    } catch (const std::bad_alloc&) {
        // The next scan reads the files again.
    }
}

MemoryReport ScanWork::memoryReport() const {
    return recollection_ ? recollection_->report() : MemoryReport();
}

void ScanWork::collect() {
    Collector::Outcome outcome = Collector::Outcome::stopped;
    try {
        if (recollection_) {
            recollection_->readAhead(services_);
        }
        outcome = collectInputs();
        if (recollection_ && outcome == Collector::Outcome::collected) {
            recollection_->recall(lists_, services_);
        }
    } catch (const std::bad_alloc&) {
        control_.stopForLackOfMemory();
    }
    if (control_.outOfMemory()) {
        outcome = Collector::Outcome::stopped;
    }
    // After a stop workers may still be inside folders, and the collector would wait for them.
    if (!control_.stop()) {
        collector_.reset();
    }
    endCollection(outcome);
}

Collector::Outcome ScanWork::collectInputs() {
    if (listedFiles_ != nullptr) {
        return ListCollector(services_, exceptions_, observer_, gate_, lists_)
            .collect(*listedFiles_);
    }
    collector_.emplace(services_, exceptions_, filter_, observer_, gate_, lists_);
    const Collector::Outcome outcome = collector_->addAllPhotos(rows_);
    unreadableLocations_ = collector_->unreadableLocations();
    return outcome;
}

void ScanWork::endCollection(Collector::Outcome outcome) {
    const std::lock_guard lock(mutex_);
    outcome_ = outcome;
    collected_ = true;
    changed_.notify_all();
}

bool ScanWork::waitForCollection(std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, patience, [this] { return collected_; });
}

void ScanWork::prepareComparison() {
    auto finder =
        std::make_unique<DuplicateFinder>(services_, observer_, gate_, processed_, bytesCompared_);
    finder->expectLists(allCategories.size());
    const std::lock_guard lock(mutex_);
    finder_ = std::move(finder);
}

void ScanWork::endComparison() {
    std::unique_ptr<DuplicateFinder> finder;
    const std::lock_guard lock(mutex_);
    if (finder_ != nullptr) {
        bytesRead_ = finder_->bytesRead();
        finder = std::move(finder_);
    }
}

std::shared_ptr<Modal> ScanWork::compare(Category category) {
    try {
        return finder_->findDuplicates(lists_.of(category), *lists_.store);
    } catch (const std::bad_alloc&) {
        control_.stopForLackOfMemory();
        return std::make_shared<Modal>();
    }
}

bool ScanWork::endWorkers(std::chrono::milliseconds patience) {
    if (pool_.endWithin(patience)) {
        return true;
    }
    leaveBehind();
    return false;
}

void ScanWork::leaveBehind() {
    leftBehind_ = true;
    control_.requestStop();
    observer_.cut();
    pool_.abandon();
}

std::uint64_t ScanWork::bytesRead() {
    const std::lock_guard lock(mutex_);
    return finder_ == nullptr ? bytesRead_ : finder_->bytesRead();
}

void ScanWork::Link::cut() {
    const std::unique_lock lock(mutex_);
    to_ = nullptr;
}

}  // namespace tarvin
