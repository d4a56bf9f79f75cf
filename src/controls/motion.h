#pragma once

#include <QObject>
#include <QVariantAnimation>
#include <QWidget>
#include <optional>

namespace tarvin {

/// Whether decorative animations are disabled. By default as in the style. Main thread only.
[[nodiscard]] bool reducedMotion();

/// Disables or enables decorative animations; nullopt: as in the style.
void setReducedMotion(std::optional<bool> reduced);

/// Cycles a phase from 0 to 1 and repaints its owner each time. Runs while it is started and the
/// owner is visible. Owned by its owner. Main thread only.
class LoopClock final : public QObject {
    Q_OBJECT

 public:
    LoopClock(QWidget& owner, int milliseconds);

    /// Continues from the present phase.
    void start();
    void stop();

    [[nodiscard]] bool isStarted() const { return started_; }
    /// Whether the phase is moving now.
    [[nodiscard]] bool isRunning() const;

    /// In [0, 1).
    [[nodiscard]] double phase() const;
    void setPhase(double phase);

    [[nodiscard]] int duration() const { return animation_.duration(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void runOrPause();

    QWidget& owner_;
    QVariantAnimation animation_;
    bool started_ = false;
};

}  // namespace tarvin
