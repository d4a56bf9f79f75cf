#pragma once

#include "platform/platform.h"
#include "scan/category_lists.h"
#include "scan/collector.h"
#include "scan/compared_bytes.h"
#include "scan/duplicate_finder.h"
#include "scan/exception_filter.h"
#include "scan/io_watch.h"
#include "scan/listed_files.h"
#include "scan/location_row.h"
#include "scan/progress_gate.h"
#include "scan/recollection.h"
#include "scan/scan_control.h"
#include "scan/scan_filter.h"
#include "scan/scan_observer.h"
#include "scan/scan_services.h"
#include "scan/unreadable.h"
#include "scan/worker_pool.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <string>
#include <type_traits>
#include <vector>

namespace tarvin {

/// All data that the threads of one scan use. Shared by them, so that a thread that is stuck in a
/// call can be left behind: when the call returns, the data still exists, and the thread sees the
/// stop and ends.
class ScanWork final : public std::enable_shared_from_this<ScanWork> {
 public:
    struct Settings {
        WorkerPool::Limits workers;
        std::chrono::milliseconds progressInterval;
    };

    /// `fileSystem` must live as long as the process, `observer` until leaveBehind() or the
    /// destruction of this object.
    static std::shared_ptr<ScanWork> create(FileSystem& fileSystem, ScanObserver& observer,
                                            Settings settings);
    ScanWork(const ScanWork&) = delete;
    ScanWork& operator=(const ScanWork&) = delete;
    ~ScanWork();

    /// Sets what to scan. Call at most once, before collect().
    void setInputs(std::vector<LocationRow> rows, ExceptionFilter exceptions, ScanFilter filter);
    /// The same for listed files.
    void setInputs(std::shared_ptr<ListedFiles> files, ExceptionFilter exceptions);
    /// Uses the memory of earlier scans in `folder`. Call before collect(); `now` is the time at
    /// which the scan starts.
    void useMemory(std::string folder, Timestamp now);
    [[nodiscard]] bool usesMemory() const { return recollection_.has_value(); }
    /// Stores what the comparison has found out, if there is a memory. After endWorkers(), if it
    /// returned true. Blocks until it is on the disk, and tells this observer: that of the scan may
    /// hear nothing any more.
    void storeMemory(ScanObserver& observer);
    /// After storeMemory(), or collect() if that is not called.
    [[nodiscard]] MemoryReport memoryReport() const;
    /// Walks the checked folders among the rows and takes the given files, or looks for the listed
    /// files. Call at most once, on a thread that may be left behind.
    void collect();
    /// Blocks until collect() has ended. Returns false if it has not after `patience`.
    [[nodiscard]] bool waitForCollection(std::chrono::milliseconds patience);
    /// After the collection only.
    [[nodiscard]] Collector::Outcome outcome() const { return outcome_; }
    [[nodiscard]] const std::vector<UnreadableLocation>& unreadableLocations() const {
        return unreadableLocations_;
    }
    [[nodiscard]] CategoryLists& lists() { return lists_; }

    /// To be called before the first compare(), and after the last if endWorkers() returned true.
    void prepareComparison();
    void endComparison();
    /// Returns the result of a category. Any thread. Call at most once for each category. Returns
    /// soon after a stop, even if a worker is stuck.
    [[nodiscard]] std::shared_ptr<Modal> compare(Category category);

    /// Blocks until no worker is inside a task, and ends the workers. Leaves behind those that are
    /// after `patience`: they do not call the observer any more. Returns whether all have ended.
    bool endWorkers(std::chrono::milliseconds patience);
    /// Stops the scan and leaves behind the threads that still run.
    void leaveBehind();
    [[nodiscard]] bool isLeftBehind() const { return leftBehind_; }

    [[nodiscard]] ScanControl& control() { return control_; }
    [[nodiscard]] IoWatch& watch() { return watch_; }
    [[nodiscard]] WorkerPool& pool() { return pool_; }
    [[nodiscard]] ScanObserver& observer() { return observer_; }
    [[nodiscard]] UnreadableReport unreadable() const { return unreadable_.report(); }
    [[nodiscard]] std::uint64_t processed() const { return processed_; }
    [[nodiscard]] BytesCompared bytesCompared() const { return bytesCompared_.now(); }
    /// Bytes read so far by the comparison.
    [[nodiscard]] std::uint64_t bytesRead();

 private:
    /// Forwards all calls to the observer until it is cut off.
    class Link final : public ScanObserver {
     public:
        explicit Link(ScanObserver& to) : to_(&to) {}

        /// Blocks until current calls have returned. Nothing is forwarded afterwards.
        void cut();

        void collectionStarted() override { forward(&ScanObserver::collectionStarted); }
        void collecting(const std::string& path) override {
            forward(&ScanObserver::collecting, path);
        }
        void collectionPaused(bool paused) override {
            forward(&ScanObserver::collectionPaused, paused);
        }
        void nothingCollected() override { forward(&ScanObserver::nothingCollected); }
        void collectionFinished() override { forward(&ScanObserver::collectionFinished); }
        void comparisonStarted(std::uint64_t total) override {
            forward(&ScanObserver::comparisonStarted, total);
        }
        void processing(const std::string& path, std::uint64_t processed) override {
            forward(&ScanObserver::processing, path, processed);
        }
        void comparisonFinished(std::uint64_t processed) override {
            forward(&ScanObserver::comparisonFinished, processed);
        }
        void waitingFor(const std::string& path) override {
            forward(&ScanObserver::waitingFor, path);
        }
        void elapsed(const std::string& text) override { forward(&ScanObserver::elapsed, text); }

     private:
        template <class... Arguments>
        void forward(void (ScanObserver::*call)(Arguments...),
                     const std::type_identity_t<Arguments>&... arguments) {
            const std::shared_lock lock(mutex_);
            if (to_ != nullptr) {
                (to_->*call)(arguments...);
            }
        }

        std::shared_mutex mutex_;
        ScanObserver* to_;  // guarded by mutex_; nullptr when cut off
    };

    ScanWork(FileSystem& fileSystem, ScanObserver& observer, Settings settings);
    [[nodiscard]] Collector::Outcome collectInputs();
    void endCollection(Collector::Outcome outcome);

    ScanControl control_;
    IoWatch watch_;
    UnreadableLog unreadable_;
    UnsteadyVolumes unsteadyVolumes_;
    Link observer_;
    ProgressGate gate_;
    std::vector<LocationRow> rows_;
    std::shared_ptr<ListedFiles> listedFiles_;  // instead of rows
    ExceptionFilter exceptions_;
    ScanFilter filter_;
    std::optional<Recollection> recollection_;
    CategoryLists lists_;
    WorkerPool pool_;
    const ScanServices services_;
    std::optional<Collector> collector_;
    std::unique_ptr<DuplicateFinder> finder_;  // changed with mutex_ held
    std::vector<UnreadableLocation> unreadableLocations_;
    Collector::Outcome outcome_ = Collector::Outcome::stopped;
    std::atomic<std::uint64_t> processed_{0};
    ComparedBytes bytesCompared_{allCategories.size()};
    std::atomic<bool> leftBehind_{false};

    std::mutex mutex_;
    std::condition_variable changed_;
    bool collected_ = false;       // guarded by mutex_
    std::uint64_t bytesRead_ = 0;  // guarded by mutex_; when the finder is gone
};

}  // namespace tarvin
