#include "controller/export_task.h"

#include "controller/export_report.h"
#include "controller/export_texts.h"
#include "controller/path_text.h"
#include "controller/result_texts.h"
#include "interface/main_window.h"
#include "interface/window_covers.h"
#include "report/output_file.h"

#include <QAction>
#include <QCoreApplication>
#include <QDateTime>
#include <QEvent>
#include <QMenu>
#include <array>
#include <chrono>
#include <memory>
#include <string_view>

namespace tarvin {

namespace {

// In the order of the types in the panel.
constexpr std::array formats{ResultFormat::csv, ResultFormat::json, ResultFormat::text};

std::optional<SystemError> writeTo(const std::string& path, ResultFormat format,
                                   const ScanReport& report) {
    const Result<std::unique_ptr<OutputFile>> file = OutputFile::open(path);
    if (!file) {
        return file.error();
    }
    writeReport(format, report, (*file)->output());
    return (*file)->commit();
}

/// "2026-11-21", local time.
QString shownDate(Timestamp now) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now).time_since_epoch().count();
    return QDateTime::fromSecsSinceEpoch(seconds).date().toString(Qt::ISODate);
}

}  // namespace

ExportTask::ExportTask(const ScanRun& scan, const Results& results, MainWindow& window,
                       FilePanels& panels, Clock& clock, InformationWindow& information)
    : scan_(scan),
      results_(results),
      window_(window),
      panels_(panels),
      clock_(clock),
      information_(information) {
    connect(window_.exportResultsItem, &QAction::triggered, this, &ExportTask::open);
    connect(window_.moreMenu, &QMenu::aboutToShow, this,
            [this] { window_.exportResultsItem->setEnabled(!results_.isEmpty()); });
    connect(this, &ExportTask::written, this, &ExportTask::showResult, Qt::QueuedConnection);
}

ExportTask::~ExportTask() = default;

void ExportTask::open() {
    if (isWriting_ || results_.isEmpty()) {
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
    if (isWriting_ || results_.isEmpty()) {
        return;
    }
    isWriting_ = true;
    path_ = path;
    report_ = exportReport(scan_, results_.list());
    window_.covers().add();
    QCoreApplication::instance()->installEventFilter(this);
    thread_.start([this, format] { failure_ = writeTo(path_, format, report_); },
                  [this] { Q_EMIT written(); });
}

/// The cover stops the mouse only: no key may change a mark meanwhile.
bool ExportTask::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

void ExportTask::showResult() {
    thread_.wait();
    QCoreApplication::instance()->removeEventFilter(this);
    isWriting_ = false;
    const std::uint64_t sets = report_.totalSets();
    report_ = {};
    window_.covers().removeFirst();
    const QString name = textOfPath(std::string_view(path_).substr(path_.rfind('/') + 1));
    const QString reason = failure_ ? textOfPath(failure_->text()) : QString();
    information_.setInformationWindow(
        {.informationHeader = ResultTexts::information(),
         .duplicatesCount = failure_ ? ExportTexts::notExported() : ExportTexts::exported(sets),
         .duplicatesSize = failure_ ? reason : name,
         .otherInfomration = {},
         .informationImage = informationImageOf(ResultView::all),
         .actionButtonTitle = ResultTexts::ok()});
}

}  // namespace tarvin
