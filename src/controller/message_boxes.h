#pragma once

#include "controller/alerts.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <map>

class QMessageBox;

namespace tarvin {

/// Alerts as message boxes with the program's icon. Return presses the same, harmless button as
/// Esc, so that a stray key loses nothing. The desktop decides the order of the buttons. Main
/// thread only.
class MessageBoxes final : public Alerts {
 public:
    /// The boxes are children of `window`.
    explicit MessageBoxes(QWidget* window) : window_(window) {}

    using Alerts::show;
    Number show(const Alert& alert, std::function<void(int button)> answered) override;
    void withdraw(Number alert) override;

 private:
    QPointer<QWidget> window_;
    std::map<Number, QPointer<QMessageBox>> open_;
    Number last_ = 0;
    QObject context_;  // last: disconnects the boxes before the other members are destroyed
};

}  // namespace tarvin
