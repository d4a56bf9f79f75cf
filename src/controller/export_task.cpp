#include "controller/export_task.h"

#include "controller/export_report.h"
#include "controller/export_texts.h"
#include "controller/own_reasons.h"
#include "controller/path_text.h"
#include "controller/result_texts.h"
#include "interface/main_window.h"
#include "interface/result_panels.h"
#include "interface/window_covers.h"

#include <QAction>
#include <QDateTime>
#include <QMenu>
#include <array>
#include <chrono>
#include <memory>
#include <string_view>
#include <utility>

namespace tarvin {

namespace {

// In the order of the types in the panel.
constexpr std::array formats{ResultFormat::csv, ResultFormat::json, ResultFormat::text};

/// A file that takes no longer shows no panel, which would only flash.
constexpr int exportPanelDelayMilliseconds = 300;

std::string_view nameIn(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

/// "2026-11-21", local time.
QString shownDate(Timestamp now) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now).time_since_epoch().count();
    return QDateTime::fromSecsSinceEpoch(seconds).date().toString(Qt::ISODate);
}

}  // namespace

ExportTask::ExportTask(const ScanRun& scan, const Results& results, MainWindow& window,
                       FilePanels& panels, Clock& clock, InformationWindow& information,
                       FileCalls& calls)
    : scan_(scan),
      results_(results),
      window_(window),
      panels_(panels),
      clock_(clock),
      information_(information),
      calls_(calls) {
    connect(window_.exportResultsItem, &QAction::triggered, this, &ExportTask::open);
    connect(window_.moreMenu, &QMenu::aboutToShow, this,
            [this] { window_.exportResultsItem->setEnabled(!results_.isEmpty()); });
    connect(this, &ExportTask::written, this, &ExportTask::showResult, Qt::QueuedConnection);
    connect(&information_, &InformationWindow::closed, this, &ExportTask::cancel);
    delay_.setSingleShot(true);
    delay_.setInterval(exportPanelDelayMilliseconds);
    connect(&delay_, &QTimer::timeout, this, &ExportTask::showWriting);
}

ExportTask::~ExportTask() = default;

void ExportTask::open() {
    if (isWriting() || results_.isEmpty()) {
        return;
    }
    panels_.save({.title = ExportTexts::title(),
                  .fileName = ExportTexts::fileName(shownDate(clock_.now())),
                  .types = {{ExportTexts::csv(), QStringLiteral("csv")},
                            {ExportTexts::json(), QStringLiteral("json")},
                            {ExportTexts::text(), QStringLiteral("txt")}}},
                 [this](const std::string& path, std::size_t type) { write(path, formats[type]); });
}

/// The list may be gone: the panel stops this window, not what other instances ask of it.
void ExportTask::write(const std::string& path, ResultFormat format) {
    if (isWriting() || results_.isEmpty()) {
        return;
    }
    std::erase_if(cancelled_, [](const auto& run) { return run->isOver(); });
    path_ = path;
    ExportRun::Job job{
        .path = path, .format = format, .report = exportReport(scan_, results_.list())};
    sets_ = job.report.totalSets();
    window_.covers().add();
    keys_ = std::make_unique<KeyBlock>();
    delay_.start();
    run_ = std::make_unique<ExportRun>(std::move(job), calls_, [this] { Q_EMIT written(); });
}

/// The panel takes the keys from now on.
void ExportTask::showWriting() {
    endWaiting();
    isShown_ = true;
    information_.setInformationWindow({.informationHeader = ResultTexts::information(),
                                       .duplicatesCount = ExportTexts::exporting(),
                                       .duplicatesSize = textOfPath(nameIn(path_)),
                                       .otherInfomration = {},
                                       .informationImage = informationImageOf(ResultView::all),
                                       .actionButtonTitle = ExportTexts::cancel()});
}

void ExportTask::cancel() {
    if (isShown_) {
        isShown_ = false;
        run_->cancel();
        cancelled_.push_back(std::move(run_));
    }
}

/// Removes the cover, the panel and the block of the keys.
void ExportTask::endWaiting() {
    delay_.stop();
    keys_.reset();
    if (std::exchange(isShown_, false)) {
        window_.informationWindow->hide();
    }
    window_.covers().removeFirst();
}

void ExportTask::showResult() {
    // The signal may be that of a run that was cancelled meanwhile.
    if (run_ == nullptr || !run_->isOver()) {
        return;
    }
    const std::string failure = run_->failure();
    run_.reset();
    endWaiting();
    const bool failed = !failure.empty();
    information_.setInformationWindow(
        {.informationHeader = ResultTexts::information(),
         .duplicatesCount = failed ? ExportTexts::notExported() : ExportTexts::exported(sets_),
         .duplicatesSize = failed ? OwnReasons::ofStore(failure) : textOfPath(nameIn(path_)),
         .otherInfomration = {},
         .informationImage = informationImageOf(ResultView::all),
         .actionButtonTitle = ResultTexts::ok()});
}

}  // namespace tarvin
