#pragma once

#include "controller/alerts.h"
#include "controller/information_window.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// The task of excluding marked files from all scans, and of forgetting that again. Owned by
/// AppDelegate; main thread.
class ExceptionsTask final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it.
    ExceptionsTask(Session& session, Results& results, MainWindow& window, Alerts& alerts,
                   InformationWindow& information);

    /// The stored list has been read.
    void loaded();

    /// Asks, if anything is marked.
    void addExceptions();
    void addExceptionsOKClicked();
    void addExceptionsCancelClicked();
    void removeExceptionWindow();
    /// Asks whether to empty the list.
    void removeExceptions();

 private:
    void removeAll();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    Alerts& alerts_;
    InformationWindow& information_;
};

}  // namespace tarvin
