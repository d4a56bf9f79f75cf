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

/// Moves the marked files to the Trash: the run on a background thread, its panel with pause and
/// stop, and the report. A run begins by copying the rows of the list in view, which takes a moment
/// for millions of sets; from then on only its thread reads marks and files of the list. Owned by
/// AppDelegate. Main thread only.
///
/// A stop answered with "YES" also stops every later run of this process. The stop question is
/// withdrawn when its run ends. Each run begins unpaused, with both buttons of its panel enabled.
class DeletionTask final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    DeletionTask(Session& session, Results& results, MainWindow& window, Alerts& alerts,
                 InformationWindow& information);
    DeletionTask(const DeletionTask&) = delete;
    DeletionTask& operator=(const DeletionTask&) = delete;
    /// Stops the run after the current set, or at once if it is paused, and waits for it. Files
    /// that it has moved are counted in the totals.
    ~DeletionTask() override;

    /// Starts a run, or reports that nothing is marked.
    void deleteButtonExactPageClicked();
    void sendToRecycleClicked() { begin(true); }
    /// Pauses or resumes, as the title of the button says.
    void pauseDeletionProcess();
    /// Pauses the run and asks whether to stop it.
    void stopDeletionProcess();

    [[nodiscard]] bool isRunning() const { return run_ != nullptr; }

 Q_SIGNALS:
    // Emitted on the run's thread, received on the main thread.

    void rowsCopied();
    void walkFinished();

 private:
    class Run;

    void begin(bool unMarkAllEnabled);
    void moveFiles();
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
    DeletionControl control_;          // shared by all runs: one stop ends later ones too
    Alerts::Number stopQuestion_ = 0;  // 0 if none was asked
    QTimer redraw_;
    std::unique_ptr<Run> run_;
};

}  // namespace tarvin
