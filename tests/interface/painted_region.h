#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

namespace tarvin {

/// Records what a widget paints.
class PaintedRegion final : public QObject {
 public:
    explicit PaintedRegion(QWidget* widget) {
        // Earlier paint events.
        QCoreApplication::processEvents();
        widget->installEventFilter(this);
    }

    /// The recorded region after processing pending events.
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
