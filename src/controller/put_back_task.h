#pragma once

#include "controller/file_reasons.h"
#include "controller/information_window.h"
#include "controller/put_back_list.h"
#include "controller/session.h"

#include <QObject>
#include <QTimer>
#include <memory>

namespace tarvin {

class DialogPanel;
class MainWindow;
class PutBackRun;

/// The task of putting the last clean-up back: what would become of each file, the question, the
/// run with Stop, and the report. Owned by AppDelegate; main thread.
///
/// A run that is stopped has finished the file in hand. What did not come back stays in the Trash
/// for another try.
class PutBackTask final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it.
    PutBackTask(Session& session, MainWindow& window, InformationWindow& information);
    PutBackTask(const PutBackTask&) = delete;
    PutBackTask& operator=(const PutBackTask&) = delete;
    ~PutBackTask() override;

    /// Shows what would come back, or why nothing does. Nothing happens while it is under way.
    void open();
    /// The answers of the panel.
    void cancel();
    void putBack();
    /// Ends the run behind the file in hand, without a question.
    void stop();

 Q_SIGNALS:
    /// The totals are other ones now.
    void totalsChanged();
    // From the run's thread to this one.
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
    QTimer delay_;  // until the person is shown that it takes a while
    QTimer redraw_;
    State state_ = State::idle;
    std::unique_ptr<PutBackRun> run_;
};

}  // namespace tarvin
