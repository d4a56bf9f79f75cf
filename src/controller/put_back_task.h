#pragma once

#include "controller/file_reasons.h"
#include "controller/information_window.h"
#include "controller/key_block.h"
#include "controller/put_back_list.h"
#include "controller/session.h"

#include <QObject>
#include <QTimer>
#include <memory>

namespace tarvin {

class DialogPanel;
class MainWindow;
class PutBackRun;

/// Puts the last clean-up back: the expected outcomes, the question, the run with Stop, and the
/// report. Owned by AppDelegate. Main thread only.
///
/// A stop takes effect after the current file. Files that were not put back stay in the Trash, and
/// the user can try again.
class PutBackTask final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    PutBackTask(Session& session, MainWindow& window, InformationWindow& information);
    PutBackTask(const PutBackTask&) = delete;
    PutBackTask& operator=(const PutBackTask&) = delete;
    ~PutBackTask() override;

    /// Shows which files can be put back, or why none can. Does nothing while this is running.
    void open();

    // The buttons of the panels.

    void cancel();
    void putBack();
    /// Stops the run after the current file, without a question.
    void stop();

 Q_SIGNALS:
    /// The totals have changed.
    void totalsChanged();
    // Emitted on the run's thread, received on the main thread.
    void listed();
    void examined();
    void finished();

 private:
    enum class State : std::uint8_t { idle, examining, cancelled, asking, running, reporting };

    void showSlowStep();
    void showExamining();
    void showListed();
    void showExamined();
    void showQuestion(const CleanUpSummary& cleanUp);
    void showProgress();
    void drawProgress();
    void showResult();
    void showReport(DialogPanel& before);
    void closeReport();
    void endRun();
    void inform(DialogPanel& before, const QString& firstLine, const QString& secondLine,
                const QString& thirdLine = {});
    [[nodiscard]] QString failureLine() const;

    Session& session_;
    MainWindow& window_;
    InformationWindow& information_;
    PutBackList files_;
    FileReasons failures_;
    std::unique_ptr<KeyBlock> keys_;  // until a panel takes the keyboard
    QTimer delay_;                    // before a panel is shown for a step that takes long
    QTimer redraw_;
    State state_ = State::idle;
    std::unique_ptr<PutBackRun> run_;
};

}  // namespace tarvin
