#pragma once

#include "controller/alerts.h"
#include "controller/deletion_task.h"
#include "controller/desktop.h"
#include "controller/exceptions_task.h"
#include "controller/file_panels.h"
#include "controller/help.h"
#include "controller/information_window.h"
#include "controller/locations.h"
#include "controller/marking_task.h"
#include "controller/preview.h"
#include "controller/put_back_task.h"
#include "controller/recovery_task.h"
#include "controller/result_views.h"
#include "controller/results.h"
#include "controller/scan_task.h"
#include "controller/session.h"
#include "controller/single_instance.h"
#include "controller/update_check.h"
#include "controller/url_reader.h"
#include "interface/main_window.h"
#include "platform/platform.h"

#include <QObject>
#include <QSettings>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// The one owner: of the window, of what the tasks share, and of one object for each task. Does the
/// start, the end and the way from screen to screen itself. One for the process; main thread.
class AppDelegate final : public QObject {
    Q_OBJECT

 public:
    /// What the delegate asks of the outside. Everything outlives it; the seams that are null are
    /// the product's own.
    struct Surroundings {
        Platform& platform;
        Desktop& desktop;
        QSettings& settings;
        Alerts* alerts = nullptr;
        FilePanels* panels = nullptr;
        std::function<void()> terminate{};  ///< ends the program, soon
        QString version{};
        QString urls{};                ///< path of the list of addresses; may be empty
        QString guide{};               ///< path of the user guide; may be empty
        QString previewProgram{};      ///< path of the program that makes previews
        QString updater{};             ///< path of the program that fetches updates; may be empty
        UrlReader readUrl{};  ///< for updates; may be empty
    };

    explicit AppDelegate(Surroundings surroundings);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;
    ~AppDelegate() override;

    /// The interface is there: its pictures and, the first time, everything that is done once.
    void awakeFromNib();
    void initializeArrays();
    /// Shows the window. `folders`, absolute paths, open the location list with them checked. A
    /// copy that gives way to another shows nothing: it hands its folders over and ends.
    void applicationDidFinishLaunching(const std::vector<std::string>& folders = {});

    /// Forgets what a scan or a choice of locations has left.
    void homeCleanup();
    void buttonHomeExactPageClicked();
    void buttonHomePageClicked();
    /// Nothing calls it: similar images have no screen.
    void buttonHomeSimilarPageClicked();

    /// Whether the window may close. A scan is paused for the question instead.
    bool windowShouldClose();
    void runningAlertOK();
    void windowWillClose() const;
    /// Does nothing: what outlives the program is stored when it changes.
    void applicationWillTerminate() const {}

    /// Covers the result, until updateProgress() uncovers it. Nothing calls it: the views of a
    /// result have the overlay itself.
    void showLoading() const;
    void updateProgress() const;
    /// Show and hide the panel of a long task. Nothing calls them.
    void startAnimation() const;
    void stopAnimation() const;

    /// Takes the folders that a desktop asks the running program to open, as some do by an event.
    bool eventFilter(QObject* watched, QEvent* event) override;

    [[nodiscard]] MainWindow& window() { return window_; }
    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] Locations& locations() { return *locations_; }
    [[nodiscard]] ScanTask& scan() { return *scan_; }
    [[nodiscard]] Help& help() { return *help_; }
    [[nodiscard]] UpdateCheck& updates() { return *updates_; }
    [[nodiscard]] Results& results() { return *results_; }
    [[nodiscard]] ResultViews& views() { return *views_; }
    [[nodiscard]] MarkingTask& marking() { return *marking_; }
    [[nodiscard]] ExceptionsTask& exceptions() { return *exceptions_; }
    [[nodiscard]] DeletionTask& deletion() { return *deletion_; }
    [[nodiscard]] Preview& preview() { return *preview_; }
    [[nodiscard]] PutBackTask& putBack() { return *putBack_; }

 Q_SIGNALS:
    /// Uncovers the result as updateProgress() does. Nothing emits it.
    void notif();
    /// A right click in the result, for ResultViews::rightClicked(). Nothing emits it.
    void rightClicked();

 private:
    Q_SLOT void terminate() const;
    void showHomeImage();
    void setUpButtons() const;
    void connectControls();
    void connectRequests();
    void openFolders(const std::vector<std::string>& folders);
    void showCleanHistory();
    void recoverCleanUps();
    void comeToFront();
    void goHome();
    void makeResultTasks();
    void showDuplicateScanResult();

    Surroundings surroundings_;
    std::unique_ptr<SingleInstance>
        singleInstance_;  // before the window, which waits for what it says
    MainWindow window_;
    Session session_;
    std::unique_ptr<Alerts> ownAlerts_;
    std::unique_ptr<FilePanels> ownPanels_;
    std::unique_ptr<Locations> locations_;
    std::unique_ptr<ScanTask> scan_;
    std::unique_ptr<Help> help_;
    std::unique_ptr<UpdateCheck> updates_;
    InformationWindow information_{window_};
    std::unique_ptr<Results> results_;
    std::unique_ptr<MarkingTask> marking_;
    std::unique_ptr<Preview> preview_;
    std::unique_ptr<ResultViews> views_;
    std::unique_ptr<ExceptionsTask> exceptions_;
    std::unique_ptr<DeletionTask> deletion_;  // ends before what it uses
    std::unique_ptr<PutBackTask> putBack_;    // the same
    std::unique_ptr<RecoveryTask> recovery_;
    Alerts::Number refusal_ = 0;  // the open notice that other folders have to wait
    std::int32_t homeImageCounter_ = 1;
};

}  // namespace tarvin
