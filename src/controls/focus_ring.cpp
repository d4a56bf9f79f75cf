#include "controls/focus_ring.h"

#include "controls/painting.h"

namespace tarvin {

namespace {

QMargins marginsOf(FocusRing::Position position) {
    constexpr int room = focusRingWidth + focusRingGap;
    return position == FocusRing::Position::outside
               ? QMargins(room, room, room, room)
               : QMargins(-focusRingGap, -focusRingGap, -focusRingGap, -focusRingGap);
}

}  // namespace

bool focusIsShown(const QWidget& widget, Qt::FocusReason reason) {
    switch (reason) {
        case Qt::MouseFocusReason:
            return false;
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            return true;
        default:
            return widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
    }
}

void paintFocusRing(QPainter& painter, const QRectF& rect, const QColor& color) {
    paintFrame(painter, rect, focusRingWidth, color);
}

FocusRing::FocusRing(QWidget& target, Position position, const QColor& color)
    : AttachedDrawing(target, marginsOf(position), Layer::above), color_(color) {
    setObjectName(QStringLiteral("focusRing"));
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFocusRing(painter, rect(), color_);
}

}  // namespace tarvin
