#include "controls/radio_button.h"

#include "controls/focus_ring.h"
#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace tarvin {

namespace {

constexpr int circleSide = 18;
constexpr int labelGap = 8;
constexpr int radioHeight = 24;
constexpr int labelLeft = RadioButton::ringRoom + circleSide + labelGap;

}  // namespace

RadioButton::RadioButton(const QString& text, QWidget* parent) : QRadioButton(text, parent) {
    setFont(look::font(13));
}

QSize RadioButton::sizeHint() const {
    return {labelLeft + QFontMetrics(font()).horizontalAdvance(text()) + ringRoom, radioHeight};
}

bool RadioButton::hitButton(const QPoint& position) const {
    return QRect(QPoint(0, 0), QSize(sizeHint().width(), height())).contains(position);
}

void RadioButton::focusInEvent(QFocusEvent* event) {
    QRadioButton::focusInEvent(event);
    showRing(focusIsShown(*this, event->reason()));
}

void RadioButton::focusOutEvent(QFocusEvent* event) {
    QRadioButton::focusOutEvent(event);
    showRing(false);
}

void RadioButton::showRing(bool shown) {
    showsFocusRing_ = shown;
    update();
}

void RadioButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect circle(ringRoom, (height() - circleSide) / 2, circleSide, circleSide);
    const QString name =
        isChecked() ? QStringLiteral("ui/radio_on") : QStringLiteral("ui/radio_off");
    painter.drawPixmap(circle.topLeft(), picture(name, circle.size(), devicePixelRatioOf(painter)));
    paintLine(painter, {labelLeft, 0, width() - labelLeft, height()}, text(), font(), look::ink);
    if (showsFocusRing_) {
        paintFocusRing(painter, QRectF(0, 0, std::min(sizeHint().width(), width()), height()),
                       look::focusRing);
    }
}

}  // namespace tarvin
