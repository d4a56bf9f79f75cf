#pragma once

#include "controls/motion.h"

#include <QPointF>
#include <QWidget>

namespace tarvin {

/// The animation of a running scan: a lens that circles over three sheets in 2.4 s; 288 x 216
/// logical pixels. Keeps its position when stopped; does not move with reduced motion. Owned by its
/// parent. Main thread only.
class ScanAnimation final : public QWidget {
    Q_OBJECT

 public:
    explicit ScanAnimation(QWidget* parent = nullptr);

    void startAnimation();
    void stopAnimation();
    /// Whether it was started, visible or not.
    [[nodiscard]] bool isAnimating() const { return started_; }

    /// The upper left corner of the lens.
    [[nodiscard]] QPointF lensPosition() const;

    [[nodiscard]] const LoopClock& clock() const { return clock_; }
    [[nodiscard]] LoopClock& clock() { return clock_; }

    [[nodiscard]] QSize sizeHint() const override { return {288, 216}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    LoopClock clock_;
    bool started_ = false;
};

}  // namespace tarvin
