#pragma once

#include "controller/work_thread.h"
#include "platform/atomic_file.h"
#include "report/result_writer.h"
#include "report/scan_report.h"

#include <functional>
#include <memory>
#include <string>

namespace tarvin {

/// Writes one report to a regular file (OutputFile::openRegular()) on two threads: one makes the
/// text, the other writes it, at most 4 MiB behind. Only the second waits for the drive, and it
/// knows nothing of the report: it can be left behind. Main thread only.
class ExportRun final {
 public:
    struct Job {
        std::string path;  ///< absolute, native bytes
        ResultFormat format = ResultFormat::csv;
        ScanReport report;  ///< no thread may change its sets until this object is destroyed
    };

    /// Starts. `over` is called once on another thread, unless the run is cancelled or destroyed
    /// before. `calls` must outlive a thread that is left behind, so normally the process.
    ExportRun(Job job, FileCalls& calls, std::function<void()> over);
    ExportRun(const ExportRun&) = delete;
    ExportRun& operator=(const ExportRun&) = delete;
    /// Waits at most two seconds for the file if the run was not cancelled; then cancels it, and
    /// waits at most one second until the temporary file is removed. A thread that blocks longer is
    /// left behind (leftThreads).
    ~ExportRun();

    /// Gives up. Afterwards no thread reads the report, which takes a pass over it, and the target
    /// stays as it is, unless it is being replaced at this moment. The temporary file is removed as
    /// soon as the drive responds.
    void cancel();

    /// Whether the file was written, or not.
    [[nodiscard]] bool isOver() const;
    /// Why the file was not written; empty if it was. Only when it is over.
    [[nodiscard]] const std::string& failure() const;

 private:
    class Calls;
    class Shared;

    const Job job_;
    const std::shared_ptr<Shared> shared_;  // with the thread that writes
    bool cancelled_ = false;
    WorkThread textThread_;  // destroyed before what it uses
};

}  // namespace tarvin
