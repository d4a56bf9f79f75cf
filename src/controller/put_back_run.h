#pragma once

#include "clean/put_back.h"
#include "controller/file_reasons.h"
#include "controller/put_back_list.h"
#include "controller/work_thread.h"
#include "platform/platform.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

namespace tarvin {

/// The work of putting the last clean-up back, on threads of its own: first to find out what would
/// become of each file, then to do it. Between the start of either and the call of its `over` only
/// stop(), done() and takeUnchecked() may be called, on any thread.
class PutBackRun final {
 public:
    /// `platform` outlives it. `totals` is a copy, which the threads change.
    PutBackRun(Platform& platform, DataFile totals);
    PutBackRun(const PutBackRun&) = delete;
    PutBackRun& operator=(const PutBackRun&) = delete;
    /// Stops what runs behind the file in hand, and waits for it.
    ~PutBackRun();

    /// `listed` is called on the other thread whenever takeUnchecked() has something new: before
    /// files are looked at, which takes as long as their drives do. `over` is called there as the
    /// last. Once.
    void examine(std::function<void()> listed, std::function<void()> over);
    /// The same, after an examination that has found a clean-up.
    void putBack(std::function<void()> over);

    void stop() { stopped_ = true; }
    /// How many files have come back.
    [[nodiscard]] std::uint64_t done() const { return done_; }
    /// The clean-up whose files are about to be looked at, once.
    [[nodiscard]] std::optional<UncheckedCleanUp> takeUnchecked();
    /// Waits until nothing runs.
    void wait() { thread_.wait(); }

    // After examine().

    /// What there is to put back; none if nothing, or after a failure.
    [[nodiscard]] const std::optional<CleanUpSummary>& cleanUp() const { return cleanUp_; }
    [[nodiscard]] NothingToPutBack nothing() const { return nothing_; }
    [[nodiscard]] const PutBackOutlook& outlook() const { return outlook_; }

    // After putBack().

    [[nodiscard]] std::uint64_t bytesDone() const { return bytesDone_; }
    /// Files that did not come back, all and those that a list shows.
    [[nodiscard]] std::uint64_t failed() const { return failed_; }
    [[nodiscard]] const std::vector<PutBackFile>& failures() const { return failures_; }

    /// What kept either from being done, or from being written down.
    [[nodiscard]] const std::optional<StoreError>& failure() const { return failure_; }
    [[nodiscard]] const DataFile& totals() const { return totals_; }

 private:
    void findCleanUp(const std::function<void()>& listed);
    void showUnchecked(UncheckedCleanUp cleanUp, const std::function<void()>& listed);
    void restoreFiles();
    void count(const PutBackFile& file);

    Platform& platform_;
    std::atomic<bool> stopped_{false};
    std::atomic<std::uint64_t> done_{0};
    std::mutex mutex_;
    std::optional<UncheckedCleanUp> unchecked_;  // guarded by mutex_
    // All below is the thread's own while it runs.
    DataFile totals_;
    std::unique_ptr<PutBack> engine_;
    std::optional<CleanUpSummary> cleanUp_;
    NothingToPutBack nothing_ = NothingToPutBack::neverCleaned;
    PutBackOutlook outlook_;
    std::uint64_t bytesDone_ = 0;
    std::uint64_t failed_ = 0;
    std::vector<PutBackFile> failures_;
    std::optional<StoreError> failure_;
    WorkThread thread_;
};

}  // namespace tarvin
