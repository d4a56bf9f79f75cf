#pragma once

#include "controller/alerts.h"

#include <QPointer>
#include <QWidget>

namespace tarvin {

/// Alerts as the desktop's message boxes, with the icon of the program. Return presses the button
/// that Esc presses, the harmless one: nothing is lost by a key that was meant for something else.
/// The order on the screen is the desktop's. Main thread.
class MessageBoxes final : public Alerts {
 public:
    /// The boxes belong to `window`.
    explicit MessageBoxes(QWidget* window) : window_(window) {}

    using Alerts::show;
    void show(const Alert& alert, std::function<void(int button)> answered) override;

 private:
    QPointer<QWidget> window_;
};

}  // namespace tarvin
