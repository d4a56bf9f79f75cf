#include "scan/scan_run.h"

#include "platform/start_thread.h"
#include "platform/thread_priority.h"
#include "scan/texts.h"

#include <new>
#include <utility>

namespace tarvin {

namespace {

// The order in which comparisons begin and their results are put together.
constexpr std::array comparisonOrder{Category::image, Category::video, Category::audio,
                                     Category::documents, Category::other};

// Workers have nothing left to do when a comparison that was not stopped is over.
constexpr std::chrono::seconds patienceAfterTheEnd{5};

/// What a scan has left behind.
struct Remains {
    std::shared_ptr<ScanWork> work;
    ScanRun::CategoryResults results;
    std::shared_ptr<Modal> modal;
};

}  // namespace

ScanRun::ScanRun(Platform& platform, ScanObserver& observer, Settings settings)
    : platform_(platform), observer_(observer), settings_(settings), work_(makeWork()) {}

ScanRun::~ScanRun() {
    requestStop();
    wait();
    if (freeingThread_.joinable()) {
        freeingThread_.join();
    }
}

std::shared_ptr<ScanWork> ScanRun::work() const {
    const std::lock_guard lock(workMutex_);
    return work_;
}

std::shared_ptr<ScanWork> ScanRun::makeWork() const {
    return ScanWork::create(platform_.fileSystem(), observer_,
                            {settings_.workers, settings_.progressInterval});
}

void ScanRun::changeWork(std::shared_ptr<ScanWork> work) {
    const std::lock_guard lock(workMutex_);
    work_.swap(work);
}

void ScanRun::start(std::vector<LocationRow> rows, ExceptionFilter exceptions) {
    wait();
    const std::shared_ptr<ScanWork> next = makeWork();
    next->control().setPause(pause());
    next->control().setStop(stop());
    next->setInputs(std::move(rows), std::move(exceptions));
    changeWork(next);
    scanning_ = true;
    wasStopped_ = false;
    ranOutOfMemory_ = false;
    scanStartDate_ = platform_.clock().now();
    started_ = platform_.clock().steadyNow();
    duration_ = {};
    collected_ = {};
    unreadableLocations_.clear();
    unreadable_ = {};
    {
        const std::lock_guard lock(mutex_);
        running_ = true;
    }
    startElapsedTimeThread();
    scanThread_ = startThread([this] { scanTask(); });
    if (!scanThread_.joinable()) {
        scanTask();
    }
}

void ScanRun::wait() {
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !running_; });
    }
    joinThreads();
}

void ScanRun::requestStop() {
    if (scanning_) {
        wasStopped_ = true;
    }
    ScanControl& control = work()->control();
    control.setStop(true);
    control.setPause(false);
}

void ScanRun::homeCleanup() {
    wait();
    freeResult();
    clearFlags();
    collected_ = {};
    unreadableLocations_.clear();
    unreadable_ = {};
    go_ = false;
    exactScanCompleted_ = false;
    wasStopped_ = false;
    ranOutOfMemory_ = false;
    scanStartDate_ = std::nullopt;
    duration_ = {};
}

/// A million files and their sets take a tenth of a second, in which the owner would not answer.
void ScanRun::freeResult() {
    auto remains = std::make_unique<Remains>(Remains{
        work(), std::exchange(results_, {}), std::exchange(modal_, std::make_shared<Modal>())});
    changeWork(makeWork());
    if (remains->work->lists().store->fileCount() == 0 && remains->modal->extensionCount() == 0) {
        return;
    }
    if (freeingThread_.joinable()) {
        freeingThread_.join();
    }
    freeingThread_ = startThread([left = std::move(remains)]() mutable {
        standBack();
        left = nullptr;
    });
}

void ScanRun::scanTask() {
    if (settings_.standsBack) {
        // All threads of the scan but the one of the elapsed time descend from this one.
        standBack();
    }
    added_ = false;
    go_ = true;
    addAllPhotos();
    if (go_) {
        afterSimilarReportCall_ = false;
        exactMethod();
    } else {
        scanning_ = false;
        finish();
    }
}

void ScanRun::addAllPhotos() {
    const std::shared_ptr<ScanWork> work = this->work();
    runCollection(work);
    ranOutOfMemory_ = work->control().outOfMemory();
    if (work->isLeftBehind() || work->outcome() == Collector::Outcome::stopped) {
        work->endWorkers(settings_.patienceAfterStop);
        // The comparison of empty lists that follows shows an empty result.
        changeWork(makeWork());
        clearFlags();
        return;
    }
    for (const Category category : allCategories) {
        collected_[static_cast<std::size_t>(category)] = work->lists().of(category).size();
    }
    unreadableLocations_ = work->unreadableLocations();
    unreadable_ = work->unreadable();
    go_ = work->outcome() == Collector::Outcome::collected;
    added_ = true;
}

/// Returns when the collection is over, or was left behind after a stop.
void ScanRun::runCollection(const std::shared_ptr<ScanWork>& work) {
    std::thread collection = startThread([work] { work->collect(); });
    if (!collection.joinable()) {
        work->collect();
        return;
    }
    std::chrono::milliseconds sinceStop{0};
    while (!work->waitForCollection(settings_.watchStep)) {
        lookAround(*work);
        if (!work->control().stop()) {
            continue;
        }
        sinceStop += settings_.watchStep;
        if (sinceStop >= settings_.patienceAfterStop) {
            work->leaveBehind();
            collection.detach();
            return;
        }
    }
    collection.join();
}

/// Notices calls that do not return.
void ScanRun::lookAround(ScanWork& work) {
    work.watch().tick();
    work.pool().allowForStuck(work.watch().lasting(settings_.stepsBeforeStandIn));
    if (stepsUntilTold_ > 0) {
        --stepsUntilTold_;
        return;
    }
    try {
        tellOfWait(work);
    } catch (const std::bad_alloc&) {
        // Whoever needs the memory for the scan itself ends it; this can be told later.
        stepsUntilTold_ = settings_.stepsBeforeStandIn;
    }
}

void ScanRun::tellOfWait(ScanWork& work) {
    const std::optional<IoWatch::Waiting> waiting =
        work.watch().longest(settings_.stepsBeforeWaitIsTold);
    if (waiting && !work.control().pause()) {
        work.observer().waitingFor(waiting->path);
        stepsUntilTold_ = settings_.stepsBeforeStandIn;
    }
}

/// Runs the five comparisons.
void ScanRun::exactMethod() {
    const std::shared_ptr<ScanWork> work = this->work();
    exactScanCompleted_ = false;
    work->observer().comparisonStarted(work->lists().total());
    results_ = {};
    work->prepareComparison();
    startComparisons(work);
    std::unique_lock lock(mutex_);
    while (!changed_.wait_for(lock, settings_.watchStep,
                              [this] { return comparisonsRunning_ == 0; })) {
        lock.unlock();
        lookAround(*work);
        lock.lock();
    }
    lock.unlock();
    for (std::thread& thread : comparisonThreads_) {
        if (thread.joinable()) {
            thread.join();
        }
    }
    joinResults(*work);
}

void ScanRun::startComparisons(const std::shared_ptr<ScanWork>& work) {
    {
        const std::lock_guard lock(mutex_);
        comparisonsRunning_ = comparisonOrder.size();
    }
    for (const Category category : comparisonOrder) {
        comparisonThreads_[static_cast<std::size_t>(category)] =
            startThread([this, work, category] { compare(*work, category); });
    }
    for (const Category category : comparisonOrder) {
        if (!comparisonThreads_[static_cast<std::size_t>(category)].joinable()) {
            compare(*work, category);
        }
    }
}

void ScanRun::compare(ScanWork& work, Category category) {
    results_[static_cast<std::size_t>(category)] = work.compare(category);
    const std::lock_guard lock(mutex_);
    --comparisonsRunning_;
    changed_.notify_all();
}

void ScanRun::joinResults(ScanWork& work) {
    const bool hasEnded =
        work.endWorkers(work.control().stop() ? settings_.patienceAfterStop : patienceAfterTheEnd);
    if (hasEnded) {
        work.endComparison();
    }
    for (const Category category : comparisonOrder) {
        const Modal& result = *of(category);
        modal_->addExtensionFromArray(result.extensions());
        modal_->setTotalFiles(modal_->totalFiles() + result.totalFiles());
        modal_->setTotalFilesSize(modal_->totalFilesSize() + result.totalFilesSize());
    }
    unreadable_ = work.unreadable();
    ranOutOfMemory_ = ranOutOfMemory_ || work.control().outOfMemory();
    exactScanCompleted_ = true;
    scanning_ = false;
    observer_.comparisonFinished(work.processed());
    finish();
}

void ScanRun::startElapsedTimeThread() {
    stopElapsedTimeThread_ = false;
    elapsedTimeThread_ = startThread([this] { elapsedTimeThreadSavingData(); });
}

void ScanRun::elapsedTimeThreadSavingData() {
    double pausedSeconds = 0;
    while (sleepOneStep()) {
        bool goesOn = true;
        while (goesOn && pause()) {
            pausedSeconds += 1.0;
            goesOn = sleepOneStep();
        }
        if (!goesOn) {
            return;
        }
        const auto now = platform_.clock().now();
        const std::chrono::duration<double> sinceStart = now - scanStartDate_.value_or(now);
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
    if (elapsedTimeThread_.joinable()) {
        elapsedTimeThread_.join();
    }
}

/// Those of pause and stop are new with each ScanWork.
void ScanRun::clearFlags() {
    scanning_ = false;
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
