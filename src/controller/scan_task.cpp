#include "controller/scan_task.h"

#include "controller/not_read_files.h"
#include "controller/scan_screen_texts.h"
#include "controls/button_settings_saved.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/progress_bar.h"
#include "controls/scan_animation.h"
#include "interface/about_panel.h"
#include "interface/location_screen.h"
#include "interface/main_window.h"
#include "interface/notice_panel.h"
#include "interface/progress_screen.h"
#include "interface/result_panels.h"
#include "scan/exception_filter.h"
#include "scan/scan_filter.h"

#include <QAction>
#include <QLabel>
#include <QStackedWidget>
#include <utility>

namespace tarvin {

namespace {

constexpr QPoint confirmationOrigin{350, 235};

}  // namespace

ScanTask::ScanTask(Session& session, MainWindow& window, Alerts& alerts, Locations& locations)
    : session_(session),
      window_(window),
      screen_(*window.progress),
      alerts_(alerts),
      locations_(locations),
      remembered_(session, *window.rememberScansItem, alerts),
      details_(session.platform.clock()),
      run_(session.platform, messenger_, {.priority = ScanRun::Priority::low}) {
    // pause() compares the title with this text.
    setPauseTitle(ScanScreenTexts::pause());
    redraw_.setInterval(redrawMilliseconds);
    connect(&redraw_, &QTimer::timeout, this, &ScanTask::showProgress);
    connectControls();
}

void ScanTask::connectControls() {
    connect(window_.locations->findDuplicateExact, &QAbstractButton::clicked, this,
            &ScanTask::buttonFindDuplicatesExactClicked);
    connect(screen_.pauseResume, &QAbstractButton::clicked, this, &ScanTask::pause);
    connect(screen_.stopButton, &QAbstractButton::clicked, this, &ScanTask::stop);
    connect(window_.cancelYes, &QAbstractButton::clicked, this, &ScanTask::stopYesClicked);
    connect(window_.cancelNo, &QAbstractButton::clicked, this, &ScanTask::stopNOClicked);
    connect(&messenger_, &ScanMessenger::collectionWaits, this, [this](bool waits) {
        LoopClock& clock = screen_.similarIndicator->clock();
        waits ? clock.stop() : clock.start();
    });
    connect(&messenger_, &ScanMessenger::foundNoFiles, this, &ScanTask::foundNoFiles);
    connect(&messenger_, &ScanMessenger::collectionIsOver, this, [this] {
        screen_.similarIndicator->setIndeterminate(false);
        locations_.removeAllRows();
    });
    connect(&messenger_, &ScanMessenger::comparisonBegins, this, &ScanTask::comparisonBegins);
    connect(&messenger_, &ScanMessenger::comparisonIsOver, this, &ScanTask::comparisonIsOver);
    connect(&messenger_, &ScanMessenger::memoryIsStored, &remembered_, &RememberedScans::report);
}

void ScanTask::buttonFindDuplicatesExactClicked() {
    scanning_ = true;
    if (session_.similar) {
        return;
    }
    showStart();
    messenger_.clear();
    progress_ = {};
    details_.begin();
    showDetails();
    ScanFilter filter;
    filter.skipHidden = window_.skipHiddenItem->isChecked();
    run_.setPriority(window_.backgroundItem->isChecked() ? ScanRun::Priority::idle
                                                         : ScanRun::Priority::low);
    run_.setMemory(remembered_.memoryFolder());
    run_.start(locations_.list().rows(), ExceptionFilter(session_.exceptionArrayData()),
               std::move(filter));
    redraw_.start();
}

void ScanTask::showStart() {
    updateTextField("00:00:00");
    window_.buttonHelpManual->setEnabled(false);
    screen_.similarIndicator->setDone(0);
    screen_.similarIndicator->setIndeterminate(true);
    screen_.similarProcessing->setText(ScanScreenTexts::collecting());
    screen_.exactSimilarTabView->setCurrentIndex(0);
    screen_.animationImage->startAnimation();
    // Panels of the previous screen would cover the next one.
    window_.windowAboutPanel->hide();
    window_.runningAlert->hide();
    window_.selectTabViewItem(screen_.identifier());
}

/// Shows no progress during a pause or a stop, although workers may finish their current files.
void ScanTask::showProgress() {
    ++redraws_;
    messenger_.tryLatest(progress_);
    updateTextField(progress_.elapsed);
    if (run_.pause() || details_.isStopping()) {
        showDetails();
        return;
    }
    if (progress_.comparing) {
        screen_.similarIndicator->setDone(run_.processed());
        details_.compared(run_.bytesCompared());
    }
    showDetails();
    if (!progress_.path.empty()) {
        screen_.similarProcessing->setText(textOfCurrentFile());
    }
}

void ScanTask::showDetails() const {
    screen_.progressDetails->setText(details_.details());
    screen_.showState(details_.state());
}

QString ScanTask::textOfCurrentFile() const {
    if (progress_.waiting) {
        return ScanScreenTexts::waitingFor(progress_.path);
    }
    return progress_.comparing ? ScanScreenTexts::processing(progress_.path)
                               : ScanScreenTexts::collecting(progress_.path);
}

void ScanTask::updateTextField(const std::string& time) const {
    screen_.textelapse->setText(ScanScreenTexts::elapsed(time));
}

void ScanTask::comparisonBegins(quint64 total) const {
    screen_.searchStatus->setText(ScanScreenTexts::searching());
    screen_.progressTypeText->setText(ScanScreenTexts::searchingTitle());
    screen_.similarIndicator->setIndeterminate(false);
    screen_.similarIndicator->setTotal(total);
}

void ScanTask::comparisonIsOver(quint64 processed) {
    if (!scanning_) {
        return;  // queued before homeCleanup()
    }
    run_.wait();
    redraw_.stop();
    screen_.similarIndicator->setDone(processed);
    scanning_ = false;
    // A stop of the comparison leaves the flag set; one of the collection clears it.
    if (run_.wasStopped() && !run_.stop()) {
        Q_EMIT collectionStopped();
    }
    hideNotices();
    const bool isIncomplete = run_.result().ranOutOfMemory;
    Q_EMIT finished();
    if (isIncomplete) {
        alerts_.show(noticeOf(ScanScreenTexts::outOfMemory()), [](int) {});
    }
}

void ScanTask::foundNoFiles() {
    if (!scanning_) {
        return;
    }
    // The scan has come to its end; its result says what could not be read.
    run_.wait();
    screen_.animationImage->stopAnimation();
    redraw_.stop();
    hideNotices();
    showNoDuplicates();
}

void ScanTask::showNoDuplicates() {
    Alert notice = noticeOf(ScanScreenTexts::noDuplicates());
    if (NotReadFiles(run_.result()).all() > 0) {
        notice.buttons.push_back(window_.informationWindow->notReadShow->text());
    }
    alerts_.show(notice, [this](int button) {
        if (button == 0) {
            Q_EMIT endedWithoutFiles();
            return;
        }
        scanning_ = false;  // the window may be closed over the list
        Q_EMIT notReadRequested();
    });
}

void ScanTask::setPauseTitle(const QString& title) const {
    screen_.pauseResume->setText(title);
    screen_.pauseResume->setAccessibleName(title);
}

void ScanTask::pause() {
    setPaused(screen_.pauseResume->text() == ScanScreenTexts::pause());
    showDetails();
}

void ScanTask::setPaused(bool pauses) {
    run_.setPause(pauses);
    setPauseTitle(pauses ? ScanScreenTexts::resume() : ScanScreenTexts::pause());
    if (pauses) {
        screen_.animationImage->stopAnimation();
    } else {
        screen_.animationImage->startAnimation();
    }
    screen_.stopButton->setEnabled(!pauses);
    pauses ? details_.pause() : details_.resume();
}

void ScanTask::stop() {
    window_.showNotice(window_.confirmationView, confirmationOrigin);
    screen_.pauseResume->setEnabled(false);
    if (!run_.pause()) {
        setPaused(true);
    }
    // Shown once, so that "Paused", which only the user's own pause is, is not announced.
    details_.hold();
    showDetails();
}

/// Hides the stop question and the closing notice, which apply only during a scan.
void ScanTask::hideNotices() const {
    window_.confirmationView->hide();
    window_.runningAlert->hide();
}

void ScanTask::stopYesClicked() {
    hideNotices();
    details_.stop();
    setPauseTitle(ScanScreenTexts::pause());
    screen_.pauseResume->setEnabled(false);
    screen_.stopButton->setEnabled(false);
    showDetails();
    run_.requestStop();
}

/// Also resumes a scan that the user had paused before.
void ScanTask::stopNOClicked() {
    screen_.pauseResume->setEnabled(true);
    if (run_.pause()) {
        setPaused(false);
        showDetails();
    }
    // Last: the focus can return only to an enabled button.
    window_.confirmationView->hide();
}

void ScanTask::waitForAnswer() {
    run_.setPause(true);
    screen_.animationImage->stopAnimation();
    details_.hold();
    showDetails();
}

/// While the stop question is open, the scan stays paused until it is answered.
void ScanTask::goOn() {
    if (!scanning_ || window_.confirmationView->isVisible()) {
        return;
    }
    if (details_.isStopping()) {
        run_.setPause(false);
        return;
    }
    setPaused(false);
    showDetails();
}

void ScanTask::homeCleanup() {
    if (run_.scanning()) {
        run_.requestStop();
        run_.wait();
    }
    run_.homeCleanup();
    scanning_ = false;
    redraw_.stop();
    resetControls();
}

void ScanTask::resetControls() {
    screen_.stopButton->setEnabled(true);
    window_.buttonHelpManual->setEnabled(true);
    setPauseTitle(ScanScreenTexts::pause());
    screen_.pauseResume->setEnabled(true);
    screen_.animationImage->stopAnimation();
    screen_.similarIndicator->setIndeterminate(false);
    screen_.similarIndicator->setDone(0);
    details_.begin();
    showDetails();
}

}  // namespace tarvin
