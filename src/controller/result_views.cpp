#include "controller/result_views.h"

#include "controller/result_tabs.h"
#include "controller/result_texts.h"
#include "controls/hover_button.h"
#include "controls/notice_strip.h"
#include "controls/tab_button.h"
#include "interface/main_window.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"

#include <QAbstractButton>
#include <QItemSelectionModel>
#include <QLabel>
#include <algorithm>
#include <iterator>
#include <optional>

namespace tarvin {

ResultViews::ResultViews(Session& session, Results& results, MainWindow& window,
                         InformationWindow& information, MarkingTask& marking, Preview& preview,
                         const LoadingOverlay& loading)
    : session_(session),
      results_(results),
      window_(window),
      information_(information),
      marking_(marking),
      preview_(preview),
      loading_(loading),
      sortControls_(*window.results),
      outlineMenu_(*window.results) {
    window_.results->OView2->setModel(results_.treeModel());
    window_.results->resultTable->setModel(results_.fileModel());
    connectControls();
    connectSortControls();
}

void ResultViews::connectControls() {
    const ResultScreen& screen = *window_.results;
    const auto onClick = [this](QAbstractButton* button, void (ResultViews::*action)()) {
        connect(button, &QAbstractButton::clicked, this, action);
    };
    onClick(screen.allButton, &ResultViews::allClicked);
    onClick(screen.imageButton, &ResultViews::imageClicked);
    onClick(screen.videoButton, &ResultViews::videoClicked);
    onClick(screen.audioButton, &ResultViews::audioClicked);
    onClick(screen.documentButton, &ResultViews::docsClicked);
    onClick(screen.otherButton, &ResultViews::otherClicked);
    connect(screen.OView2, &ResultTreeView::selectionShouldChange, this,
            &ResultViews::selectionShouldChangeInOutlineView);
    connect(screen.OView2->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ResultViews::outlineViewSelectionDidChange);
    connect(screen.resultTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ResultViews::tableViewSelectionDidChange);
    // A reset clears the selection.
    connect(results_.fileModel(), &QAbstractItemModel::modelReset, this,
            &ResultViews::selectShownFile);
    connect(&results_, &Results::filesRemoved, this, &ResultViews::showRemainingFile);
    connect(&information_, &InformationWindow::closed, this, &ResultViews::informationClosed);
}

void ResultViews::connectSortControls() {
    connect(&sortControls_, &SortControls::chosen, this, [this] {
        loading_.show();
        outlineViewSelectionDidChange();
    });
    connect(&sortControls_, &SortControls::chosenInMenu, this, [this] { loading_.show(); });
}

void ResultViews::allClicked() {
    change(ResultView::all);
    marking_.unMarkAllClicked();
    showDuplicateScanResult(true);
}

void ResultViews::change(ResultView view) {
    results_.change(view);
    for (const ResultView other : allViews) {
        if (other != view) {
            tabButtonOf(*window_.results, other)->setAlpha(1.0);
        }
    }
}

void ResultViews::categoryClicked(ResultView view) {
    change(view);
    if (results_.isEmpty()) {
        // Keeps the rows of the previous list: closing the notice returns to all categories.
        flagOf(view, session_.summaries) = true;
        information_.setInformationWindow(noDuplicatesInformation(view));
        return;
    }
    marking_.unMarkAllClicked();
    showDuplicateScanResult(true);
}

void ResultViews::showDuplicateScanResult(bool showsSummary) {
    if (results_.isEmpty()) {
        showEmptyResult(showsSummary);
        return;
    }
    results_.reload();
    showTotals(showsSummary);
    if (showsSummary) {
        showInformationWindowAccordingTab();
    }
    window_.results->OView2->expandAll();
    selectFirstSet();
    loading_.show();
    // By design a result with a single extension opens without a preview.
    if (results_.tree().rowCount() < 2) {
        clearPreview();
    } else {
        showFirstFile();
    }
    showScreen();
    loading_.hide();
    Q_EMIT shown();
}

void ResultViews::showEmptyResult(bool showsSummary) {
    showTotals(true);
    results_.reload();
    showScreen();
    if (showsSummary) {
        showInformationWindowAccordingTab();
    }
    clearPreview();
}

void ResultViews::showTotals(bool areNone) const {
    const ResultScreen& screen = *window_.results;
    screen.selectedCount->setText(ResultTexts::selectedCount(areNone ? 0 : session_.totalSelected));
    screen.selectedSize->setText(ResultTexts::selectedSize(areNone ? 0 : session_.totalSize));
}

void ResultViews::selectFirstSet() const {
    window_.results->OView2->selectSet(results_.tree().indexOfSet(0, 0));
}

void ResultViews::showFirstFile() {
    const ResultTree& tree = results_.tree();
    const std::shared_ptr<Set> set = tree.setAt(tree.indexOfSet(0, 0));
    if (set && !set->files().empty()) {
        showFile(set->files().front());
    }
}

void ResultViews::showFile(const std::shared_ptr<File>& file) {
    shown_ = file;
    const std::string path = file->filePath();
    preview_.showSelectedImage(path);
    preview_.showSelecteImageProperty(path);
    selectShownFile();
}

/// The file may have another row after files were removed.
void ResultViews::selectShownFile() {
    const std::shared_ptr<Set>& set = results_.files().set();
    if (!set || !shown_) {
        return;
    }
    const auto found = std::find(set->files().begin(), set->files().end(), shown_);
    if (found != set->files().end()) {
        window_.results->resultTable->selectFile(
            static_cast<int>(std::distance(set->files().begin(), found)));
    }
}

/// The file in the preview may have been moved: then shows the first one of its set instead, or
/// nothing. Without a preview none begins.
void ResultViews::showRemainingFile() {
    if (!shown_) {
        return;
    }
    const std::shared_ptr<Set>& set = results_.files().set();
    if (!set || set->files().empty()) {
        clearPreview();
    } else if (std::find(set->files().begin(), set->files().end(), shown_) == set->files().end()) {
        showFile(set->files().front());
    }
}

void ResultViews::clearPreview() {
    shown_.reset();
    window_.results->resultTable->clearSelection();
    preview_.clear();
}

void ResultViews::showScreen() {
    window_.buttonHelpManual->setEnabled(true);
    marking_.enableNecessaryButton();
    window_.selectTabViewItem(window_.results->identifier());
}

void ResultViews::showInformationWindowAccordingTab() {
    const CategoryTotals totals{.imageFiles = results_.filesOf(ResultView::image),
                                .videoFiles = results_.filesOf(ResultView::video),
                                .audioFiles = results_.filesOf(ResultView::audio),
                                .docsFiles = results_.filesOf(ResultView::documents),
                                .otherFiles = results_.filesOf(ResultView::other)};
    std::optional<Information> summary = informationAccordingTab(
        results_.tabs(), session_.summaries,
        [this]() -> const Modal& { return results_.countedList(); }, totals);
    if (!summary) {
        return;
    }
    if (results_.isEmpty()) {
        // Closing this summary leaves the screen, whose notice it covers.
        summary->notRead = window_.results->notReadNotice->text();
    }
    information_.setInformationWindow(*summary);
}

/// After the notice of an empty list: from one category back to all, from all back home.
void ResultViews::informationClosed() {
    if (!results_.isEmpty() || window_.selectedTabViewItem() != window_.results->identifier()) {
        return;
    }
    const std::optional<ResultView> view = currentViewOf(results_.tabs());
    if (view == ResultView::all) {
        Q_EMIT homeRequested();
    } else if (view) {
        allClicked();
    }
}

void ResultViews::selectionShouldChangeInOutlineView(const QModelIndex& clicked) {
    loading_.show();
    if (results_.selected() == clicked.siblingAtColumn(0)) {
        // The selection does not change, so no signal would hide the overlay again.
        outlineViewSelectionDidChange();
    }
}

void ResultViews::outlineViewSelectionDidChange() {
    results_.select(window_.results->OView2->selectedSet());
    const std::shared_ptr<Set> set = results_.selectedSet();
    if (!set) {
        return;
    }
    results_.showFilesInOrder(sortControls_.beginNumbering());
    loading_.hide();
    if (!set->files().empty()) {
        showFile(set->files().front());
    }
}

void ResultViews::tableViewSelectionDidChange() {
    const std::shared_ptr<File> file =
        results_.files().fileAt(window_.results->resultTable->selectedRow());
    if (file && file != shown_) {
        showFile(file);
    }
}

void ResultViews::homeCleanup() {
    clearPreview();
    results_.forget();
}

}  // namespace tarvin
