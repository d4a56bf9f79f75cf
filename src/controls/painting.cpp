#include "controls/painting.h"

#include "controls/plain_text.h"

#include <QFontMetrics>
#include <QPixmap>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace tarvin {

double devicePixelRatioOf(const QPainter& painter) {
    // The widget's own ratio would be wrong when it is painted into an image of another one.
    const QTransform toDevice = painter.deviceTransform();
    return std::hypot(toDevice.m11(), toDevice.m12());
}

QColor darkened(const QColor& color) {
    constexpr double kept = 0.88;
    return QColor::fromRgbF(static_cast<float>(color.redF() * kept),
                            static_cast<float>(color.greenF() * kept),
                            static_cast<float>(color.blueF() * kept), color.alphaF());
}

void paintFrame(QPainter& painter, const QRectF& rect, double width, const QColor& color) {
    // Whole device pixels, otherwise the sides differ in width at ratios such as 1.5.
    const double ratio = devicePixelRatioOf(painter);
    const double side = std::max(1.0, std::round(width * ratio)) / ratio;
    const double inner = rect.height() - 2 * side;
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), side), color);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - side, rect.width(), side), color);
    painter.fillRect(QRectF(rect.left(), rect.top() + side, side, inner), color);
    painter.fillRect(QRectF(rect.right() - side, rect.top() + side, side, inner), color);
}

void paintFaded(QPainter& painter, const QRect& rect, double opacity,
                const std::function<void(QPainter& painter)>& paint) {
    if (opacity >= 1) {
        paint(painter);
        return;
    }
    const double ratio = devicePixelRatioOf(painter);
    // Whole device pixels; the last one may be clipped.
    QPixmap layer(static_cast<int>(std::ceil(rect.width() * ratio)),
                  static_cast<int>(std::ceil(rect.height() * ratio)));
    layer.setDevicePixelRatio(ratio);
    layer.fill(Qt::transparent);
    QPainter inside(&layer);
    inside.setFont(painter.font());
    inside.setPen(painter.pen());
    inside.setLayoutDirection(painter.layoutDirection());
    inside.translate(-rect.topLeft());
    paint(inside);
    inside.end();
    painter.save();
    painter.setOpacity(painter.opacity() * opacity);
    painter.drawPixmap(rect.topLeft(), layer);
    painter.restore();
}

void paintLine(QPainter& painter, const QRect& rect, const QString& text, const QFont& font,
               const QColor& color, Qt::Alignment alignment, Qt::TextElideMode elide) {
    const QString line = singleLine(text);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(line, elide, rect.width()));
}

}  // namespace tarvin
