#pragma once

#include "controller/exception_rows.h"
#include "controller/information_window.h"
#include "controller/presence_tester.h"
#include "controller/session.h"

#include <QObject>
#include <QTimer>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

class MainWindow;

/// Shows the exceptions list and takes files off it. Their rows disappear at once, while the file
/// is written in the background; if it cannot be, they come back. Owned by AppDelegate. Main thread
/// only.
class ExceptionListTask final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object, and the platform a thread that is left behind.
    ExceptionListTask(Session& session, MainWindow& window, InformationWindow& information);
    ExceptionListTask(const ExceptionListTask&) = delete;
    ExceptionListTask& operator=(const ExceptionListTask&) = delete;
    ~ExceptionListTask() override;

    /// Shows the panel. The marks of files that are not there appear as they become known.
    void open();

    // The controls of the panel.

    /// Waits, without blocking, until the file is written, but not for more than two seconds.
    void close();
    void search(const QString& text);
    /// Takes the selected files off the list, without a question, and selects the next row.
    void remove();
    /// Takes all files that are not there off the list, also those that a search hides.
    void removeMissing();
    /// Copies the selected paths, one a line.
    void copy() const;

 Q_SIGNALS:
    /// Files were taken off the list.
    void listChanged();

 private:
    void show();
    void showAgain();
    void hide();
    void endRemoval();
    void showFailure();
    void putRowsBack();
    void takeNews();
    void update();
    void sortBy(int column);
    [[nodiscard]] std::vector<int> selectedRows() const;
    void selectRow(int row) const;

    Session& session_;
    MainWindow& window_;
    InformationWindow& information_;
    ExceptionRows rows_;
    PresenceTester tester_;
    QTimer redraw_;
    QTimer closing_;                       // runs while close() waits for the file
    std::optional<StoreError> notStored_;  // a failure to be shown
    bool isInterrupted_ = false;           // by a notice, after which the panel is shown again
};

}  // namespace tarvin
