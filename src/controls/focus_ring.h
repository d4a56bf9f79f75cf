#pragma once

#include "controls/attached_drawing.h"

#include <QColor>
#include <QFocusEvent>
#include <QPainter>
#include <QRectF>

namespace tarvin {

/// The ring that says where the keyboard is: 2 logical pixels wide, with a gap of 2 to its control.
inline constexpr int focusRingWidth = 2;
inline constexpr int focusRingGap = 2;

/// Whether a focus that a widget receives is to be shown: it came with the keyboard, or the
/// keyboard was the last to move it in this window.
[[nodiscard]] bool focusIsShown(const QWidget& widget, Qt::FocusReason reason);

/// The ring just inside `rect`.
void paintFocusRing(QPainter& painter, const QRectF& rect, const QColor& color);

/// The ring round one control, or, for a control that has no room round it, inside its edge. Made
/// by the control when it is needed first; owned by the control's parent. Main thread.
class FocusRing final : public AttachedDrawing {
    Q_OBJECT

 public:
    enum class Place { outside, inside };

    FocusRing(QWidget& target, Place place, const QColor& color);

    void setColor(const QColor& color);
    [[nodiscard]] QColor color() const { return color_; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QColor color_;
};

}  // namespace tarvin
