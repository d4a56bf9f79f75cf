#pragma once

#include "controller/desktop.h"
#include "controller/exceptions_task.h"
#include "controller/information_window.h"
#include "controller/presence_tester.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QObject>
#include <QPoint>
#include <QTimer>
#include <functional>
#include <string>

namespace tarvin {

class MainWindow;

/// What the menu of a file does, its keys and a double click. Owned by AppDelegate. Main thread
/// only.
class FileActions final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object, and the platform a thread that is left behind.
    FileActions(Session& session, Results& results, MainWindow& window,
                InformationWindow& information, ExceptionsTask& exceptions, Desktop& desktop);

    /// Opens the menu of a row of the list at `position` of the screen.
    void popUpMenu(int row, const QPoint& position);

    /// Opens the file of a row in its default application; does nothing if there is no such row. A
    /// double click and Return do that. Fails silently, except that it reports a file that is gone.
    /// That is tested on a background thread, because its volume may not respond; only the last
    /// request counts, and none after the result was left.
    void doubleClick(int row);

    // The items, for the selected row. Without one they do nothing.

    /// Both report a file that is gone, as doubleClick() does.
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
    /// Calls `act` with the path of the file of `row` when it is known that the file is there.
    void withPresentFile(int row, std::function<void(const std::string& path)> act);
    void takeNews();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    InformationWindow& information_;
    ExceptionsTask& exceptions_;
    Desktop& desktop_;
    PresenceTester tester_;
    QTimer poll_;
    std::string tested_;
    Presence presence_ = Presence::unknown;             // of tested_
    std::function<void(const std::string& path)> act_;  // for tested_
};

}  // namespace tarvin
