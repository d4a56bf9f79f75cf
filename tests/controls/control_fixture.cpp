#include "controls/control_fixture.h"

#include "support/on_screen.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QTest>
#include <QWindow>
#include <cmath>

namespace tarvin {

UntoldPointer::UntoldPointer() {
    qApp->installEventFilter(this);
}

bool UntoldPointer::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::MouseMove:
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

ControlFixture::ControlFixture(const QColor& background) {
    QPalette colors = window_.palette();
    colors.setColor(QPalette::Window, background);
    window_.setPalette(colors);
    window_.setAutoFillBackground(true);
    // Both windows fit on the screen of the offscreen platform, 400 x 400 at device pixel ratio 2.
    window_.setGeometry(10, 10, 300, 250);
    other_.setGeometry(330, 10, 50, 50);
    window_.show();
    activate();
    movePointerAway();
}

ControlFixture::~ControlFixture() {
    movePointerAway();
}

void ControlFixture::movePointer(const QPoint& position) {
    QCursor::setPos(window_.mapToGlobal(position));
    QCoreApplication::processEvents();
    // At device pixel ratio 2 the offscreen platform misplaces the events of the line above.
    QTest::mouseMove(window_.windowHandle(), position);
    QCoreApplication::processEvents();
}

void ControlFixture::movePointerTo(const QWidget& control) {
    movePointer(control.mapTo(&window_, control.rect().center()));
}

void ControlFixture::movePointerAway() {
    QCursor::setPos(window_.mapToGlobal(QPoint(-8, -8)));
    QCoreApplication::processEvents();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(window_.windowHandle(), &leave);
}

void ControlFixture::loseThePointer() {
    const UntoldPointer untold;
    QCursor::setPos(window_.mapToGlobal(QPoint(-8, -8)));
    QCoreApplication::processEvents();
}

void ControlFixture::deactivate() {
    other_.show();
    other_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other_));
}

void ControlFixture::activate() {
    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
}

Qt::CursorShape ControlFixture::cursor() const {
    return window_.windowHandle()->cursor().shape();
}

QColor ControlFixture::at(double x, double y) {
    const QImage whole = window_.grab().toImage();
    const double ratio = whole.devicePixelRatio();
    return whole.pixelColor(static_cast<int>(std::floor(x * ratio)),
                            static_cast<int>(std::floor(y * ratio)));
}

bool ControlFixture::isShownAt(double x, double y, const QColor& color) const {
    return QTest::qWaitFor(
        [&] {
            const QImage whole = onScreen(window_);
            const double ratio = window_.devicePixelRatio();
            return isNear(whole.pixelColor(static_cast<int>(std::floor(x * ratio)),
                                           static_cast<int>(std::floor(y * ratio))),
                          color);
        },
        20'000);
}

bool ControlFixture::holds(const QRect& part, const QColor& color) {
    const QImage image = screenshot(part);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isNear(image.pixelColor(x, y), color)) {
                return true;
            }
        }
    }
    return false;
}

QImage ControlFixture::screenshot(const QRect& part) {
    return window_.grab(part).toImage();
}

bool isNear(const QColor& one, const QColor& other) {
    return testing::Matches(IsRgb(other.red(), other.green(), other.blue()))(one);
}

QRect inkBounds(const QImage& image, const QColor& background) {
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!isNear(image.pixelColor(x, y), background)) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

}  // namespace tarvin
