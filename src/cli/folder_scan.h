#pragma once

#include "cli/scan_inputs.h"
#include "cli/scan_options.h"
#include "cli/scan_report.h"
#include "platform/platform.h"
#include "scan/exception_filter.h"
#include "scan/progress_mailbox.h"
#include "scan/scan_run.h"

#include <memory>

namespace tarvin {

/// The scan of a command: the folders its options name, progress on standard error if that is
/// wanted, and a complaint about what cannot be read: each given folder, the first twenty folders
/// and files inside, and how many more. On the main thread, but for requestStop().
class FolderScan final {
 public:
    FolderScan(Platform& platform, const ScanOptions& options);

    /// Returns at once. Once only.
    void start(ExceptionFilter exceptions);
    /// Shows the progress until the scan is over, then complains.
    void wait();
    /// Ends the scan soon. Any thread.
    void requestStop() { run_.requestStop(); }

    /// These after wait(). The report shares the result.
    [[nodiscard]] ScanReport report() const;
    [[nodiscard]] const std::shared_ptr<Modal>& modal() const { return run_.result().modal; }
    /// Whether every folder and file could be read, and there was memory for the whole scan.
    [[nodiscard]] bool hasReadAll() const;
    [[nodiscard]] bool ranOutOfMemory() const { return run_.result().ranOutOfMemory; }

 private:
    [[nodiscard]] bool showsProgress() const;
    [[nodiscard]] Progress progress() const;

    const ScanOptions& options_;
    ScanFolders folders_;
    ProgressMailbox mailbox_;
    ScanRun run_;
};

}  // namespace tarvin
