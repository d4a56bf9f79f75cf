#pragma once

#include "controller/alerts.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <map>

class QMessageBox;

namespace tarvin {

/// Alerts as the desktop's message boxes, with the icon of the program. Return presses the button
/// that Esc presses, the harmless one: nothing is lost by a key that was meant for something else.
/// The order on the screen is the desktop's. Main thread.
class MessageBoxes final : public Alerts {
 public:
    /// The boxes belong to `window`.
    explicit MessageBoxes(QWidget* window) : window_(window) {}

    using Alerts::show;
    Number show(const Alert& alert, std::function<void(int button)> answered) override;
    void withdraw(Number alert) override;

 private:
    QPointer<QWidget> window_;
    std::map<Number, QPointer<QMessageBox>> open_;
    Number last_ = 0;
    QObject context_;  // the last member: no box answers to what is gone
};

}  // namespace tarvin
