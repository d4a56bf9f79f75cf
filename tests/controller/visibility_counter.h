#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace tarvin {

/// Counts how often a widget is shown and hidden. The widget must outlive this object.
class VisibilityCounter final : public QObject {
 public:
    explicit VisibilityCounter(QWidget* widget) { widget->installEventFilter(this); }

    [[nodiscard]] int shown() const { return shown_; }
    [[nodiscard]] int hidden() const { return hidden_; }

 protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        shown_ += event->type() == QEvent::Show ? 1 : 0;
        hidden_ += event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }

 private:
    int shown_ = 0;
    int hidden_ = 0;
};

}  // namespace tarvin
