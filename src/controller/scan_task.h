#pragma once

#include "controller/alerts.h"
#include "controller/locations.h"
#include "controller/scan_messenger.h"
#include "controller/session.h"
#include "scan/scan_run.h"

#include <QObject>
#include <QTimer>
#include <string>

namespace tarvin {

class MainWindow;
class ProgressScreen;

/// The task of one scan: starting it, showing how far it is, pause, resume and stop. The result is
/// the scan's until homeCleanup(). Owned by AppDelegate; main thread.
class ScanTask final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it.
    ScanTask(Session& session, MainWindow& window, Alerts& alerts, Locations& locations);

    void buttonFindDuplicatesExactClicked();
    /// Pauses, or goes on, whichever the title of the button says.
    void pause();
    void stop();
    void stopYesClicked();
    void stopNOClicked();
    /// Shows the elapsed time of the scan, "00:00:00".
    void updateTextField(const std::string& time) const;

    /// A window that is closed during a scan makes it wait, until its notice is answered. Not
    /// before a question that is open at that time is answered, too.
    void waitForAnswer();
    void goOn();

    /// Forgets the result and makes flags and controls what they were before the first scan. A scan
    /// that still runs is stopped and waited for.
    void homeCleanup();
    /// The controls alone.
    void resetControls();

    [[nodiscard]] bool scanning() const { return scanning_; }
    [[nodiscard]] ScanRun& run() { return run_; }
    /// How often the screen was brought up to date since the start of the program.
    [[nodiscard]] std::uint64_t redraws() const { return redraws_; }

 Q_SIGNALS:
    /// The collection was stopped: everything is to be as before the first scan, but for the
    /// screen.
    void collectionStopped();
    /// No file was collected, and the person knows.
    void endedWithoutFiles();
    /// The result is there, or what a stop has left of it.
    void finished();

 private:
    void connectControls();
    void showStart();
    void setPaused(bool pauses);
    void showProgress();
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
    bool scanning_ = false;
    ScanMessenger messenger_;
    Progress progress_;  // as it was seen last
    QTimer redraw_;
    std::uint64_t redraws_ = 0;
    ScanRun run_;  // the last: it ends before what it speaks to
};

}  // namespace tarvin
