#pragma once

#include "controls/motion.h"

#include <QProgressBar>

namespace tarvin {

/// How often what is told of a run is shown anew; 30 times a second look fluid.
inline constexpr int redrawMilliseconds = 33;

/// A flat bar, teal on a light line, 10 logical pixels high. It shows how much of a total is done,
/// or, while the total is unknown, a piece that wanders from left to right in 1.4 s. Owned by its
/// parent; main thread.
class ProgressBar final : public QProgressBar {
    Q_OBJECT

 public:
    explicit ProgressBar(QWidget* parent = nullptr);

    /// How much there is to do. Nothing to do counts as nothing done.
    void setTotal(quint64 total);
    [[nodiscard]] quint64 total() const { return total_; }

    /// How much is done; more than the total counts as all.
    void setDone(quint64 done);
    [[nodiscard]] quint64 done() const { return done_; }

    /// From 0 to 1. It is 1 only if everything is done.
    [[nodiscard]] double fraction() const;

    void setIndeterminate(bool indeterminate);
    [[nodiscard]] bool isIndeterminate() const { return indeterminate_; }

    /// Lets a light run over the whole bar, for work whose value may stand still: white over what
    /// is filled, teal over the rest. It rests when movement is reduced.
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
