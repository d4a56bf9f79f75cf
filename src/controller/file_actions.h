#pragma once

#include "controller/desktop.h"
#include "controller/exceptions_task.h"
#include "controller/information_window.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QObject>
#include <QPoint>
#include <string>

namespace tarvin {

class MainWindow;

/// What the menu of a file does, and its keys. Owned by AppDelegate. Main thread only.
class FileActions final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    FileActions(Session& session, Results& results, MainWindow& window,
                InformationWindow& information, ExceptionsTask& exceptions, Desktop& desktop);

    /// Opens the menu of a row of the list at `position` of the screen.
    void popUpMenu(int row, const QPoint& position);

    // The items, for the selected row. Without one they do nothing.

    /// Both report a file that is gone.
    void open();
    void openFolder();
    /// Copies the path to the clipboard.
    void copyPath();
    /// Does nothing in a set of one file.
    void keep();
    void markFolder();
    void addToExceptions();

 private:
    [[nodiscard]] int row() const;
    /// The path of the selected file if it is there; otherwise empty, and a file that is gone has
    /// been reported.
    [[nodiscard]] std::string pathOfPresentFile();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    InformationWindow& information_;
    ExceptionsTask& exceptions_;
    Desktop& desktop_;
};

}  // namespace tarvin
