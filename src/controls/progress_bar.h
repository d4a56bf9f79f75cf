#pragma once

#include "controls/motion.h"

#include <QProgressBar>

namespace tarvin {

/// The interval between updates of a run's display; 30 a second look fluid.
inline constexpr int redrawMilliseconds = 33;

/// A flat progress bar, teal on a light line, 10 logical pixels high. While the total is unknown, a
/// segment moves from left to right in 1.4 s. Owned by its parent. Main thread only.
class ProgressBar final : public QProgressBar {
    Q_OBJECT

 public:
    explicit ProgressBar(QWidget* parent = nullptr);

    /// The total. A total of 0 shows nothing done.
    void setTotal(quint64 total);
    [[nodiscard]] quint64 total() const { return total_; }

    /// The amount done; clamped to the total.
    void setDone(quint64 done);
    [[nodiscard]] quint64 done() const { return done_; }

    /// From 0 to 1; 1 only if everything is done.
    [[nodiscard]] double fraction() const;

    void setIndeterminate(bool indeterminate);
    [[nodiscard]] bool isIndeterminate() const { return indeterminate_; }

    /// Whether a sheen moves over the bar, for work whose value may not change for long: white over
    /// the filled part, teal over the rest. Disabled with reduced motion.
    void setSheen(bool sheen);
    [[nodiscard]] bool hasSheen() const { return sheen_; }

    [[nodiscard]] const LoopClock& clock() const { return clock_; }
    [[nodiscard]] LoopClock& clock() { return clock_; }

    [[nodiscard]] QSize sizeHint() const override { return {640, 10}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 10}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void refresh();
    void paintSheen(QPainter& painter, const QRectF& filled, const QRectF& rest) const;

    LoopClock clock_;
    quint64 total_ = 0;
    quint64 done_ = 0;
    bool indeterminate_ = false;
    bool sheen_ = false;
};

}  // namespace tarvin
