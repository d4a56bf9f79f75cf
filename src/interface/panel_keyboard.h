#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>
#include <functional>
#include <utility>

class QAbstractButton;
class QKeyEvent;

namespace tarvin {

/// The keyboard handling of a panel while it is shown: one control has the focus first, Tab cycles
/// inside, Esc activates the safe answer, and the focus returns to its former control when the
/// panel is hidden. Owned by the panel. Main thread only.
class PanelKeyboard final {
 public:
    explicit PanelKeyboard(QWidget* panel) : panel_(panel) {}

    /// `controls` in reading order, `first` and `safe` among them.
    void setAnswers(const QVector<QWidget*>& controls, QWidget* first, QAbstractButton* safe);

    /// Called when the panel is hidden and the focus cannot return.
    void setFallback(std::function<void()> fallback) { fallback_ = std::move(fallback); }

    /// Call it when the panel was shown or hidden.
    void take();
    void giveBack();

    /// Call it when `next` replaces this panel: hiding `next` will return the focus to where it was
    /// before this panel was shown.
    void handOver(PanelKeyboard& next);

    /// Focuses the next or the previous control inside.
    void moveOn(bool next);

    /// Handles a key. Returns whether it was one of the panel's.
    bool press(const QKeyEvent& event);

    /// Focuses the first control.
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
