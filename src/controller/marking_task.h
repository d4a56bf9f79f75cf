#pragma once

#include "controller/information_window.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// The task of marking: check boxes at three levels, the totals of what is marked, and the buttons
/// that follow. Owned by AppDelegate; main thread.
class MarkingTask final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it.
    MarkingTask(Session& session, Results& results, MainWindow& window,
                InformationWindow& information);

    void markAllClicked();
    void unMarkAllClicked();
    /// The box of an extension or a set in the outline.
    void checkBoxClicked(const QModelIndex& clickedRow);
    /// The box in a row of the file list; `tag` is the row.
    void tableCheckBoxClicked(int tag);
    void checkButtonClicked(int indexOfButton);
    /// Turns the mark of one file of the selected set over, unless none would stay unmarked.
    void collectionViewCheckButtonCLicked(int position);

    void setMarkedFilesDetails();
    void enableNecessaryButton();

    /// Nothing calls it: the information window says it all.
    void showAllCheckAlert();
    void checkALertOK() const;

 Q_SIGNALS:
    /// A box of the file list was clicked.
    void checkNotif(int indexOfButton);

 private:
    void connectControls() const;
    void showTotalsAndButtons();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    InformationWindow& information_;
};

}  // namespace tarvin
