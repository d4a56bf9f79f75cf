#pragma once

#include "controller/information_window.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// Marking: check boxes at three levels, the totals of marked files, and the button states that
/// depend on them. Owned by AppDelegate. Main thread only.
class MarkingTask final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    MarkingTask(Session& session, Results& results, MainWindow& window,
                InformationWindow& information);

    void markAllClicked() { results_.markAll(); }
    void unMarkAllClicked() { results_.unmarkAll(); }
    /// The check box of an extension or a set in the outline.
    void checkBoxClicked(const QModelIndex& clickedRow) { results_.toggle(clickedRow); }
    /// The check box in a row of the file table; `tag` is the row.
    void tableCheckBoxClicked(int tag) { Q_EMIT checkNotif(tag); }
    void checkButtonClicked(int indexOfButton) { collectionViewCheckButtonCLicked(indexOfButton); }
    /// Toggles a file of the selected set, unless no file of the set would stay unmarked.
    void collectionViewCheckButtonCLicked(int position);

    void setMarkedFilesDetails();
    void enableNecessaryButton();

    /// Nothing calls it: the information window is shown instead.
    void showAllCheckAlert();
    void checkALertOK() const;

 Q_SIGNALS:
    /// A check box of the file table was clicked.
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
