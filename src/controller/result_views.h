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

/// The task of looking through a result: its six views, their summaries, the outline with the files
/// of the selected set, and the sort controls. Owned by AppDelegate; main thread.
class ResultViews final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it.
    ResultViews(Session& session, Results& results, MainWindow& window,
                InformationWindow& information, MarkingTask& marking, Preview& preview,
                const LoadingOverlay& loading);

    void allClicked();
    void imageClicked();
    void videoClicked();
    void audioClicked();
    void docsClicked();
    void otherClicked();

    /// Shows the list in view on its screen; with its summary, unless that has been shown, and
    /// with nothing marked. Without `showsSummary` the totals of what is marked stay. An empty
    /// list, or none, leaves an empty screen.
    void showDuplicateScanResult(bool showsSummary);
    void showInformationWindowAccordingTab();

    // The outline.

    void selectionShouldChangeInOutlineView(const QModelIndex& clicked);
    /// Shows the first file of the set that is selected now; nothing changes without one.
    void outlineViewSelectionDidChange();
    // What a right click leaves to the context menu: nothing emits `rightClicked`, nothing calls
    // treeView(), and neither does anything.
    void treeView() {}
    void rightClicked() {}

    // The file list.

    /// Shows the file of the row that is selected now; nothing changes without one.
    void tableViewSelectionDidChange();

    /// There is no result any more.
    void homeCleanup();

    [[nodiscard]] SortControls& sortControls() { return sortControls_; }
    [[nodiscard]] OutlineMenu& outlineMenu() { return outlineMenu_; }

 Q_SIGNALS:
    /// A result that is not empty has come to its screen.
    void shown();
    /// An empty result was acknowledged.
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
    /// Picture, path and properties of a file, whose row is selected if it is in the list.
    void showFile(const std::shared_ptr<File>& file);
    void selectShownFile();
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
    std::shared_ptr<File> shown_;  ///< the file in the preview; none while it is empty
    SortControls sortControls_;
    OutlineMenu outlineMenu_;
};

}  // namespace tarvin
