#pragma once

#include "controller/alerts.h"
#include "controller/information_window.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QObject>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

class MainWindow;

/// Adds marked files to the exceptions list, and empties that list. Owned by AppDelegate. Main
/// thread only.
class ExceptionsTask final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    ExceptionsTask(Session& session, Results& results, MainWindow& window, Alerts& alerts,
                   InformationWindow& information);

    /// Call when the stored list has been read or changed elsewhere.
    void loaded();

    /// Asks for confirmation, if anything is marked.
    void addExceptions();
    /// Asks for confirmation to add one file of the selected set, if there is such a row.
    void addException(int row);
    void addExceptionsOKClicked();
    void addExceptionsCancelClicked() { removeExceptionWindow(); }
    void removeExceptionWindow();
    /// Asks whether to empty the list.
    void removeExceptions();

 private:
    void add(const std::vector<std::string>& files);
    void removeAll();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    Alerts& alerts_;
    InformationWindow& information_;
    std::optional<int> row_;  ///< the one file that the question is about; none: the marked ones
};

}  // namespace tarvin
