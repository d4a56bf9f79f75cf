#include "controller/deletion_task.h"

#include "clean/clean_up_run.h"
#include "clean/recovery.h"
#include "controller/home_image.h"
#include "controller/own_reasons.h"
#include "controller/result_texts.h"
#include "controller/scan_screen_texts.h"
#include "controller/work_thread.h"
#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "controls/progress_bar.h"
#include "interface/home_screen.h"
#include "interface/main_window.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"

#include <QLabel>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

constexpr QPoint previewOrigin{205, 114};
constexpr int yes = 0;

}  // namespace

/// One run of a deletion. Main thread, except where a method says otherwise.
class DeletionTask::Run final {
 public:
    Run(std::shared_ptr<Modal> modal, Session& session, DeletionControl& control)
        : session_(session), control_(control), modal_(std::move(modal)) {}
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() { wait(); }

    /// Copies the rows of the list, which no thread may change meanwhile; then calls `over`. Both
    /// on the run's thread.
    void copyRows(std::function<void()> over) {
        thread_.start([this] { rows_ = std::make_unique<TreeSnapshot>(*modal_); }, std::move(over));
    }

    /// The rows, once they are copied.
    [[nodiscard]] std::unique_ptr<const TreeSnapshot> takeRows() {
        thread_.wait();
        return std::move(rows_);
    }

    /// Calls `over` on the run's thread after the totals have been stored.
    void start(std::function<void()> over) {
        thread_.start([this] { work(); }, std::move(over));
    }

    void wait() { thread_.wait(); }

    [[nodiscard]] std::uint64_t indicator() const { return indicator_; }

    // Valid after wait().

    /// Why the run could not begin.
    [[nodiscard]] const std::optional<StoreError>& refusal() const { return refusal_; }
    /// The path that a damaged journal was moved to.
    [[nodiscard]] const std::optional<std::string>& aside() const { return aside_; }
    [[nodiscard]] const RemovalResult& moved() const { return moved_; }
    [[nodiscard]] const KeptFiles& kept() const { return kept_; }

 private:
    /// The run's thread. Opening blocks on other clean-ups that use the journal, and on drives.
    void work() {
        CleanUp::Settings settings;
        settings.wholeSets = CleanUp::WholeSets::goIfMarked;
        settings.report = [this](const File& file, const MoveResult& result) {
            kept_.add(file, result);
        };
        settings.endsWaiting = [this] { return control_.stopDeletion(); };
        const StoredTotals before = session_.data.shown();
        auto opened = CleanUpRun::open(session_.platform, session_.data, std::move(settings));
        if (auto* error = std::get_if<StoreError>(&opened)) {
            aside_ = moveJournalAside(session_.platform, *error);
            refusal_ = std::move(*error);
            return;
        }
        auto run = std::get<std::unique_ptr<CleanUpRun>>(std::move(opened));
        CleanUpRun& cleanUp = *run;
        DeletionWalk walk(*modal_, cleanUp.cleanUp(), control_,
                          [this](const Set& set, const DeletionWalk::Progress& progress) {
                              lastBegun_ = &set;
                              indicator_ = progress.indicator;
                          });
        moved_ = walk.run();
        indicator_ = walk.progress().indicator;
        addRest(cleanUp.cleanUp().failure());
        session_.finishCleanUp(cleanUp, before, moved_);
        if (const std::optional<StoreError> failure = cleanUp.cleanUp().failure()) {
            run.reset();
            aside_ = moveJournalAside(session_.platform, *failure);
        }
    }

    /// Adds the files that were not reached because of a stop or a journal failure.
    void addRest(const std::optional<StoreError>& failure) {
        if (control_.stopDeletion()) {
            kept_.addRest(*modal_, lastBegun_, {MoveOutcome::stopped, {}});
        } else if (failure) {
            kept_.addRest(*modal_, lastBegun_, {MoveOutcome::refused, failure->text});
        }
    }

    Session& session_;
    DeletionControl& control_;
    const std::shared_ptr<Modal> modal_;
    std::atomic<std::uint64_t> indicator_{0};
    // Used only by the run's thread until it ends.
    std::unique_ptr<const TreeSnapshot> rows_;
    KeptFiles kept_;
    const Set* lastBegun_ = nullptr;
    std::optional<StoreError> refusal_;
    std::optional<std::string> aside_;
    RemovalResult moved_;
    WorkThread thread_;
};

DeletionTask::DeletionTask(Session& session, Results& results, MainWindow& window, Alerts& alerts,
                           InformationWindow& information)
    : session_(session),
      results_(results),
      window_(window),
      alerts_(alerts),
      information_(information),
      kept_(window, information) {
    const ResultScreen& screen = *window_.results;
    connect(screen.finishButton, &QAbstractButton::clicked, this,
            &DeletionTask::deleteButtonExactPageClicked);
    connect(screen.sendToRecycle, &QAbstractButton::clicked, this,
            &DeletionTask::sendToRecycleClicked);
    const DeletionPanel& panel = *window_.deletionPreview;
    connect(panel.pauseResumeBtn, &QAbstractButton::clicked, this,
            &DeletionTask::pauseDeletionProcess);
    connect(panel.stopDeleteBtn, &QAbstractButton::clicked, this,
            &DeletionTask::stopDeletionProcess);
    connect(this, &DeletionTask::rowsCopied, this, &DeletionTask::moveFiles, Qt::QueuedConnection);
    connect(this, &DeletionTask::walkFinished, this, &DeletionTask::finish, Qt::QueuedConnection);
    redraw_.setInterval(redrawMilliseconds);
    connect(&redraw_, &QTimer::timeout, this, &DeletionTask::showProgress);
}

DeletionTask::~DeletionTask() {
    if (run_) {
        control_.abandon();
        run_->wait();
    }
}

void DeletionTask::deleteButtonExactPageClicked() {
    results_.finishMarking();
    begin(window_.results->unMarkAll->isEnabled());
}

void DeletionTask::begin(bool unMarkAllEnabled) {
    if (run_) {
        return;
    }
    switch (deletionStartFor(results_.list(), unMarkAllEnabled)) {
        case DeletionStart::information:
            information_.setInformationWindow(nothingToDeleteInformation());
            return;
        case DeletionStart::nothing:
            return;
        case DeletionStart::run:
            break;
    }
    setDeletionView();
    run_ = std::make_unique<Run>(results_.beginDeletion(), session_, control_);
    run_->copyRows([this] { Q_EMIT rowsCopied(); });
    redraw_.start();
}

void DeletionTask::moveFiles() {
    results_.freezeRows(run_->takeRows());
    run_->start([this] { Q_EMIT walkFinished(); });
}

void DeletionTask::setDeletionView() {
    const ResultScreen& screen = *window_.results;
    const DeletionPanel& panel = *window_.deletionPreview;
    screen.buttonHomePage->hide();
    window_.buttonMore->setEnabled(false);
    screen.finishButton->setEnabled(false);
    screen.finishButton->setAlpha(0.6);
    panel.deletionStatus->setText(ResultTexts::deleting());
    panel.pauseResumeBtn->setEnabled(true);
    panel.stopDeleteBtn->setEnabled(true);
    setPauseTitle(ScanScreenTexts::pause());
    showDeletion();
    panel.deletionIndicator->setTotal(results_.list().totalFilesSelected());
}

void DeletionTask::showDeletion() {
    window_.deletionPreview->deletionIndicator->setDone(0);
    window_.showOver(window_.deletionPreview, previewOrigin);
    window_.results->resultTable->hide();
}

void DeletionTask::removeDeletionView() {
    const ResultScreen& screen = *window_.results;
    window_.deletionPreview->hide();
    window_.covers().removeAll();
    screen.buttonHomePage->show();
    window_.buttonMore->setEnabled(true);
    screen.finishButton->setEnabled(true);
    screen.finishButton->setAlpha(1.0);
    screen.resultTable->show();
}

void DeletionTask::setPauseTitle(const QString& title) const {
    constexpr int fontSize = 14;
    window_.deletionPreview->pauseResumeBtn->setAttributedTitle(
        setCenterAttributes(Qt::white, title, fontSize));
    window_.deletionPreview->pauseResumeBtn->setAccessibleName(title);
}

void DeletionTask::showProgress() {
    if (run_) {
        window_.deletionPreview->deletionIndicator->setDone(run_->indicator());
    }
}

void DeletionTask::pauseDeletionProcess() {
    const DeletionPanel& panel = *window_.deletionPreview;
    const bool pauses = panel.pauseResumeBtn->title() == ScanScreenTexts::pause();
    control_.setPauseDeletion(pauses);
    setPauseTitle(pauses ? ScanScreenTexts::resume() : ScanScreenTexts::pause());
    panel.stopDeleteBtn->setEnabled(!pauses);
}

void DeletionTask::stopDeletionProcess() {
    control_.setPauseDeletion(true);
    window_.deletionPreview->pauseResumeBtn->setEnabled(false);
    setPauseTitle(ScanScreenTexts::pause());
    stopQuestion_ = alerts_.show(stopDeletionAlert(), [this](int button) { stopAnswered(button); });
}

void DeletionTask::stopAnswered(int button) {
    if (button == yes) {
        control_.stop();
        return;
    }
    control_.setPauseDeletion(false);
    window_.deletionPreview->pauseResumeBtn->setEnabled(true);
}

void DeletionTask::finish() {
    const std::unique_ptr<Run> run = std::move(run_);
    if (!run) {
        return;
    }
    run->wait();
    redraw_.stop();
    alerts_.withdraw(std::exchange(stopQuestion_, 0));
    // The stop question may still be open and holds the pause flag; the next run must not start
    // paused.
    control_.setPauseDeletion(false);
    removeDeletionView();
    window_.home->cleanHistory->setText(
        HomeTexts::cleanHistory(session_.alreadyDeletedCount(), session_.alreadyDeletedSize()));
    results_.endDeletion();
    if (const std::optional<StoreError>& refusal = run->refusal()) {
        information_.setInformationWindow(
            noCleanUpInformation(OwnReasons::of(*refusal), run->aside()));
        return;
    }
    kept_.setFiles(run->kept());
    information_.setInformationWindow(
        deletionReport(run->moved(), run->kept().left(), run->kept().notBack()));
}

}  // namespace tarvin
