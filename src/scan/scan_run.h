#pragma once

#include "platform/platform.h"
#include "scan/elapsed_time_thread.h"
#include "scan/exception_filter.h"
#include "scan/location_row.h"
#include "scan/scan_filter.h"
#include "scan/scan_observer.h"
#include "scan/scan_result.h"
#include "scan/scan_work.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {

/// Runs scans, one after another, on background threads. Owns the threads and the flags that the
/// owner and the threads share. Each scan leaves a ScanResult.
///
/// start(), wait(), homeCleanup() and result() belong to the owner's thread; the flags may be read,
/// and pause and stop be set, on any. The observer is notified on the threads of the scan.
///
/// A scan uses: the scan task, which runs the phases and watches for calls that do not return; the
/// collection task; five comparisons, one for each category; the elapsed-time thread; and the
/// workers they share. Where the system gives no thread, the caller's thread does the work.
///
/// A file-system call that does not return delays only the work that needs its result. A scan that
/// is stopped during such a call still ends within a second, with the sets confirmed so far; the
/// stuck thread is left behind with the data it uses.
class ScanRun final {
 public:
    /// How the scan's threads share the machine with all others.
    enum class Priority : std::uint8_t {
        normal,
        low,  ///< for an owner whose thread serves a user
        idle  ///< takes what nobody else wants; see makeThreadIdle()
    };

    struct Settings {
        WorkerPool::Limits workers = WorkerPool::limitsOfThisMachine();
        /// How often the scan task checks for a stop and for calls that do not return.
        std::chrono::milliseconds watchStep{100};
        /// How many such steps a call may take before ScanObserver::waitingFor() reports it.
        unsigned stepsBeforeWaitIsReported = 50;
        /// How many such steps a call may take before another task may run in its place.
        unsigned stepsBeforeStandIn = 10;
        /// How long a stopped scan waits for threads inside a call.
        std::chrono::milliseconds patienceAfterStop{300};
        /// Minimum time between two reports of a file. Zero: every file is reported.
        std::chrono::milliseconds progressInterval{33};
        /// Interval of the reports of the elapsed time. Any length counts as one second of pause.
        std::chrono::milliseconds elapsedStep{1000};
        Priority priority = Priority::normal;
    };

    ScanRun(Platform& platform, ScanObserver& observer) : ScanRun(platform, observer, Settings{}) {}
    ScanRun(Platform& platform, ScanObserver& observer, Settings settings);
    ScanRun(const ScanRun&) = delete;
    ScanRun& operator=(const ScanRun&) = delete;
    /// Stops a running scan and waits for it.
    ~ScanRun();

    /// Changes Settings::priority for the scans that are started from now on.
    void setPriority(Priority priority) { settings_.priority = priority; }
    /// Makes the scans started from now on use the memory in `folder`; see ScanMemory. nullopt:
    /// they use none, as at first.
    void setMemory(std::optional<std::string> folder) { memoryFolder_ = std::move(folder); }
    /// Blocks until what the last scan has found out is stored, which begins when its result is
    /// there. The destructor and the next start do the same.
    void waitForMemory();
    /// Why the memory could not be used, or not stored. After waitForMemory().
    [[nodiscard]] MemoryReport memoryReport() const { return work()->memoryReport(); }

    /// Starts a scan of the checked folders and the given files among `rows`, without what `filter`
    /// and `exceptions` skip, and returns immediately (after the scan if
    /// the system gives no thread). Waits for a scan that is still running. Drops the last result,
    /// whose lists homeCleanup() should have freed before.
    void start(std::vector<LocationRow> rows, ExceptionFilter exceptions, ScanFilter filter = {});
    /// The same for listed files, which are compared across categories. Sets the state of each
    /// file. After a stop, a thread that was left behind may still do so.
    void start(std::shared_ptr<ListedFiles> files, ExceptionFilter exceptions);

    /// Blocks until the last scan has ended. Returns at once if there was none.
    void wait();

    /// Pauses or resumes the workers.
    void setPause(bool pause) { work()->control().setPause(pause); }
    /// Workers end at their next check. Clears a pause. The sets confirmed so far become the
    /// result; during the collection there are none.
    void requestStop();

    /// Drops lists and result and resets every flag to its value before the first scan. Requires
    /// that the scan has ended. Returns quickly: a background thread frees what a large scan leaves
    /// behind. A caller that still holds a part of the result may only release it.
    void homeCleanup();

    /// The result of the last scan, which must have ended; an empty one before the first scan.
    [[nodiscard]] const ScanResult& result() const { return result_; }

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
    [[nodiscard]] bool stopElapsedTimeThread() const {
        return elapsedTime_.stopElapsedTimeThread();
    }
    /// Whether a stop was requested before the last scan had ended, even if stop() has been
    /// cleared since.
    [[nodiscard]] bool wasStopped() const { return wasStopped_; }
    /// Files decided so far by the comparison.
    [[nodiscard]] std::uint64_t processed() const { return work()->processed(); }
    /// Bytes that the comparison is done with, and all it has to do. Zeros until these are known, a
    /// moment after its start.
    [[nodiscard]] BytesCompared bytesCompared() const { return work()->bytesCompared(); }
    /// Bytes read so far by the comparison.
    [[nodiscard]] std::uint64_t bytesRead() const { return work()->bytesRead(); }
    /// nullopt before the first scan.
    [[nodiscard]] std::optional<Timestamp> scanStartDate() const { return scanStartDate_; }

 private:
    [[nodiscard]] std::shared_ptr<ScanWork> work() const;
    [[nodiscard]] std::shared_ptr<ScanWork> makeWork() const;
    void changeWork(std::shared_ptr<ScanWork> work);

    void begin(const std::function<void(ScanWork&)>& setInputs);
    void choosePriority() const;
    void scanTask();
    void addAllPhotos(ScanResult& result);
    void runCollection(const std::shared_ptr<ScanWork>& work);
    void exactMethod(ScanResult& result);
    [[nodiscard]] CategoryResults compareCategories(const std::shared_ptr<ScanWork>& work);
    void storeMemory(const std::shared_ptr<ScanWork>& work);
    void waitForComparisons(ScanWork& work);
    void watchCalls(ScanWork& work);
    void reportWait(ScanWork& work);
    void freeResult();
    void clearFlags();
    void finish(ScanResult result, bool compared);

    Platform& platform_;
    ScanObserver& observer_;
    Settings settings_;

    std::atomic<bool> scanning_{false};
    std::atomic<bool> added_{true};
    std::atomic<bool> go_{false};
    std::atomic<bool> afterSimilarReportCall_{false};
    std::atomic<bool> exactScanCompleted_{false};
    std::atomic<bool> wasStopped_{false};

    std::optional<std::string> memoryFolder_;
    std::optional<Timestamp> scanStartDate_;
    std::chrono::steady_clock::time_point started_;
    ScanResult result_;                // the scan task's until the scan has ended
    unsigned stepsUntilReported_ = 0;  // the scan task's own

    mutable std::mutex workMutex_;
    // Of the current or last scan, or for the next. Guarded by workMutex_.
    std::shared_ptr<ScanWork> work_;

    std::thread scanThread_;
    std::thread freeingThread_;
    std::thread storingThread_;  // the scan task's until the scan has ended
    ElapsedTimeThread elapsedTime_;

    std::mutex mutex_;
    std::condition_variable changed_;
    bool running_ = false;                // guarded by mutex_
    std::size_t comparisonsRunning_ = 0;  // guarded by mutex_
};

}  // namespace tarvin
