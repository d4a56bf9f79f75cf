#pragma once

#include "controls/motion.h"

#include <QWidget>

namespace tarvin {

/// A teal arc that turns once in 0.9 s on a pale ring; 44 x 44 logical pixels. Owned by its parent.
/// Main thread only.
class Spinner final : public QWidget {
    Q_OBJECT

 public:
    explicit Spinner(QWidget* parent = nullptr);

    void startAnimation() { clock_.start(); }
    void stopAnimation() { clock_.stop(); }
    [[nodiscard]] bool isAnimating() const { return clock_.isStarted(); }

    [[nodiscard]] const LoopClock& clock() const { return clock_; }
    [[nodiscard]] LoopClock& clock() { return clock_; }

    [[nodiscard]] QSize sizeHint() const override { return {44, 44}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    LoopClock clock_;
};

}  // namespace tarvin
