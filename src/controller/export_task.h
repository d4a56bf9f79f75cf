#pragma once

#include "controller/export_run.h"
#include "controller/file_panels.h"
#include "controller/information_window.h"
#include "controller/key_block.h"
#include "controller/results.h"
#include "platform/clock.h"
#include "report/result_writer.h"
#include "scan/scan_run.h"

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

class MainWindow;

/// "Export Results…": writes the list of the current tab with its marks to a file that the user
/// chooses. The file is written in the background, since a large list takes longer than a click may
/// and a drive may never respond; meanwhile the window is covered, so that the list does not
/// change, and after a moment a panel offers to cancel. A failure or a cancellation leaves no
/// partial file and does not change an existing one. Owned by AppDelegate. Main thread only.
class ExportTask final : public QObject {
    Q_OBJECT

 public:
    /// `scan` has the result in `results`. All arguments must outlive this object, and `calls` a
    /// thread that is left behind, too.
    ExportTask(const ScanRun& scan, const Results& results, MainWindow& window, FilePanels& panels,
               Clock& clock, InformationWindow& information, FileCalls& calls = systemFileCalls());
    ExportTask(const ExportTask&) = delete;
    ExportTask& operator=(const ExportTask&) = delete;
    /// Waits at most three seconds for each file: ~ExportRun().
    ~ExportTask() override;

    /// Asks for a file. Does nothing without sets or while a file is written.
    void open();
    [[nodiscard]] bool isWriting() const { return run_ != nullptr; }

 Q_SIGNALS:
    /// Emitted on the thread that writes, received on the main thread.
    void written();

 private:
    void write(const std::string& path, ResultFormat format);
    void showWriting();
    void cancel();
    void endWaiting();
    void showResult();

    const ScanRun& scan_;
    const Results& results_;
    MainWindow& window_;
    FilePanels& panels_;
    Clock& clock_;
    InformationWindow& information_;
    FileCalls& calls_;
    std::unique_ptr<KeyBlock> keys_;  // until a panel is shown
    QTimer delay_;                    // before the panel is shown
    bool isShown_ = false;            // the panel
    std::string path_;                // of the last file
    std::uint64_t sets_ = 0;          // in it
    std::unique_ptr<ExportRun> run_;
    std::vector<std::unique_ptr<ExportRun>> cancelled_;  // may still wait for their drives
};

}  // namespace tarvin
