#include "interface/press_guard.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace tarvin {

void PressGuard::begin() {
    rest_.setRemainingTime(QApplication::doubleClickInterval());
    // Sees every event of the program, but only until the next press.
    qApp->installEventFilter(this);
}

bool PressGuard::isInside(const QWidget* widget) const {
    return widget != nullptr &&
           std::any_of(areas_.begin(), areas_.end(), [widget](const QWidget* area) {
               return area == widget || area->isAncestorOf(widget);
           });
}

/// The window receives the event before its widgets and moves the focus.
const QWidget* PressGuard::target(QObject* watched, const QEvent& event) const {
    if (watched->isWidgetType()) {
        return static_cast<const QWidget*>(watched);
    }
    return watched == window_->windowHandle()
               ? window_->childAt(static_cast<const QMouseEvent&>(event).position().toPoint())
               : nullptr;
}

bool PressGuard::holdsBack(QObject* watched, const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            holdsRelease_ = isActive() && isInside(target(watched, event));
            if (!isActive()) {
                qApp->removeEventFilter(this);
            }
            return holdsRelease_;
        case QEvent::MouseButtonRelease:
            return target(watched, event) != nullptr && std::exchange(holdsRelease_, false);
        default:
            return false;
    }
}

bool PressGuard::eventFilter(QObject* watched, QEvent* event) {
    if (holdsBack(watched, *event)) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tarvin
