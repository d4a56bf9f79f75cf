#include "scan/scan_run.h"

#include "platform/thread_priority.h"
#include "scan/texts.h"

#include <utility>

namespace tarvin {

namespace {

// The order in which comparisons begin and their results are put together.
constexpr std::array comparisonOrder{Category::image, Category::video, Category::audio,
                                     Category::documents, Category::other};

/// What a scan has left behind.
struct Remains {
    CategoryLists lists;
    ScanRun::CategoryResults results;
    std::shared_ptr<Modal> modal;
};

}  // namespace

ScanRun::ScanRun(Platform& platform, ScanObserver& observer, Settings settings)
    : platform_(platform),
      observer_(observer),
      settings_(settings),
      gate_(settings.progressInterval) {}

ScanRun::~ScanRun() {
    requestStop();
    wait();
    if (freeingThread_.joinable()) {
        freeingThread_.join();
    }
}

void ScanRun::start(std::vector<LocationRow> rows, ExceptionFilter exceptions) {
    wait();
    rows_ = std::move(rows);
    scanning_ = true;
    wasStopped_ = false;
    exceptions_ = std::move(exceptions);
    scanStartDate_ = platform_.clock().now();
    started_ = platform_.clock().steadyNow();
    duration_ = {};
    collected_ = {};
    unreadable_.clear();
    pool_ = std::make_unique<WorkerPool>(settings_.workers);
    {
        const std::lock_guard lock(mutex_);
        running_ = true;
    }
    startElapsedTimeThread();
    scanThread_ = std::thread([this] { scanTask(); });
}

void ScanRun::wait() {
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !running_; });
    }
    joinThreads();
    {
        const std::lock_guard lock(mutex_);
        if (finder_) {
            bytesRead_ = finder_->bytesRead();
            finder_ = nullptr;
        }
    }
    pool_ = nullptr;
}

void ScanRun::requestStop() {
    if (scanning_) {
        wasStopped_ = true;
    }
    control_.setStop(true);
    control_.setPause(false);
}

void ScanRun::homeCleanup() {
    wait();
    freeResult();
    clearFlags();
    processed_ = 0;
    collected_ = {};
    unreadable_.clear();
    go_ = false;
    exactScanCompleted_ = false;
    wasStopped_ = false;
    scanStartDate_ = std::nullopt;
    duration_ = {};
    const std::lock_guard lock(mutex_);
    bytesRead_ = 0;
}

std::uint64_t ScanRun::bytesRead() const {
    const std::lock_guard lock(mutex_);
    return finder_ ? finder_->bytesRead() : bytesRead_;
}

/// A million files and their sets take a tenth of a second, in which the owner would not answer.
void ScanRun::freeResult() {
    auto remains =
        std::make_unique<Remains>(Remains{std::exchange(lists_, {}), std::exchange(results_, {}),
                                          std::exchange(modal_, std::make_shared<Modal>())});
    if (remains->lists.store->fileCount() == 0 && remains->modal->extensionCount() == 0) {
        return;
    }
    if (freeingThread_.joinable()) {
        freeingThread_.join();
    }
    freeingThread_ = std::thread([left = std::move(remains)]() mutable {
        standBack();
        left = nullptr;
    });
}

/// Waits for the collection, then starts the comparisons.
void ScanRun::scanTask() {
    if (settings_.standsBack) {
        // All threads of the scan but the one of the elapsed time descend from this one.
        standBack();
    }
    added_ = false;
    go_ = true;
    std::thread collection([this] { addAllPhotos(); });
    collection.join();
    if (go_) {
        afterSimilarReportCall_ = false;
        exactMethod();
    } else {
        scanning_ = false;
        finish();
    }
}

void ScanRun::addAllPhotos() {
    const Collector::Outcome outcome = collect();
    if (outcome == Collector::Outcome::stopped) {
        // The comparison of empty lists that follows shows an empty result.
        rows_.clear();
        clearFlags();
        return;
    }
    for (const Category category : allCategories) {
        collected_[static_cast<std::size_t>(category)] = lists_.of(category).size();
    }
    go_ = outcome == Collector::Outcome::collected;
    added_ = true;
}

/// No worker lists folders any more when this returns.
Collector::Outcome ScanRun::collect() {
    Collector collector(platform_.fileSystem(), *pool_, control_, exceptions_, observer_, gate_,
                        lists_);
    const Collector::Outcome outcome = collector.addAllPhotos(rows_);
    unreadable_ = collector.unreadableLocations();
    return outcome;
}

/// Starts the five comparisons and returns.
void ScanRun::exactMethod() {
    exactScanCompleted_ = false;
    processed_ = 0;
    observer_.comparisonStarted(lists_.total());
    results_ = {};
    {
        const std::lock_guard lock(mutex_);
        finder_ = std::make_unique<DuplicateFinder>(platform_.fileSystem(), *pool_, control_,
                                                    observer_, gate_, processed_);
    }
    comparisonsRunning_ = comparisonOrder.size();
    for (const Category category : comparisonOrder) {
        comparisonThreads_[static_cast<std::size_t>(category)] =
            std::thread([this, category] { compare(category); });
    }
}

void ScanRun::compare(Category category) {
    results_[static_cast<std::size_t>(category)] =
        finder_->findDuplicates(lists_.of(category), *lists_.store);
    if (--comparisonsRunning_ == 0) {
        joinResults();
    }
}

/// Runs once, on the thread of the comparison that ended last.
void ScanRun::joinResults() {
    for (const Category category : comparisonOrder) {
        const Modal& result = *of(category);
        modal_->addExtensionFromArray(result.extensions());
        modal_->setTotalFiles(modal_->totalFiles() + result.totalFiles());
        modal_->setTotalFilesSize(modal_->totalFilesSize() + result.totalFilesSize());
    }
    exactScanCompleted_ = true;
    scanning_ = false;
    observer_.comparisonFinished(processed_);
    finish();
}

void ScanRun::startElapsedTimeThread() {
    stopElapsedTimeThread_ = false;
    elapsedTimeThread_ = std::thread([this] { elapsedTimeThreadSavingData(); });
}

void ScanRun::elapsedTimeThreadSavingData() {
    double pausedSeconds = 0;
    while (sleepOneStep()) {
        bool goesOn = true;
        while (goesOn && control_.pause()) {
            pausedSeconds += 1.0;
            goesOn = sleepOneStep();
        }
        if (!goesOn) {
            return;
        }
        const std::chrono::duration<double> sinceStart = platform_.clock().now() - *scanStartDate_;
        observer_.elapsed(getTimeFormStringForInterval(sinceStart.count() - pausedSeconds));
    }
}

/// False, and at once, when the thread is to end.
bool ScanRun::sleepOneStep() {
    std::unique_lock lock(mutex_);
    return !changed_.wait_for(lock, settings_.elapsedStep,
                              [this] { return stopElapsedTimeThread_.load(); });
}

void ScanRun::endElapsedTimeThread() {
    {
        const std::lock_guard lock(mutex_);
        stopElapsedTimeThread_ = true;
    }
    changed_.notify_all();
}

void ScanRun::joinThreads() {
    if (scanThread_.joinable()) {
        scanThread_.join();
    }
    for (std::thread& thread : comparisonThreads_) {
        if (thread.joinable()) {
            thread.join();
        }
    }
    if (elapsedTimeThread_.joinable()) {
        elapsedTimeThread_.join();
    }
}

void ScanRun::clearFlags() {
    scanning_ = false;
    control_.setPause(false);
    control_.setStop(false);
    lists_.clear();
    added_ = true;
    endElapsedTimeThread();
}

void ScanRun::finish() {
    duration_ = platform_.clock().steadyNow() - started_;
    endElapsedTimeThread();
    const std::lock_guard lock(mutex_);
    running_ = false;
    changed_.notify_all();
}

}  // namespace tarvin
