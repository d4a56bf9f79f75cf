#include "controller/preview_placeholder.h"

#include "controller/result_texts.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPointF>
#include <QtMath>

namespace tarvin {

namespace {

constexpr int side = 250;
constexpr QPointF corner{10, 120};  // lower left of the text, from that of the image
constexpr int fontSize = 18;
constexpr int smallestFontSize = 9;

QFont fontFor(const QString& text) {
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(fontSize);  // points, before the device pixel ratio is applied
    while (font.pixelSize() > smallestFontSize &&
           QFontMetricsF(font).horizontalAdvance(text) > side - corner.x()) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}

}  // namespace

QImage previewPlaceholder(qreal pixelsPerPoint) {
    const int pixels = qCeil(side * pixelsPerPoint);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelsPerPoint);
    image.fill(Qt::transparent);
    const QString text = ResultTexts::doubleClickToOpen();
    QPainter painter(&image);
    painter.setFont(fontFor(text));
    painter.setPen(Qt::black);
    const qreal baseline = side - corner.y() - QFontMetricsF(painter.font()).descent();
    painter.drawText(QPointF(corner.x(), baseline), text);
    return image;
}

}  // namespace tarvin
