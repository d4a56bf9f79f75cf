#pragma once

#include "cli/scan_options.h"
#include "cli/scan_setup.h"
#include "platform/platform.h"
#include "report/scan_report.h"
#include "scan/exception_filter.h"
#include "scan/listed_files.h"
#include "scan/progress_mailbox.h"
#include "scan/scan_run.h"

#include <memory>

namespace tarvin {

/// The scan of a command: it scans the folders and files named by the options, shows progress on
/// standard error if requested, and reports what cannot be read: each given folder or file, the
/// first twenty folders and files inside, and the number of others. Main thread only, except
/// requestStop().
class FolderScan final {
 public:
    FolderScan(Platform& platform, const ScanOptions& options);

    /// Returns immediately. Call at most once.
    void start(ExceptionFilter exceptions);
    /// The same for listed files instead of the folders.
    void start(std::shared_ptr<ListedFiles> files, ExceptionFilter exceptions);
    /// Blocks until the scan has ended, showing progress; then prints the error messages.
    void wait();
    /// Blocks until what is to be remembered of the scan is stored, and reports if it cannot be.
    /// After wait().
    void finishRemembering();
    /// Ends the scan soon. Any thread.
    void requestStop() { run_.requestStop(); }

    /// Call these after wait(). The report shares the result.
    [[nodiscard]] ScanReport report() const;
    [[nodiscard]] const std::shared_ptr<Modal>& modal() const { return run_.result().modal; }
    /// The folders and files inside the given folders that could not be read.
    [[nodiscard]] const UnreadableReport& unreadable() const { return run_.result().unreadable; }
    /// Whether every folder and file could be read and memory sufficed.
    [[nodiscard]] bool hasReadAll() const;
    [[nodiscard]] bool ranOutOfMemory() const { return run_.result().ranOutOfMemory; }

 private:
    void prepareMemory();
    [[nodiscard]] bool showsProgress() const;
    [[nodiscard]] Progress progress() const;

    Platform& platform_;
    const ScanOptions& options_;
    ScanFolders folders_;
    ProgressMailbox mailbox_;
    ScanRun run_;
};

}  // namespace tarvin
