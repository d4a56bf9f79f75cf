#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QVector>
#include <QWidget>

namespace tarvin {

/// Keeps the mouse from what has just come under it: for as long as two clicks can be one double
/// click (QApplication::doubleClickInterval()), presses inside the areas do nothing. A person who
/// clicks twice meant what was there before. Panels that lie over the areas are free. Belongs to
/// the window; main thread.
class PressGuard final : public QObject {
    Q_OBJECT

 public:
    explicit PressGuard(QWidget* window) : QObject(window), window_(window) {}

    /// Children of the window, which live as long as the guard.
    void setAreas(const QVector<const QWidget*>& areas) { areas_ = areas; }

    /// Something else is shown from now on.
    void begin();
    /// Whether a press would do nothing now.
    [[nodiscard]] bool isActive() const { return !rest_.hasExpired(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] bool isInside(const QWidget* widget) const;
    [[nodiscard]] const QWidget* target(QObject* watched, const QEvent& event) const;
    [[nodiscard]] bool holdsBack(QObject* watched, const QEvent& event);

    QWidget* window_;
    QVector<const QWidget*> areas_;
    QDeadlineTimer rest_{0};
    bool holdsRelease_ = false;  // that of a press that was held back
};

}  // namespace tarvin
