#include "controls/painted_button.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "controls/popup_watch.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QWindow>
#include <algorithm>

namespace tarvin {

namespace {

bool isReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

PaintedButton::PaintedButton(QWidget* parent, Tracking tracking)
    : QPushButton(parent), tracking_(tracking), ringColor_(look::focusRing) {
    setFocusPolicy(Qt::StrongFocus);
    connect(&PopupWatch::instance(), &PopupWatch::closed, this,
            &PaintedButton::updateTrackingAreas);
    if (tracking == Tracking::inActiveApplication) {
        connect(qApp, &QGuiApplication::applicationStateChanged, this,
                &PaintedButton::updateTrackingAreas);
    }
}

void PaintedButton::setAlpha(double alpha) {
    alpha_ = std::clamp(alpha, 0.0, 1.0);
    update();
}

void PaintedButton::setTitle(const QString& title) {
    if (accessibleName().isEmpty() || accessibleName() == text()) {
        setAccessibleName(title);
    }
    setText(title);
    // Titles have no mnemonics: an ampersand is shown.
    setShortcut({});
}

void PaintedButton::setFocusRing(FocusRing::Position position, const QColor& color) {
    delete ring_;
    ringPosition_ = position;
    ringColor_ = color;
}

bool PaintedButton::showsFocusRing() const {
    return ring_ != nullptr && ring_->isWanted();
}

void PaintedButton::setFocusAfterDisabling(const QVector<QWidget*>& controls) {
    afterDisabling_.clear();
    for (QWidget* control : controls) {
        afterDisabling_.push_back(control);
    }
}

void PaintedButton::updateTrackingAreas() {
    const bool inside =
        isVisible() && isTracked() && QApplication::widgetAt(QCursor::pos()) == this;
    if (inside) {
        enter();
    } else if (hovering_) {
        exit();
    }
}

void PaintedButton::setHovering(bool hovering) {
    hovering_ = hovering;
    update();
}

void PaintedButton::showCursor(Qt::CursorShape shape) {
    setCursor(shape);
    if (hovering_ && !isEnabled()) {
        borrowedCursor_.show(*this, shape);
    } else {
        borrowedCursor_.giveBack();
    }
    // Qt updates the cursor when the pointer moves, not when a widget below it changes.
    QWidget* native = nativeParentWidget();
    if (hovering_ && native != nullptr && native->windowHandle() != nullptr) {
        native->windowHandle()->setCursor(shape);
    }
}

bool PaintedButton::isTracked() const {
    switch (tracking_) {
        case Tracking::inKeyWindow:
            return isActiveWindow();
        case Tracking::inActiveApplication:
            return QGuiApplication::applicationState() == Qt::ApplicationActive;
        case Tracking::always:
            break;
    }
    return true;
}

void PaintedButton::enter() {
    setHovering(true);
    mouseEntered();
}

void PaintedButton::exit() {
    setHovering(false);
    mouseExited();
    borrowedCursor_.giveBack();
}

void PaintedButton::showRing(bool shown) {
    if (shown && ring_ == nullptr && parentWidget() != nullptr) {
        ring_ = new FocusRing(*this, ringPosition_, ringColor_);
    }
    if (ring_ != nullptr) {
        ring_->setWanted(shown);
    }
}

bool PaintedButton::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // The focused button takes Return before the shortcuts of the screen.
            if (isReturn(static_cast<QKeyEvent&>(*event))) {
                event->accept();
                return true;
            }
            break;
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            if (tracking_ == Tracking::inKeyWindow) {
                updateTrackingAreas();
            }
            break;
        default:
            break;
    }
    // The event of a click can delete the button; those below cannot.
    const QEvent::Type type = event->type();
    const bool handled = QPushButton::event(event);
    if (type == QEvent::Show || type == QEvent::Hide || type == QEvent::Move ||
        type == QEvent::Resize) {
        updateTrackingAreas();
    }
    return handled;
}

/// Called when Tab leaves the button, or while it is being disabled.
bool PaintedButton::focusNextPrevChild(bool next) {
    if (!isEnabled()) {
        for (const QPointer<QWidget>& control : afterDisabling_) {
            if (control != nullptr && control->isVisible() && control->isEnabled()) {
                control->setFocus(Qt::OtherFocusReason);
                return true;
            }
        }
    }
    return QPushButton::focusNextPrevChild(next);
}

void PaintedButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        borrowedCursor_.giveBack();
        updateTrackingAreas();
    }
    QPushButton::changeEvent(event);
}

void PaintedButton::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    if (isTracked()) {
        enter();
    }
}

void PaintedButton::leaveEvent(QEvent* event) {
    QPushButton::leaveEvent(event);
    exit();
}

void PaintedButton::focusInEvent(QFocusEvent* event) {
    QPushButton::focusInEvent(event);
    showRing(focusIsShown(*this, event->reason()));
}

void PaintedButton::focusOutEvent(QFocusEvent* event) {
    QPushButton::focusOutEvent(event);
    showRing(false);
}

void PaintedButton::keyPressEvent(QKeyEvent* event) {
    if (!isReturn(*event)) {
        QPushButton::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat()) {
        click();
    }
}

/// The slots of a click may move the button away from the pointer without an event.
void PaintedButton::mouseReleaseEvent(QMouseEvent* event) {
    const QPointer<PaintedButton> remains(this);
    QPushButton::mouseReleaseEvent(event);
    if (remains != nullptr) {
        updateTrackingAreas();
    }
}

void PaintedButton::nextCheckState() {
    if (!signalsBlocked()) {
        QPushButton::nextCheckState();
    }
}

void PaintedButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFaded(painter, rect(), shownOpacity(), [this](QPainter& inside) { draw(inside); });
}

}  // namespace tarvin
