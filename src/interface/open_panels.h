#pragma once

#include <QObject>
#include <QVector>
#include <QWidget>

namespace tarvin {

class PanelKeyboard;

/// Knows which panels of a window are shown, and keeps the keyboard inside the one that came last:
/// a click beside it works, but the focus does not follow. Belongs to the window. Main thread.
class OpenPanels final : public QObject {
    Q_OBJECT

 public:
    explicit OpenPanels(QWidget* window);

    /// Watches `panel` from now on.
    void watch(QWidget* panel, PanelKeyboard* keyboard);

    [[nodiscard]] bool any() const { return !shown_.isEmpty(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    /// any() has changed.
    void anyChanged(bool any);
    /// A panel has gone, and where the keyboard was before it cannot be now.
    void keyboardFree();

 private:
    struct Watched {
        QWidget* panel = nullptr;
        PanelKeyboard* keyboard = nullptr;
    };

    void keepKeyboardInside(QWidget* now);
    void setShown(QObject* panel, bool shown);

    QWidget* window_;
    QVector<Watched> watched_;
    QVector<Watched> shown_;  ///< in the order in which they came
};

}  // namespace tarvin
