#pragma once

#include "controller/information_window.h"
#include "controller/marking_task.h"
#include "controller/outline_menu.h"
#include "controller/preview.h"
#include "controller/results.h"
#include "controller/session.h"
#include "controller/sort_controls.h"
#include "interface/loading_overlay.h"

#include <QObject>
#include <memory>

namespace tarvin {

class MainWindow;

/// The result screen: its six views, their summaries, and the outline with the files of the
/// selected set. Owned by AppDelegate. Main thread only.
class ResultViews final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    ResultViews(Session& session, Results& results, MainWindow& window,
                InformationWindow& information, MarkingTask& marking, Preview& preview,
                const LoadingOverlay& loading);

    void allClicked();
    void imageClicked() { categoryClicked(ResultView::image); }
    void videoClicked() { categoryClicked(ResultView::video); }
    void audioClicked() { categoryClicked(ResultView::audio); }
    void docsClicked() { categoryClicked(ResultView::documents); }
    void otherClicked() { categoryClicked(ResultView::other); }

    /// Shows the list in view on the result screen. With `showsSummary`, also its summary, unless
    /// that was shown before, and totals of 0 marked files; otherwise the totals stay. Without a
    /// result, or with an empty one, the screen is empty.
    void showDuplicateScanResult(bool showsSummary);
    void showInformationWindowAccordingTab();

    // The outline.

    void selectionShouldChangeInOutlineView(const QModelIndex& clicked);
    /// Shows the first file of the selected set. Does nothing if no set is selected.
    void outlineViewSelectionDidChange();
    // Both do nothing: a right click only opens the context menu. Nothing calls treeView().
    void treeView() {}
    void rightClicked() {}

    // The file list.

    /// Shows the file of the selected row. Does nothing if no row is selected.
    void tableViewSelectionDidChange();

    /// Drops the result.
    void homeCleanup();

    [[nodiscard]] SortControls& sortControls() { return sortControls_; }
    [[nodiscard]] OutlineMenu& outlineMenu() { return outlineMenu_; }

 Q_SIGNALS:
    /// A result that is not empty is shown.
    void shown();
    /// The notice of an empty result was closed.
    void homeRequested();

 private:
    void connectControls();
    void connectSortControls();
    void change(ResultView view);
    void categoryClicked(ResultView view);
    void showEmptyResult(bool showsSummary);
    void showTotals(bool areNone) const;
    void selectFirstSet() const;
    void showFirstFile();
    /// Shows preview, path and properties of a file and selects its row if it is in the table.
    void showFile(const std::shared_ptr<File>& file);
    void selectShownFile();
    void showRemainingFile();
    void clearPreview();
    void showScreen();
    void informationClosed();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    InformationWindow& information_;
    MarkingTask& marking_;
    Preview& preview_;
    const LoadingOverlay& loading_;
    std::shared_ptr<File> shown_;  ///< the file in the preview; null if none
    SortControls sortControls_;
    OutlineMenu outlineMenu_;
};

}  // namespace tarvin
