#pragma once

#include "controller/alerts.h"
#include "controller/information_window.h"
#include "controller/kept_list.h"
#include "controller/results.h"
#include "controller/session.h"
#include "model/deletion_walk.h"

#include <QObject>
#include <QTimer>
#include <atomic>
#include <memory>

namespace tarvin {

class MainWindow;

/// The task of moving the marked files to the Trash: the run on a thread of its own, its panel with
/// pause and stop, and the report. While it runs nobody else reads marks or files of the list in
/// view. Owned by AppDelegate; main thread.
///
/// A stop that was answered with "YES" ends every later run, too, until the program ends. The
/// question is withdrawn with its run: the report that follows leaves nothing to stop. For the same
/// reason no run begins paused, and each begins with both buttons of its panel enabled.
class DeletionTask final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it.
    DeletionTask(Session& session, Results& results, MainWindow& window, Alerts& alerts,
                 InformationWindow& information);
    DeletionTask(const DeletionTask&) = delete;
    DeletionTask& operator=(const DeletionTask&) = delete;
    /// A run is stopped behind the set in hand, which a paused one has none of; what it has moved
    /// is counted.
    ~DeletionTask() override;

    /// Runs, or says that nothing is marked.
    void deleteButtonExactPageClicked();
    void sendToRecycleClicked();
    /// Pauses, or goes on, whichever the title of the button says.
    void pauseDeletionProcess();
    /// Asks whether to stop; the run waits for the answer.
    void stopDeletionProcess();

    [[nodiscard]] bool isRunning() const { return run_ != nullptr; }

 Q_SIGNALS:
    /// From the run's thread to this one.
    void walkFinished();

 private:
    class Run;

    void begin(bool unMarkAllEnabled);
    void setDeletionView();
    void showDeletion();
    void removeDeletionView();
    void setPauseTitle(const QString& title) const;
    void showProgress();
    void stopAnswered(int button);
    void finish();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    Alerts& alerts_;
    InformationWindow& information_;
    KeptList kept_;
    DeletionControl control_;          // of all runs: one stop ends the later ones, too
    Alerts::Number stopQuestion_ = 0;  // asked last; 0 for none
    QTimer redraw_;
    std::unique_ptr<Run> run_;
};

}  // namespace tarvin
