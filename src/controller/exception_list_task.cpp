#include "controller/exception_list_task.h"

#include "controller/exception_list_texts.h"
#include "controller/own_reasons.h"
#include "controller/result_texts.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "controls/view_transparent.h"
#include "interface/about_panel.h"
#include "interface/exception_list_panel.h"
#include "interface/list_table.h"
#include "interface/main_window.h"
#include "interface/search_field.h"
#include "interface/window_covers.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

constexpr int newsMilliseconds = 33;

/// How long the panel stays for a file that is not written yet.
constexpr int closingMilliseconds = 2000;

}  // namespace

ExceptionListTask::ExceptionListTask(Session& session, MainWindow& window,
                                     InformationWindow& information)
    : session_(session), window_(window), information_(information), tester_(session.platform) {
    const ExceptionListPanel& panel = *window_.exceptionListWindow;
    panel.exceptionTable->setModel(&rows_);
    connect(window_.manageExceptionsItem, &QAction::triggered, this, &ExceptionListTask::open);
    connect(panel.exceptionClose, &QAbstractButton::clicked, this, &ExceptionListTask::close);
    connect(panel.exceptionRemove, &QAbstractButton::clicked, this, &ExceptionListTask::remove);
    connect(panel.exceptionRemoveMissing, &QAbstractButton::clicked, this,
            &ExceptionListTask::removeMissing);
    connect(panel.exceptionSearch, &QLineEdit::textChanged, this, &ExceptionListTask::search);
    connect(panel.exceptionTable->horizontalHeader(), &QHeaderView::sectionClicked, this,
            &ExceptionListTask::sortBy);
    connect(panel.exceptionTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ExceptionListTask::update);
    connect(&panel, &ExceptionListPanel::copyRequested, this, &ExceptionListTask::copy);
    connect(&information_, &InformationWindow::closed, this, &ExceptionListTask::showAgain);
    connect(&session_.exceptionChanges, &ExceptionChanges::over, this,
            &ExceptionListTask::endRemoval);
    closing_.setSingleShot(true);
    closing_.setInterval(closingMilliseconds);
    connect(&closing_, &QTimer::timeout, this, &ExceptionListTask::hide);
    redraw_.setInterval(newsMilliseconds);
    connect(&redraw_, &QTimer::timeout, this, &ExceptionListTask::takeNews);
}

ExceptionListTask::~ExceptionListTask() {
    window_.exceptionListWindow->exceptionTable->setModel(nullptr);
}

void ExceptionListTask::open() {
    if (window_.exceptionListWindow->isVisible()) {
        return;
    }
    window_.windowAboutPanel->hide();
    std::vector<std::string> paths = session_.exceptionChanges.remaining();
    rows_.setPaths(paths);
    window_.exceptionListWindow->exceptionSearch->clear();
    window_.exceptionListWindow->exceptionTable->scrollToTop();
    tester_.start(std::move(paths));
    redraw_.start();
    update();
    show();
    showFailure();
}

void ExceptionListTask::show() {
    window_.showOver(window_.exceptionListWindow, ExceptionListPanel::designGeometry, halfOfGain,
                     halfOfGain);
}

void ExceptionListTask::showAgain() {
    if (std::exchange(isInterrupted_, false)) {
        show();
    }
}

void ExceptionListTask::close() {
    if (session_.exceptionChanges.isOver()) {
        endRemoval();
        if (!isInterrupted_) {
            hide();
        }
    } else if (!closing_.isActive()) {
        closing_.start();
    }
}

void ExceptionListTask::hide() {
    closing_.stop();
    redraw_.stop();
    tester_.stop();
    window_.exceptionListWindow->hide();
    window_.covers().removeFirst();
    rows_.clear();
}

void ExceptionListTask::takeNews() {
    const PresenceTester::News news = tester_.take();
    if (!news.presences.empty()) {
        rows_.setPresences(news.first, news.presences);
    }
    if (tester_.isOver()) {
        redraw_.stop();
    }
    update();
}

void ExceptionListTask::search(const QString& text) {
    rows_.search(text);
    window_.exceptionListWindow->exceptionTable->scrollToTop();
    update();
}

void ExceptionListTask::sortBy(int column) {
    rows_.sortBy(static_cast<ExceptionRows::Column>(column));
    window_.exceptionListWindow->exceptionTable->scrollToTop();
    update();
}

/// Sets the texts and states of the controls.
void ExceptionListTask::update() {
    ExceptionListPanel& panel = *window_.exceptionListWindow;
    const QString searched = panel.exceptionSearch->text();
    const auto shown = static_cast<std::size_t>(rows_.rowCount());
    const bool isEmpty = rows_.all() == 0;
    panel.setEmpty(isEmpty);
    panel.setNoneText(isEmpty || shown > 0 ? QString() : ExceptionListTexts::none(searched));
    panel.exceptionRemove->setEnabled(panel.exceptionTable->selectionModel()->hasSelection());
    panel.exceptionRemoveMissing->setEnabled(tester_.isOver() && rows_.missing() > 0);
    if (isEmpty) {
        panel.exceptionCount->setText({});
    } else if (searched.isEmpty()) {
        panel.exceptionCount->setText(ExceptionListTexts::count(rows_.all(), rows_.missing()));
    } else {
        panel.exceptionCount->setText(ExceptionListTexts::found(shown, rows_.all()));
    }
}

std::vector<int> ExceptionListTask::selectedRows() const {
    std::vector<int> rows;
    const auto selected =
        window_.exceptionListWindow->exceptionTable->selectionModel()->selectedRows();
    rows.reserve(static_cast<std::size_t>(selected.size()));
    for (const QModelIndex& index : selected) {
        rows.push_back(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// Does nothing while another removal is written.
void ExceptionListTask::endRemoval() {
    if (!session_.exceptionChanges.isOver()) {
        return;
    }
    if (std::optional<StoreError> failure = session_.exceptionChanges.take()) {
        notStored_ = std::move(failure);
    }
    Q_EMIT listChanged();
    showFailure();
    if (closing_.isActive()) {
        hide();
    }
}

/// Says that files could not be taken off the list, at the next opening of the panel if other work
/// has begun since it was closed.
void ExceptionListTask::showFailure() {
    ExceptionListPanel& panel = *window_.exceptionListWindow;
    const bool isFree =
        window_.covers().counter()->viewsOverlaidCount() == 0 && window_.buttonMore->isEnabled();
    if (!notStored_ || (!panel.isVisible() && !isFree)) {
        return;
    }
    const Information notice{.informationHeader = ExceptionListTexts::title(),
                             .duplicatesCount = ExceptionListTexts::notSaved(),
                             .duplicatesSize = OwnReasons::of(*notStored_),
                             .otherInfomration = {},
                             .informationImage = informationImageOf(ResultView::all),
                             .actionButtonTitle = ResultTexts::ok()};
    notStored_.reset();
    if (!panel.isVisible()) {
        information_.setInformationWindow(notice);
        return;
    }
    closing_.stop();
    putRowsBack();
    isInterrupted_ = true;
    information_.setInformationWindowInPlaceOf(panel, notice);
}

/// Shows the list in memory as before, with the same search, row and position.
void ExceptionListTask::putRowsBack() {
    const ExceptionListPanel& panel = *window_.exceptionListWindow;
    const int row = panel.exceptionTable->currentIndex().row();
    const int scrolled = panel.exceptionTable->verticalScrollBar()->value();
    std::vector<std::string> paths = session_.exceptionChanges.remaining();
    rows_.setPaths(paths);
    rows_.search(panel.exceptionSearch->text());
    tester_.start(std::move(paths));
    redraw_.start();
    panel.exceptionTable->verticalScrollBar()->setValue(scrolled);
    selectRow(std::max(row, 0));
    update();
}

void ExceptionListTask::remove() {
    const std::vector<int> rows = selectedRows();
    if (rows.empty()) {
        return;
    }
    std::vector<std::string> paths;
    paths.reserve(rows.size());
    for (const int row : rows) {
        paths.push_back(rows_.pathAt(row));
    }
    session_.exceptionChanges.remove(paths);
    const ListTable& table = *window_.exceptionListWindow->exceptionTable;
    const int scrolled = table.verticalScrollBar()->value();
    rows_.removeRowsAt(rows);
    table.verticalScrollBar()->setValue(scrolled);
    selectRow(rows.front());
    update();
}

/// Selects the row, or the last one if there are fewer.
void ExceptionListTask::selectRow(int row) const {
    ListTable& table = *window_.exceptionListWindow->exceptionTable;
    if (rows_.rowCount() == 0) {
        window_.exceptionListWindow->exceptionClose->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    table.selectRow(std::min(row, rows_.rowCount() - 1));
}

void ExceptionListTask::removeMissing() {
    if (!tester_.isOver() || rows_.missing() == 0) {
        return;
    }
    session_.exceptionChanges.remove(rows_.missingPaths());
    rows_.removeMissing();
    update();
}

void ExceptionListTask::copy() const {
    QString text;
    for (const int row : selectedRows()) {
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) +
                QFile::decodeName(QByteArray::fromStdString(rows_.pathAt(row)));
    }
    QGuiApplication::clipboard()->setText(text);
}

}  // namespace tarvin
