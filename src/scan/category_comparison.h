#pragma once

#include "model/file_store.h"
#include "model/modal.h"
#include "scan/compared_bytes.h"
#include "scan/content_partition.h"
#include "scan/known_contents.h"
#include "scan/progress_gate.h"
#include "scan/read_ahead.h"
#include "scan/scan_control.h"
#include "scan/scan_observer.h"
#include "scan/size_classes.h"
#include "scan/worker_pool.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace tarvin {

/// Counts the files that the comparison has decided and reports them to the observer. Any thread.
class ComparisonProgress final {
 public:
    /// All references must outlive this object.
    ComparisonProgress(const ScanControl& control, ScanObserver& observer, ProgressGate& gate,
                       std::atomic<std::uint64_t>& processed)
        : control_(control), observer_(observer), gate_(gate), processed_(processed) {}

    void countOne() { processed_.fetch_add(1, std::memory_order_relaxed); }
    /// Reports the file if the gate is due and the scan is not paused. Returns whether it did.
    bool updateProgressBarWith(const File& file);
    /// Reports the file even if the gate is not due, unless the scan is paused.
    void reportNow(const File& file);

 private:
    const ScanControl& control_;
    ScanObserver& observer_;
    ProgressGate& gate_;
    std::atomic<std::uint64_t>& processed_;
};

/// The comparison of one category. Workers compare its size classes in the order in which the walk
/// through the list reaches them; the walk waits for a class when it needs it. After a stop the
/// walk takes the results so far and waits no longer.
class CategoryComparison final {
 public:
    struct Context {
        WorkerPool& pool;
        ScanControl& control;
        ContentPartition& partition;
        ComparisonProgress& progress;
        ComparedBytes& bytes;
        ReadAhead& readAhead;
    };

    /// `store` owns the files of `list`. The references must outlive the comparison and the tasks
    /// it has queued; see isLeft().
    CategoryComparison(Context context, std::vector<File*> list, FileStore& store);
    CategoryComparison(const CategoryComparison&) = delete;
    CategoryComparison& operator=(const CategoryComparison&) = delete;

    /// Returns the sets of the list. Call at most once.
    [[nodiscard]] std::shared_ptr<Modal> compare();
    /// Whether no worker will use this object any more. Any thread.
    [[nodiscard]] bool isLeft();
    /// Blocks until all queued tasks have ended. Returns false if they have not after `patience`.
    bool waitForBatches(std::chrono::milliseconds patience);
    /// The files that were not taken out of the list. After compare().
    [[nodiscard]] std::vector<File*> rest() const;

 private:
    class Verdict;

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
        // What earlier scans know of them; nullopt if this scan uses none.
        std::optional<KnownContents> known;
        std::vector<File*> filesToRead;  // with `known`

        [[nodiscard]] std::span<File* const> toRead() const { return known ? filesToRead : files; }
        /// The number of a file of toRead() in the class.
        [[nodiscard]] std::uint32_t numberOf(std::uint32_t read) const {
            return known ? known->toRead()[read] : read;
        }
    };

    void addBytesToCompare() const;
    void makeBatches();
    void submitAll();
    void submitBatches(std::size_t first, std::size_t end);
    void requestSweep(std::size_t first);
    void sweptUpTo(std::size_t first, std::size_t end);
    [[nodiscard]] bool isOnRotationalDisk() const;
    [[nodiscard]] std::size_t endOfRequest(std::size_t first) const;
    [[nodiscard]] std::uint64_t readAheadOf(std::size_t number) const;
    [[nodiscard]] std::vector<ReadAhead::Wanted> filesOfBatches(std::size_t first,
                                                                std::size_t end) const;
    [[nodiscard]] std::function<void()> begun(std::function<void()> task);
    void submit(std::function<void()> task);
    void taskEnded();
    void run(Batch& batch);
    void compareAll(const Batch& batch);
    [[nodiscard]] bool compareWhole(std::size_t number, Members& members,
                                    std::optional<ContentPartition::Workspace>& workspace);
    [[nodiscard]] bool isReadWhole(std::size_t number) const;
    void find(std::size_t number, Members& members) const;
    void chooseFiles(Members& members) const;
    void recall(Members& members);
    [[nodiscard]] bool mustReadAgain(Members& members);
    void note(const Members& members);
    [[nodiscard]] std::vector<FileGroup> keptGroups(const Members& members);
    void forget(const Members& members);
    void keepRead(const Members& members, const FileGroup& read);
    void keepKnown(const Members& members, FileGroup group);
    void keep(const std::vector<std::uint32_t>& members, const FileGroup& group);
    void keepState(File& file, const FileStamp& stamp);
    [[nodiscard]] bool countAll(const Members& members, bool reports);
    void count(std::uint32_t position, bool reports);
    void closeVerdicts();

    void walk(Modal& modal);
    [[nodiscard]] bool waitForClassOf(std::uint32_t pivot);
    void fileGroupOf(std::uint32_t pivot, Modal& modal);
    void fileWhatIsDecided(Modal& modal);
    void take(std::uint32_t position);

    const Context context_;
    const std::vector<File*> list_;
    FileStore& store_;
    const SizeClasses classes_;
    std::vector<std::unique_ptr<Batch>> batches_;
    std::vector<Batch*> batchOf_;  // by class
    // By position. Written with mutex_ held and before the batch is done.
    std::vector<std::uint32_t> nextEqual_;
    std::vector<std::atomic<bool>> counted_;  // by position
    std::vector<bool> taken_;                 // by position; the walk's own
    std::uint32_t currentPivot_;              // taken, but its set is not filed yet
    bool isReported_ = false;                 // the file that was taken last was reported
    std::atomic<bool> isWaiting_{false};      // the walk waits for a class
    std::mutex mutex_;
    std::condition_variable changed_;
    std::ptrdiff_t tasksLeft_ = 0;  // guarded by mutex_; not done yet
    bool closed_ = false;           // guarded by mutex_; no more groups are kept
};

}  // namespace tarvin
