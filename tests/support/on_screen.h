#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace tarvin {

/// What the screen shows of a widget, in pixels, once all that is due has been painted. Unlike
/// QWidget::grab() it paints nothing by itself: a part that had to be painted again and was not is
/// seen as it is. The widget's window is shown and nothing lies over it.
inline QImage onScreen(const QWidget& widget) {
    QCoreApplication::processEvents();
    const QWidget& window = *widget.window();
    const QImage whole = window.screen()->grabWindow(window.winId()).toImage();
    const qreal density = whole.devicePixelRatio();
    const QPointF corner = widget.mapTo(&window, QPointF(0, 0));
    const QRectF place(corner * density, QSizeF(widget.size()) * density);
    return whole.copy(place.toRect()).convertToFormat(QImage::Format_RGB32);
}

/// The same widget painted anew, as it has to be seen.
inline QImage paintedAnew(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether the screen shows of a widget what it would paint now.
inline bool isUpToDate(QWidget& widget) {
    const QImage shown = onScreen(widget);
    return shown == paintedAnew(widget);
}

}  // namespace tarvin
