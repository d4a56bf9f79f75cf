#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>
#include <functional>
#include <utility>

class QAbstractButton;
class QKeyEvent;

namespace tarvin {

/// What every panel does with the keyboard while it is shown: one control has it at first, Tab goes
/// round inside, Esc presses the safe answer, and when the panel goes the keyboard returns to where
/// it was. Belongs to the panel. Main thread.
class PanelKeyboard final {
 public:
    explicit PanelKeyboard(QWidget* panel) : panel_(panel) {}

    /// `controls` in reading order; `first` and `safe` are among them.
    void setAnswers(const QVector<QWidget*>& controls, QWidget* first, QAbstractButton* safe);

    /// What is done when the panel goes and the keyboard cannot return to where it was.
    void setFallback(std::function<void()> fallback) { fallback_ = std::move(fallback); }

    /// The panel has come or gone.
    void take();
    void giveBack();

    /// `next` has come in the place of this panel, which goes now: where the keyboard was before,
    /// it returns to when that one goes.
    void handOver(PanelKeyboard& next);

    /// Moves on to the next or the previous control inside.
    void moveOn(bool next);

    /// Whether the key was meant for the panel and has had its effect.
    bool press(const QKeyEvent& event);

    /// Gives the keyboard to the control that has it first.
    void begin();

 private:
    QWidget* panel_;
    QVector<QWidget*> controls_;
    QWidget* first_ = nullptr;
    QAbstractButton* safe_ = nullptr;
    QPointer<QWidget> before_;
    bool handedOver_ = false;
    std::function<void()> fallback_;
};

}  // namespace tarvin
