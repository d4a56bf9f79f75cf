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

/// Puts the last clean-up back on a background thread: first examine() finds the expected outcome
/// of each file, then putBack() restores them. While either runs, until it calls `over`, only
/// stop(), done() and takeUnchecked() may be called; these on any thread. Otherwise main thread
/// only.
class PutBackRun final {
 public:
    /// `platform` must outlive this object. `totals` is a copy, which the thread changes.
    PutBackRun(Platform& platform, DataFile totals);
    PutBackRun(const PutBackRun&) = delete;
    PutBackRun& operator=(const PutBackRun&) = delete;
    /// Stops after the current file and waits for that.
    ~PutBackRun();

    /// Call once. Calls `listed` on the background thread whenever takeUnchecked() has a new
    /// clean-up, before its files are checked, which may block on slow drives; calls `over` there
    /// at the end.
    void examine(std::function<void()> listed, std::function<void()> over);
    /// Requires an examination that found a clean-up. Calls `over` on the background thread.
    void putBack(std::function<void()> over);

    void stop() { stopped_ = true; }
    /// Files put back so far.
    [[nodiscard]] std::uint64_t done() const { return done_; }
    /// The clean-up whose files are about to be checked; nullopt if it was taken already.
    [[nodiscard]] std::optional<UncheckedCleanUp> takeUnchecked();
    /// Blocks until nothing runs.
    void wait() { thread_.wait(); }

    // After examine().

    /// The clean-up to put back; nullopt if there is none or after a failure.
    [[nodiscard]] const std::optional<CleanUpSummary>& cleanUp() const { return cleanUp_; }
    [[nodiscard]] NothingToPutBack nothing() const { return nothing_; }
    [[nodiscard]] const PutBackForecast& forecast() const { return forecast_; }

    // After putBack().

    [[nodiscard]] std::uint64_t bytesDone() const { return bytesDone_; }

    // Files that were not put back: their number, and at most FileReasons::maxListed of them.

    [[nodiscard]] std::uint64_t failed() const { return failed_; }
    [[nodiscard]] const std::vector<PutBackFile>& failures() const { return failures_; }

    /// Why either could not be done or recorded.
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
    // Used only by the background thread while it runs.
    DataFile totals_;
    std::unique_ptr<PutBack> engine_;
    std::optional<CleanUpSummary> cleanUp_;
    NothingToPutBack nothing_ = NothingToPutBack::neverCleaned;
    PutBackForecast forecast_;
    std::uint64_t bytesDone_ = 0;
    std::uint64_t failed_ = 0;
    std::vector<PutBackFile> failures_;
    std::optional<StoreError> failure_;
    WorkThread thread_;
};

}  // namespace tarvin
