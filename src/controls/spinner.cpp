#include "controls/spinner.h"

#include "controls/look.h"

#include <QPainter>
#include <algorithm>

namespace tarvin {

namespace {

constexpr int turnMilliseconds = 900;
constexpr QColor ringColor{207, 237, 241};

}  // namespace

Spinner::Spinner(QWidget* parent) : QWidget(parent), clock_(*this, turnMilliseconds) {}

void Spinner::paintEvent(QPaintEvent*) {
    constexpr double side = 44;
    constexpr double stroke = 5;
    constexpr int degree = 16;  // QPainter angles are in 1/16 degrees
    constexpr int quarter = 90 * degree;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    const double scale = std::min(width(), height()) / side;
    painter.scale(scale, scale);
    const QRectF circle(-18, -18, 36, 36);
    painter.setPen(QPen(ringColor, stroke));
    painter.drawEllipse(circle);
    painter.setPen(QPen(look::teal, stroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, quarter - static_cast<int>(clock_.phase() * 360 * degree), -quarter);
}

}  // namespace tarvin
