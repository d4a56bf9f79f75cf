#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace tarvin {

/// The pixels of a widget on the screen, after pending paint events. Unlike QWidget::grab() it does
/// not paint: a missing update() is visible. Requires that the widget's window is shown and not
/// covered.
inline QImage onScreen(const QWidget& widget) {
    QCoreApplication::processEvents();
    const QWidget& window = *widget.window();
    const QImage whole = window.screen()->grabWindow(window.winId()).toImage();
    const qreal ratio = whole.devicePixelRatio();
    const QPointF corner = widget.mapTo(&window, QPointF(0, 0));
    const QRectF area(corner * ratio, QSizeF(widget.size()) * ratio);
    return whole.copy(area.toRect()).convertToFormat(QImage::Format_RGB32);
}

/// The pixels of the widget when it is painted now.
inline QImage paintedAnew(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether the pixels on the screen equal those that the widget would paint now.
inline bool isUpToDate(QWidget& widget) {
    const QImage shown = onScreen(widget);
    return shown == paintedAnew(widget);
}

}  // namespace tarvin
