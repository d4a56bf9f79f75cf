#include "scan/scan_run.h"

#include "platform/threads.h"

#include <array>
#include <new>
#include <utility>

namespace tarvin {

namespace {

// After a comparison that was not stopped the workers have nothing left to do.
constexpr std::chrono::seconds patienceAfterTheEnd{5};

/// The data of a scan that its owner has dropped.
struct DroppedScan {
    std::shared_ptr<ScanWork> work;
    ScanResult result;
};

}  // namespace

ScanRun::ScanRun(Platform& platform, ScanObserver& observer, Settings settings)
    : platform_(platform),
      observer_(observer),
      settings_(settings),
      work_(makeWork()),
      elapsedTime_(platform.clock(), observer, settings.elapsedStep, [this] { return pause(); }) {}

ScanRun::~ScanRun() {
    requestStop();
    wait();
    waitForMemory();
    if (freeingThread_.joinable()) {
        freeingThread_.join();
    }
}

void ScanRun::waitForMemory() {
    wait();
    if (storingThread_.joinable()) {
        storingThread_.join();
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

void ScanRun::start(std::vector<LocationRow> rows, ExceptionFilter exceptions, ScanFilter filter) {
    begin([&](ScanWork& work) {
        work.setInputs(std::move(rows), std::move(exceptions), std::move(filter));
    });
}

void ScanRun::start(std::shared_ptr<ListedFiles> files, ExceptionFilter exceptions) {
    begin([&](ScanWork& work) { work.setInputs(std::move(files), std::move(exceptions)); });
}

void ScanRun::begin(const std::function<void(ScanWork&)>& setInputs) {
    wait();
    const std::shared_ptr<ScanWork> next = makeWork();
    next->control().setPause(pause());
    next->control().setStop(stop());
    waitForMemory();
    setInputs(*next);
    const Timestamp now = platform_.clock().now();
    if (memoryFolder_) {
        next->useMemory(*memoryFolder_, now);
    }
    changeWork(next);
    scanning_ = true;
    wasStopped_ = false;
    result_ = {};
    scanStartDate_ = now;
    started_ = platform_.clock().steadyNow();
    {
        const std::lock_guard lock(mutex_);
        running_ = true;
    }
    elapsedTime_.startElapsedTimeThread(now);
    scanThread_ = startThread([this] {
        choosePriority();
        scanTask();
    });
    if (!scanThread_.joinable()) {
        scanTask();
    }
}

void ScanRun::wait() {
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !running_; });
    }
    if (scanThread_.joinable()) {
        scanThread_.join();
    }
    elapsedTime_.wait();
}

void ScanRun::requestStop() {
    if (scanning_) {
        wasStopped_ = true;
    }
    work()->control().requestStop();
}

void ScanRun::homeCleanup() {
    wait();
    freeResult();
    clearFlags();
    go_ = false;
    exactScanCompleted_ = false;
    wasStopped_ = false;
    scanStartDate_ = std::nullopt;
}

/// On a background thread: freeing a million files takes 0.1 s, which would stall the owner's.
void ScanRun::freeResult() {
    auto dropped = std::make_unique<DroppedScan>(DroppedScan{work(), std::exchange(result_, {})});
    changeWork(makeWork());
    if (dropped->work->lists().store->fileCount() == 0 &&
        dropped->result.modal->extensionCount() == 0) {
        return;
    }
    if (freeingThread_.joinable()) {
        freeingThread_.join();
    }
    freeingThread_ = startThread([dropped = std::move(dropped)]() mutable {
        lowerThreadPriority();
        dropped = nullptr;
    });
}

/// On the thread that starts all others of the scan but the elapsed-time thread.
void ScanRun::choosePriority() const {
    switch (settings_.priority) {
        case Priority::normal:
            makeThreadInteractive();
            break;
        case Priority::low:
            lowerThreadPriority();
            break;
        case Priority::idle:
            makeThreadIdle();
            break;
    }
}

void ScanRun::scanTask() {
    added_ = false;
    go_ = true;
    ScanResult result;
    addAllPhotos(result);
    const bool compares = go_;
    if (compares) {
        afterSimilarReportCall_ = false;
        exactMethod(result);
    }
    finish(std::move(result), compares);
}

void ScanRun::addAllPhotos(ScanResult& result) {
    const std::shared_ptr<ScanWork> work = this->work();
    runCollection(work);
    result.ranOutOfMemory = work->control().outOfMemory();
    if (work->isLeftBehind() || work->outcome() == Collector::Outcome::stopped) {
        work->endWorkers(settings_.patienceAfterStop);
        // The comparison of empty lists that follows shows an empty result.
        changeWork(makeWork());
        clearFlags();
        return;
    }
    for (const Category category : allCategories) {
        result.collectedFiles[static_cast<std::size_t>(category)] =
            work->lists().of(category).size();
    }
    result.unreadableLocations = work->unreadableLocations();
    result.unreadable = work->unreadable();
    go_ = work->outcome() == Collector::Outcome::collected;
    added_ = true;
}

/// Returns when the collection has ended, or was left behind after a stop. It has its own thread so
/// that it can be left behind.
void ScanRun::runCollection(const std::shared_ptr<ScanWork>& work) {
    std::thread collection = startThread([work] { work->collect(); });
    if (!collection.joinable()) {
        work->collect();
        return;
    }
    std::chrono::milliseconds sinceStop{0};
    while (!work->waitForCollection(settings_.watchStep)) {
        watchCalls(*work);
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

/// Finds calls that do not return.
void ScanRun::watchCalls(ScanWork& work) {
    work.watch().tick();
    work.pool().allowForStuck(work.watch().lasting(settings_.stepsBeforeStandIn));
    if (stepsUntilReported_ > 0) {
        --stepsUntilReported_;
        return;
    }
    try {
        reportWait(work);
    } catch (const std::bad_alloc&) {
        // A report can wait; code that needs memory for the scan itself ends the scan.
        stepsUntilReported_ = settings_.stepsBeforeStandIn;
    }
}

void ScanRun::reportWait(ScanWork& work) {
    const std::optional<IoWatch::Waiting> waiting =
        work.watch().longest(settings_.stepsBeforeWaitIsReported);
    if (waiting && !work.control().pause()) {
        work.observer().waitingFor(waiting->path);
        stepsUntilReported_ = settings_.stepsBeforeStandIn;
    }
}

/// Runs the five comparisons and joins their results.
void ScanRun::exactMethod(ScanResult& result) {
    const std::shared_ptr<ScanWork> work = this->work();
    exactScanCompleted_ = false;
    work->observer().comparisonStarted(work->lists().total());
    work->prepareComparison();
    result.categories = compareCategories(work);
    const bool hasEnded = work->endWorkers(work->control().stop() ? settings_.patienceAfterStop
                                                                  : patienceAfterTheEnd);
    if (hasEnded) {
        work->endComparison();
        storeMemory(work);
    }
    result.modal = joinCategories(result.categories);
    result.unreadable = work->unreadable();
    result.ranOutOfMemory = result.ranOutOfMemory || work->control().outOfMemory();
}

/// On its own thread, so that the result need not wait for the disk.
void ScanRun::storeMemory(const std::shared_ptr<ScanWork>& work) {
    if (!work->usesMemory()) {
        return;
    }
    const auto store = [this, work] { work->storeMemory(observer_); };
    storingThread_ = startThread(store);
    if (!storingThread_.joinable()) {
        store();
    }
}

CategoryResults ScanRun::compareCategories(const std::shared_ptr<ScanWork>& work) {
    {
        const std::lock_guard lock(mutex_);
        comparisonsRunning_ = allCategories.size();
    }
    CategoryResults results;
    const auto compare = [this, &work, &results](Category category) {
        results[static_cast<std::size_t>(category)] = work->compare(category);
        const std::lock_guard lock(mutex_);
        --comparisonsRunning_;
        changed_.notify_all();
    };
    std::array<std::thread, allCategories.size()> threads;
    for (const Category category : allCategories) {
        threads[static_cast<std::size_t>(category)] =
            startThread([&compare, category] { compare(category); });
    }
    for (const Category category : allCategories) {
        if (!threads[static_cast<std::size_t>(category)].joinable()) {
            compare(category);
        }
    }
    waitForComparisons(*work);
    for (std::thread& thread : threads) {
        if (thread.joinable()) {
            thread.join();
        }
    }
    return results;
}

void ScanRun::waitForComparisons(ScanWork& work) {
    std::unique_lock lock(mutex_);
    while (!changed_.wait_for(lock, settings_.watchStep,
                              [this] { return comparisonsRunning_ == 0; })) {
        lock.unlock();
        watchCalls(work);
        lock.lock();
    }
}

/// Pause and stop are those of the ScanWork, which is new after a stop.
void ScanRun::clearFlags() {
    scanning_ = false;
    added_ = true;
    elapsedTime_.end();
}

void ScanRun::finish(ScanResult result, bool compared) {
    result.duration = platform_.clock().steadyNow() - started_;
    result_ = std::move(result);
    if (compared) {
        exactScanCompleted_ = true;
    }
    scanning_ = false;
    if (compared) {
        observer_.comparisonFinished(work()->processed());
    }
    elapsedTime_.end();
    const std::lock_guard lock(mutex_);
    running_ = false;
    changed_.notify_all();
}

}  // namespace tarvin
