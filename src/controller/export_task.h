#pragma once

#include "controller/file_panels.h"
#include "controller/information_window.h"
#include "controller/results.h"
#include "controller/work_thread.h"
#include "platform/clock.h"
#include "platform/result.h"
#include "report/result_writer.h"
#include "report/scan_report.h"
#include "scan/scan_run.h"

#include <QObject>
#include <optional>
#include <string>

namespace tarvin {

class MainWindow;

/// "Export Results…": writes the list of the current tab with its marks to a file that the user
/// chooses. The file is written on a thread, since a large list takes longer than a click may;
/// meanwhile the window is covered, so that the list does not change. A failure leaves no partial
/// file and does not change an existing one. Owned by AppDelegate. Main thread only.
class ExportTask final : public QObject {
    Q_OBJECT

 public:
    /// `scan` has the result in `results`. All arguments must outlive this object.
    ExportTask(const ScanRun& scan, const Results& results, MainWindow& window, FilePanels& panels,
               Clock& clock, InformationWindow& information);
    ExportTask(const ExportTask&) = delete;
    ExportTask& operator=(const ExportTask&) = delete;
    /// Waits for the file.
    ~ExportTask() override;

    /// Asks for a file. Does nothing without sets or while a file is written.
    void open();
    [[nodiscard]] bool isWriting() const { return isWriting_; }

    /// Swallows keys while a file is written.
    bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    /// Emitted on the thread that writes, received on the main thread.
    void written();

 private:
    void write(const std::string& path, ResultFormat format);
    void showResult();

    const ScanRun& scan_;
    const Results& results_;
    MainWindow& window_;
    FilePanels& panels_;
    Clock& clock_;
    InformationWindow& information_;
    bool isWriting_ = false;
    std::string path_;
    ScanReport report_;                   // while it is written, used by the thread only
    std::optional<SystemError> failure_;  // the same
    WorkThread thread_;                   // destroyed before what it uses
};

}  // namespace tarvin
