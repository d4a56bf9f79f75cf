#pragma once

#include <QObject>
#include <QVariantAnimation>
#include <QWidget>
#include <optional>

namespace tarvin {

/// Whether ornamental movement is to be left out. Follows the style's own animations unless
/// something else was said. Main thread.
[[nodiscard]] bool reducedMotion();

/// Says whether ornamental movement is to be left out; none: as the style has it.
void setReducedMotion(std::optional<bool> reduced);

/// Moves a phase from 0 to 1 again and again and repaints its owner each time. Runs only while it
/// was started and the owner is visible. Belongs to its owner; main thread.
class LoopClock final : public QObject {
    Q_OBJECT

 public:
    LoopClock(QWidget& owner, int milliseconds);

    /// Goes on from the phase it has.
    void start();
    void stop();

    [[nodiscard]] bool isStarted() const { return started_; }
    /// Whether the phase is moving now.
    [[nodiscard]] bool isRunning() const;

    /// At least 0 and less than 1.
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
