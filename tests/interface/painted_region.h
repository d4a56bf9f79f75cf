#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

namespace tarvin {

/// What a widget paints from the making of this on.
class PaintedRegion final : public QObject {
 public:
    explicit PaintedRegion(QWidget* widget) {
        // Whatever is still to be painted from before.
        QCoreApplication::processEvents();
        widget->installEventFilter(this);
    }

    /// So far, once everything is painted that is to be.
    QRect bounds() {
        QCoreApplication::processEvents();
        return region_.boundingRect();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            region_ += static_cast<QPaintEvent*>(event)->region();
        }
        return QObject::eventFilter(watched, event);
    }

 private:
    QRegion region_;
};

}  // namespace tarvin
