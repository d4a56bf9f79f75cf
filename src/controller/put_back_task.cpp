#include "controller/put_back_task.h"

#include "controller/own_reasons.h"
#include "controller/put_back_run.h"
#include "controller/put_back_texts.h"
#include "controller/result_texts.h"
#include "controller/shown_numbers.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/progress_bar.h"
#include "interface/about_panel.h"
#include "interface/list_table.h"
#include "interface/main_window.h"
#include "interface/put_back_panels.h"
#include "interface/result_screen.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"

#include <QAction>
#include <QLabel>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

/// A step that takes no longer shows no panel, which would only flash.
constexpr int panelDelayMilliseconds = 300;

}  // namespace

PutBackTask::PutBackTask(Session& session, MainWindow& window, InformationWindow& information)
    : session_(session), window_(window), information_(information) {
    window_.putBackWindow->putBackTable->setModel(&files_);
    window_.putBackReport->putBackFailures->setModel(&failures_);
    connect(window_.putBackItem, &QAction::triggered, this, &PutBackTask::open);
    connect(window_.putBackWindow->putBackCancel, &QAbstractButton::clicked, this,
            &PutBackTask::cancel);
    connect(window_.putBackWindow->putBackOk, &QAbstractButton::clicked, this,
            &PutBackTask::putBack);
    connect(window_.putBackProgress->stopPutBackBtn, &QAbstractButton::clicked, this,
            &PutBackTask::stop);
    connect(window_.putBackReport->putBackReportOk, &QAbstractButton::clicked, this,
            &PutBackTask::closeReport);
    connect(this, &PutBackTask::listed, this, &PutBackTask::showListed, Qt::QueuedConnection);
    connect(this, &PutBackTask::examined, this, &PutBackTask::showExamined, Qt::QueuedConnection);
    connect(this, &PutBackTask::finished, this, &PutBackTask::showResult, Qt::QueuedConnection);
    delay_.setSingleShot(true);
    delay_.setInterval(panelDelayMilliseconds);
    connect(&delay_, &QTimer::timeout, this, &PutBackTask::showSlowStep);
    redraw_.setInterval(redrawMilliseconds);
    connect(&redraw_, &QTimer::timeout, this, &PutBackTask::drawProgress);
}

PutBackTask::~PutBackTask() {
    run_.reset();
    window_.putBackWindow->putBackTable->setModel(nullptr);
    window_.putBackReport->putBackFailures->setModel(nullptr);
}

/// Covers the window at once, so that nothing else can be started during the examination.
void PutBackTask::open() {
    if (state_ != State::idle) {
        return;
    }
    state_ = State::examining;
    window_.windowAboutPanel->hide();
    window_.covers().add();
    keys_ = std::make_unique<KeyBlock>();
    run_ = std::make_unique<PutBackRun>(session_.platform, session_.data);
    delay_.start();
    window_.putBackWindow->putBackDate->setText({});
    run_->examine([this] { Q_EMIT listed(); }, [this] { Q_EMIT examined(); });
}

void PutBackTask::showSlowStep() {
    if (state_ == State::examining) {
        showExamining();
    } else if (state_ == State::running) {
        showProgress();
    }
}

void PutBackTask::showExamining() {
    keys_.reset();
    const PutBackPanel& panel = *window_.putBackWindow;
    panel.putBackTotal->setText({});
    panel.putBackOutcome->setText(PutBackTexts::checking());
    panel.putBackCannot->setText({});
    window_.putBackWindow->setPossible(false);
    window_.showInPlaceOf(nullptr, window_.putBackWindow, PutBackPanel::designGeometry, halfOfGain,
                          halfOfGain);
}

/// Shows the files before their outcomes are known. The panel may not be visible yet.
void PutBackTask::showListed() {
    if (state_ != State::examining) {
        return;
    }
    if (const std::optional<UncheckedCleanUp> unchecked = run_->takeUnchecked()) {
        files_.setUnchecked(*unchecked);
        window_.putBackWindow->putBackDate->setText(ShownNumbers::dateAndTime(unchecked->begun));
    }
}

void PutBackTask::showExamined() {
    delay_.stop();
    keys_.reset();
    run_->wait();
    if (state_ == State::cancelled) {
        endRun();
    } else if (const std::optional<StoreError>& failure = run_->failure()) {
        inform(*window_.putBackWindow, PutBackTexts::notBegun(), OwnReasons::of(*failure));
    } else if (const std::optional<CleanUpSummary>& cleanUp = run_->cleanUp()) {
        showQuestion(*cleanUp);
    } else {
        inform(*window_.putBackWindow, PutBackTexts::nothing(),
               PutBackTexts::nothingBecause(run_->nothing()));
    }
}

void PutBackTask::showQuestion(const CleanUpSummary& cleanUp) {
    state_ = State::asking;
    PutBackPanel& panel = *window_.putBackWindow;
    const PutBackForecast& forecast = run_->forecast();
    files_.setFiles(forecast);
    panel.putBackTable->scrollToTop();
    panel.putBackDate->setText(ShownNumbers::dateAndTime(cleanUp.begun));
    panel.putBackTotal->setText(PutBackTexts::total(forecast.all(), forecast.bytes()));
    panel.putBackOutcome->setText(PutBackTexts::coming(forecast.coming()));
    panel.putBackCannot->setText(PutBackTexts::staying(forecast.staying()));
    panel.setPossible(forecast.coming() > 0);
    if (panel.isVisible()) {
        panel.keyboard().begin();
    } else {
        window_.showInPlaceOf(nullptr, &panel, PutBackPanel::designGeometry, halfOfGain,
                              halfOfGain);
    }
}

/// The information window removes the cover when it is closed.
void PutBackTask::inform(DialogPanel& before, const QString& firstLine, const QString& secondLine,
                         const QString& thirdLine) {
    information_.setInformationWindowInPlaceOf(
        before, {.informationHeader = PutBackTexts::title(),
                 .duplicatesCount = firstLine,
                 .duplicatesSize = secondLine,
                 .otherInfomration = thirdLine,
                 .informationImage = informationImageOf(ResultView::all),
                 .actionButtonTitle = ResultTexts::ok()});
    endRun();
}

void PutBackTask::cancel() {
    switch (state_) {
        case State::examining:
            // The thread ends at the next file; open() does nothing until then.
            run_->stop();
            state_ = State::cancelled;
            break;
        case State::asking:
            endRun();
            break;
        default:
            return;
    }
    files_.setFiles({});
    window_.putBackWindow->hide();
    window_.covers().removeFirst();
}

void PutBackTask::putBack() {
    if (state_ != State::asking) {
        return;
    }
    state_ = State::running;
    delay_.start();
    run_->putBack([this] { Q_EMIT finished(); });
}

void PutBackTask::showProgress() {
    window_.putBackProgress->putBackIndicator->setTotal(run_->forecast().coming());
    drawProgress();
    redraw_.start();
    window_.showInPlaceOf(window_.putBackWindow, window_.putBackProgress,
                          PutBackProgress::designGeometry);
}

void PutBackTask::drawProgress() {
    const PutBackProgress& panel = *window_.putBackProgress;
    panel.putBackIndicator->setDone(run_->done());
    panel.putBackProcessing->setText(
        PutBackTexts::progress(run_->done(), run_->forecast().coming()));
}

void PutBackTask::stop() {
    if (state_ == State::running) {
        run_->stop();
    }
}

void PutBackTask::showResult() {
    delay_.stop();
    redraw_.stop();
    run_->wait();
    // The totals in memory may be newer than those that could be written.
    session_.data.showInMemory(
        {run_->totals().alreadyDeletedCount(), run_->totals().alreadyDeletedSize()});
    Q_EMIT totalsChanged();
    DialogPanel* shown = window_.putBackProgress->isVisible()
                             ? static_cast<DialogPanel*>(window_.putBackProgress)
                             : window_.putBackWindow;
    if (run_->failed() > 0) {
        showReport(*shown);
        return;
    }
    const std::optional<StoreError>& failure = run_->failure();
    if (run_->done() == 0 && failure) {
        inform(*shown, PutBackTexts::notBegun(), OwnReasons::of(*failure));
        return;
    }
    inform(*shown, PutBackTexts::filesPutBack(run_->done()), PutBackTexts::size(run_->bytesDone()),
           failureLine());
}

/// Empty if only single files have failed.
QString PutBackTask::failureLine() const {
    const std::optional<StoreError>& failure = run_->failure();
    return failure ? PutBackTexts::notAll(OwnReasons::of(*failure)) : QString();
}

void PutBackTask::showReport(DialogPanel& before) {
    state_ = State::reporting;
    QVector<FileReason> reasons;
    for (const PutBackFile& file : run_->failures()) {
        reasons.push_back(fileReason(file.path, PutBackList::reasonOf(file)));
    }
    failures_.setFiles(reasons, run_->failed());
    const PutBackReport& panel = *window_.putBackReport;
    panel.putBackFailures->scrollToTop();
    panel.putBackReportCount->setText(PutBackTexts::filesPutBack(run_->done()));
    panel.putBackReportSize->setText(PutBackTexts::size(run_->bytesDone()));
    panel.putBackReportFailed->setText(PutBackTexts::failed(run_->failed()));
    const bool overResults = window_.selectedTabViewItem() == window_.results->identifier();
    const QString hint = overResults ? PutBackTexts::scanAgain() : QString();
    panel.putBackReportHint->setText(run_->failure() ? failureLine() : hint);
    window_.showInPlaceOf(&before, window_.putBackReport, PutBackReport::designGeometry);
}

void PutBackTask::closeReport() {
    window_.putBackReport->hide();
    window_.covers().removeFirst();
    failures_.setFiles({}, 0);
    endRun();
}

void PutBackTask::endRun() {
    state_ = State::idle;
    files_.setFiles({});
    run_.reset();
}

}  // namespace tarvin
