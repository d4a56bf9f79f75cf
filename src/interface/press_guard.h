#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QVector>
#include <QWidget>

namespace tarvin {

/// Ignores mouse presses inside some areas for the duration of a double click
/// (QApplication::doubleClickInterval()) after their content has changed: the second click was
/// meant for the former content. Panels above the areas are not affected. Owned by the window. Main
/// thread only.
class PressGuard final : public QObject {
    Q_OBJECT

 public:
    explicit PressGuard(QWidget* window) : QObject(window), window_(window) {}

    /// Children of the window, which must outlive the guard.
    void setAreas(const QVector<const QWidget*>& areas) { areas_ = areas; }

    /// Call it when the content changes.
    void begin();
    /// Whether presses are ignored now.
    [[nodiscard]] bool isActive() const { return !rest_.hasExpired(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] bool isInside(const QWidget* widget) const;
    [[nodiscard]] const QWidget* target(QObject* watched, const QEvent& event) const;
    [[nodiscard]] bool holdsBack(QObject* watched, const QEvent& event);

    QWidget* window_;
    QVector<const QWidget*> areas_;
    QDeadlineTimer rest_{0};
    bool holdsRelease_ = false;  // the release of an ignored press
};

}  // namespace tarvin
