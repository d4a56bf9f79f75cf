#pragma once

#include <QEvent>
#include <QWidget>

namespace tarvin::bench {

/// Whether a widget has been painted since forget(). Main thread only.
class PaintWatch final : public QObject {
 public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

    void forget() { painted_ = false; }
    [[nodiscard]] bool isPainted() const { return painted_; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

 private:
    bool painted_ = false;
};

}  // namespace tarvin::bench
