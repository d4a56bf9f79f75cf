#pragma once

#include <QObject>
#include <QVector>
#include <QWidget>

namespace tarvin {

class PanelKeyboard;

/// Tracks which panels of a window are shown and keeps the focus inside the one shown last: a click
/// outside it works but does not take the focus. Owned by the window. Main thread only.
class OpenPanels final : public QObject {
    Q_OBJECT

 public:
    explicit OpenPanels(QWidget* window);

    /// Tracks `panel` from now on.
    void watch(QWidget* panel, PanelKeyboard* keyboard);

    [[nodiscard]] bool any() const { return !shown_.isEmpty(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    /// any() has changed.
    void anyChanged(bool any);
    /// A panel was hidden, and the control that had the focus before cannot take it back.
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
    QVector<Watched> shown_;  ///< oldest first
};

}  // namespace tarvin
