#pragma once

#include "controller/alerts.h"
#include "controller/deletion_task.h"
#include "controller/desktop.h"
#include "controller/exception_list_task.h"
#include "controller/exceptions_task.h"
#include "controller/export_task.h"
#include "controller/file_actions.h"
#include "controller/file_panels.h"
#include "controller/help.h"
#include "controller/information_window.h"
#include "controller/locations.h"
#include "controller/mark_by_rule_task.h"
#include "controller/marking_task.h"
#include "controller/not_read_list.h"
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
#include "interface/loading_overlay.h"
#include "interface/main_window.h"
#include "platform/platform.h"

#include <QObject>
#include <QSettings>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// Owns the window, the shared state and one object for each task. Handles start-up, shutdown and
/// changes of screen. One instance per process. Main thread only.
class AppDelegate final : public QObject {
    Q_OBJECT

 public:
    /// The dependencies, which must outlive this object. For null `alerts` and `panels` it makes
    /// its own.
    struct Surroundings {
        Platform& platform;
        Desktop& desktop;
        QSettings& settings;
        Alerts* alerts = nullptr;
        FilePanels* panels = nullptr;
        std::function<void()> terminate{};  ///< ends the program asynchronously
        QString version{};
        QString urls{};                            ///< path of Urls.plist; may be empty
        QString guide{};                           ///< path of the user guide; may be empty
        QString previewProgram{};                  ///< path of the preview program
        QString updater{};                         ///< path of the updater; may be empty
        UrlReader readUrl{};                       ///< for updates; may be empty
        FileCalls& fileCalls = systemFileCalls();  ///< for exported files
    };

    explicit AppDelegate(Surroundings surroundings);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;
    ~AppDelegate() override;

    /// Call when the controls exist. Sets their images and, the first time, initialises the rest.
    void awakeFromNib();
    void initializeArrays();
    /// Shows the window. With `folders`, absolute paths, it opens the location list with them
    /// checked. An instance that exits in favour of another shows no window and passes its folders
    /// on.
    void applicationDidFinishLaunching(const std::vector<std::string>& folders = {});

    /// Drops the result and the chosen locations.
    void homeCleanup();
    void buttonHomeExactPageClicked();
    void buttonHomePageClicked();
    /// Nothing calls it: there is no screen for similar images.
    void buttonHomeSimilarPageClicked() { goHome(); }

    /// Returns whether the window may close. During a scan it returns false, pauses the scan and
    /// shows a notice.
    bool windowShouldClose();
    void runningAlertOK();
    void windowWillClose() const { terminate(); }
    /// Does nothing: persistent data is stored whenever it changes.
    void applicationWillTerminate() const {}

    /// Covers the result until updateProgress(). Nothing calls it: ResultViews uses the overlay
    /// directly.
    void showLoading() const { window_.loading().show(); }
    void updateProgress() const { window_.loading().hide(); }
    /// Shows and hides the panel of a long task. Nothing calls them.
    void startAnimation() const;
    void stopAnimation() const { window_.progressWindow->hide(); }

    /// Opens the folders of QEvent::FileOpen, which some desktops send to a running program.
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
    [[nodiscard]] MarkByRuleTask& markByRule() { return *markByRule_; }
    [[nodiscard]] ExceptionsTask& exceptions() { return *exceptions_; }
    [[nodiscard]] ExceptionListTask& exceptionList() { return *exceptionList_; }
    [[nodiscard]] DeletionTask& deletion() { return *deletion_; }
    [[nodiscard]] Preview& preview() { return *preview_; }
    [[nodiscard]] PutBackTask& putBack() { return *putBack_; }
    [[nodiscard]] ExportTask& exporting() { return *export_; }

 Q_SIGNALS:
    /// Calls updateProgress(). Nothing emits it.
    void notif();
    /// A right click in the result; calls ResultViews::rightClicked(). Nothing emits it.
    void rightClicked();

 private:
    Q_SLOT void terminate() const { surroundings_.terminate(); }
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
    void rememberChoice(QAction* item, const char* key);
    void showDuplicateScanResult();

    Surroundings surroundings_;
    std::unique_ptr<SingleInstance>
        singleInstance_;  // joins the other instances before the window is created
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
    std::unique_ptr<MarkByRuleTask> markByRule_;
    std::unique_ptr<Preview> preview_;
    std::unique_ptr<ResultViews> views_;
    std::unique_ptr<ExceptionsTask> exceptions_;
    std::unique_ptr<FileActions> fileActions_;
    std::unique_ptr<ExceptionListTask> exceptionList_;
    std::unique_ptr<DeletionTask> deletion_;  // destroyed before what it uses
    std::unique_ptr<PutBackTask> putBack_;    // the same
    std::unique_ptr<NotReadList> notRead_;
    std::unique_ptr<ExportTask> export_;  // the same
    std::unique_ptr<RecoveryTask> recovery_;
    Alerts::Number refusal_ = 0;  // the open notice that refuses folders; 0 if none
    std::int32_t homeImageCounter_ = 1;
};

}  // namespace tarvin
