#pragma once

#include "model/modal.h"
#include "platform/platform.h"
#include "scan/exception_filter.h"
#include "scan/location_row.h"
#include "scan/scan_observer.h"
#include "scan/scan_work.h"
#include "scan/unreadable.h"

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace tarvin {

/// One scan after another: runs collection and comparison off the caller's thread, keeps the flags
/// through which the two sides speak, and holds the results.
///
/// Owned by whoever shows the scan. start(), wait(), homeCleanup() and the results belong to one
/// thread, the owner's; pause and stop may be set on any. The observer is told on the scan's own
/// threads.
///
/// A scan uses: the scan task, which runs the phases and watches over them; the collection task;
/// five comparisons, one for each category; the elapsed-time thread; and the workers they share.
/// Where the system gives no thread, the work is done on the one that asked for it.
///
/// A call of the file system that does not return holds up only what needs its answer. A scan that
/// is stopped meanwhile ends all the same, within a second, with what is proven; the stuck thread
/// is left behind with the data it needs.
class ScanRun final {
 public:
    static constexpr std::size_t categoryCount = 5;
    using CategoryResults = std::array<std::shared_ptr<Modal>, categoryCount>;

    struct Settings {
        WorkerPool::Limits workers = WorkerPool::limitsOfThisMachine();
        /// How often the scan task looks for stops and for calls that do not return.
        std::chrono::milliseconds watchStep{100};
        /// How many such steps a call may take before it is told that the scan waits for it.
        unsigned stepsBeforeWaitIsTold = 50;
        /// How many it may take before another task takes its place among those that run.
        unsigned stepsBeforeStandIn = 10;
        /// How long threads inside a call are waited for when the scan is stopped.
        std::chrono::milliseconds patienceAfterStop{300};
        /// How often the observer is told of a file; with zero, of every file.
        std::chrono::milliseconds progressInterval{33};
        /// How often the elapsed time is told. Counts as one second of pause, whatever its length.
        std::chrono::milliseconds elapsedStep{1000};
        /// The threads of the scan leave the processors to the owner's own and to other programs:
        /// for an owner who has a person to answer meanwhile.
        bool standsBack = false;
    };

    ScanRun(Platform& platform, ScanObserver& observer) : ScanRun(platform, observer, Settings{}) {}
    ScanRun(Platform& platform, ScanObserver& observer, Settings settings);
    ScanRun(const ScanRun&) = delete;
    ScanRun& operator=(const ScanRun&) = delete;
    /// Stops what is running and waits for it.
    ~ScanRun();

    /// Begins a scan of the checked folders among `rows` and returns at once (when it is over, if
    /// the system gives no thread). modal() must be empty; a scan that is still running is waited
    /// for.
    void start(std::vector<LocationRow> rows, ExceptionFilter exceptions);

    /// Waits until the scan begun last is over. Returns at once if none was.
    void wait();

    /// The workers wait, or go on.
    void setPause(bool pause) { work()->control().setPause(pause); }
    /// The workers end at their next check; clears a pause. Sets proven so far become the result,
    /// but during the collection there are none.
    void requestStop();

    /// Forgets lists and results and makes every flag what it was before the first scan. The scan
    /// must be over. Returns soon: what a large scan has left is freed on a thread of its own, so
    /// whoever has kept a part of the result may let go of it, and do nothing else with it.
    void homeCleanup();

    [[nodiscard]] bool scanning() const { return scanning_; }
    [[nodiscard]] bool pause() const { return work()->control().pause(); }
    [[nodiscard]] bool stop() const { return work()->control().stop(); }
    /// The collection is over.
    [[nodiscard]] bool added() const { return added_; }
    /// There is something to compare.
    [[nodiscard]] bool go() const { return go_; }
    /// The result is complete, or as complete as a stop left it.
    [[nodiscard]] bool exactScanCompleted() const { return exactScanCompleted_; }
    /// For the views of a result: false before each comparison, then as they leave it. Nothing
    /// reads or sets it.
    [[nodiscard]] bool afterSimilarReportCall() const { return afterSimilarReportCall_; }
    void setAfterSimilarReportCall(bool called) { afterSimilarReportCall_ = called; }
    [[nodiscard]] bool stopElapsedTimeThread() const { return stopElapsedTimeThread_; }
    /// Whether the scan begun last was asked to stop before it was over, also where the flag is
    /// cleared again.
    [[nodiscard]] bool wasStopped() const { return wasStopped_; }
    /// Files accounted for so far by the comparison.
    [[nodiscard]] std::uint64_t processed() const { return work()->processed(); }
    /// Bytes read so far by the comparison.
    [[nodiscard]] std::uint64_t bytesRead() const { return work()->bytesRead(); }
    /// Whether memory ran out, which ended the scan like a stop.
    [[nodiscard]] bool ranOutOfMemory() const { return ranOutOfMemory_; }
    [[nodiscard]] std::optional<Timestamp> scanStartDate() const { return scanStartDate_; }

    /// The results; the scan must be over. None of a category before its first comparison.
    [[nodiscard]] const std::shared_ptr<Modal>& imageModal() const { return of(Category::image); }
    [[nodiscard]] const std::shared_ptr<Modal>& videoModal() const { return of(Category::video); }
    [[nodiscard]] const std::shared_ptr<Modal>& audioModal() const { return of(Category::audio); }
    [[nodiscard]] const std::shared_ptr<Modal>& docsModal() const {
        return of(Category::documents);
    }
    [[nodiscard]] const std::shared_ptr<Modal>& otherModal() const { return of(Category::other); }
    [[nodiscard]] const std::shared_ptr<Modal>& of(Category category) const {
        return results_[static_cast<std::size_t>(category)];
    }
    /// All categories together, sharing their extensions.
    [[nodiscard]] const std::shared_ptr<Modal>& modal() const { return modal_; }

    /// How many files of a category were collected.
    [[nodiscard]] std::uint64_t collected(Category category) const {
        return collected_[static_cast<std::size_t>(category)];
    }
    /// The checked locations that could not be read.
    [[nodiscard]] const std::vector<UnreadableLocation>& unreadableLocations() const {
        return unreadableLocations_;
    }
    /// The folders and files inside the locations that could not be read.
    [[nodiscard]] const UnreadableReport& unreadable() const { return unreadable_; }
    /// From the start to the result, pauses included.
    [[nodiscard]] std::chrono::duration<double> duration() const { return duration_; }

 private:
    [[nodiscard]] std::shared_ptr<ScanWork> work() const;
    [[nodiscard]] std::shared_ptr<ScanWork> makeWork() const;
    void changeWork(std::shared_ptr<ScanWork> work);

    void scanTask();
    void addAllPhotos();
    void runCollection(const std::shared_ptr<ScanWork>& work);
    void exactMethod();
    void startComparisons(const std::shared_ptr<ScanWork>& work);
    void compare(ScanWork& work, Category category);
    void joinResults(ScanWork& work);
    void lookAround(ScanWork& work);
    void tellOfWait(ScanWork& work);
    void startElapsedTimeThread();
    void elapsedTimeThreadSavingData();
    bool sleepOneStep();
    void endElapsedTimeThread();
    void joinThreads();
    void freeResult();
    void clearFlags();
    void finish();

    Platform& platform_;
    ScanObserver& observer_;
    const Settings settings_;

    std::atomic<bool> scanning_{false};
    std::atomic<bool> added_{true};
    std::atomic<bool> go_{false};
    std::atomic<bool> afterSimilarReportCall_{false};
    std::atomic<bool> exactScanCompleted_{false};
    std::atomic<bool> stopElapsedTimeThread_{true};
    std::atomic<bool> wasStopped_{false};
    std::atomic<bool> ranOutOfMemory_{false};

    std::optional<Timestamp> scanStartDate_;
    std::chrono::steady_clock::time_point started_;
    std::chrono::duration<double> duration_{0};
    std::array<std::uint64_t, categoryCount> collected_{};
    std::vector<UnreadableLocation> unreadableLocations_;
    UnreadableReport unreadable_;
    CategoryResults results_;
    std::shared_ptr<Modal> modal_ = std::make_shared<Modal>();
    unsigned stepsUntilTold_ = 0;  // the scan task's own

    mutable std::mutex workMutex_;
    // Of the scan that runs or ran last, or for the next. Guarded by workMutex_.
    std::shared_ptr<ScanWork> work_;

    std::thread scanThread_;
    std::array<std::thread, categoryCount> comparisonThreads_;
    std::thread elapsedTimeThread_;
    std::thread freeingThread_;

    std::mutex mutex_;
    std::condition_variable changed_;
    bool running_ = false;                // guarded by mutex_
    std::size_t comparisonsRunning_ = 0;  // guarded by mutex_
};

}  // namespace tarvin
