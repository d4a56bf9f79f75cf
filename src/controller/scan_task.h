#pragma once

#include "controller/alerts.h"
#include "controller/locations.h"
#include "controller/progress_details.h"
#include "controller/remembered_scans.h"
#include "controller/scan_messenger.h"
#include "controller/session.h"
#include "scan/scan_run.h"

#include <QObject>
#include <QTimer>
#include <string>

namespace tarvin {

class MainWindow;
class ProgressScreen;

/// The settings keys of "Skip Hidden Files and Folders", "Remember Scans" and "Scan in the
/// Background": truth values, false if missing.
inline constexpr const char* skipHiddenKey = "SkipHiddenFiles";
inline constexpr const char* rememberScansKey = "RememberScans";
inline constexpr const char* backgroundKey = "ScanInTheBackground";

/// Runs a scan: start, progress screen, pause, resume and stop. Holds the result until
/// homeCleanup(). Owned by AppDelegate. Main thread only.
class ScanTask final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    ScanTask(Session& session, MainWindow& window, Alerts& alerts, Locations& locations);

    void buttonFindDuplicatesExactClicked();
    /// Pauses or resumes, as the title of the button says.
    void pause();
    void stop();
    void stopYesClicked();
    void stopNOClicked();
    /// Shows the elapsed time from a text that ends in it, such as "Elapsed Time: 00:01:02".
    void updateTextField(const std::string& time) const;

    // Closing the window during a scan pauses it until the notice is closed, and until an open stop
    // question is answered.

    void waitForAnswer();
    void goOn();

    /// The notice of a scan that has collected no file. If something could not be read, it has a
    /// second button, which leads to that.
    void showNoDuplicates();

    /// Drops the result and resets flags and controls. Stops a running scan and waits for it.
    void homeCleanup();
    /// Resets only the controls.
    void resetControls();

    [[nodiscard]] bool scanning() const { return scanning_; }
    [[nodiscard]] ScanRun& run() { return run_; }
    /// How often the screen was updated since the start of the program.
    [[nodiscard]] std::uint64_t redraws() const { return redraws_; }

 Q_SIGNALS:
    /// The collection was stopped: everything but the screen must be reset.
    void collectionStopped();
    /// No file was collected, and the user has closed the notice.
    void endedWithoutFiles();
    /// No file was collected, and the user wants to see what could not be read. Ends with
    /// showNoDuplicates().
    void notReadRequested();
    /// The result is available, possibly incomplete after a stop.
    void finished();

 private:
    void connectControls();
    void showStart();
    /// Without showing it: see showDetails().
    void setPaused(bool pauses);
    void showProgress();
    void showDetails() const;
    [[nodiscard]] QString textOfCurrentFile() const;
    void comparisonBegins(quint64 total) const;
    void comparisonIsOver(quint64 processed);
    void foundNoFiles();
    void setPauseTitle(const QString& title) const;
    void hideNotices() const;

    Session& session_;
    MainWindow& window_;
    ProgressScreen& screen_;
    Alerts& alerts_;
    Locations& locations_;
    RememberedScans remembered_;
    bool scanning_ = false;
    ScanMessenger messenger_;
    Progress progress_;  // as read last
    ProgressDetails details_;
    QTimer redraw_;
    std::uint64_t redraws_ = 0;
    ScanRun run_;  // last: ends before the objects that it notifies
};

}  // namespace tarvin
