#include "interface/close_button.h"

#include "controls/look.h"

namespace tarvin {

CloseButton::CloseButton(QWidget* parent) : PaintedButton(parent) {
    setFocusRing(FocusRing::Place::inside, look::focusRing);
    setAccessibleName(tr("Close"));
}

void CloseButton::draw(QPainter& painter) {
    if (hovering()) {
        painter.fillRect(rect(), isDown() ? look::line : look::frame);
    }
    constexpr double arm = 4.5;
    const QPointF middle = QRectF(rect()).center();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::ink, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
    painter.drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
}

}  // namespace tarvin
