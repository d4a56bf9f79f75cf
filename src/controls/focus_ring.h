#pragma once

#include "controls/attached_drawing.h"

#include <QColor>
#include <QFocusEvent>
#include <QPainter>
#include <QRectF>

namespace tarvin {

/// The focus ring: 2 logical pixels wide, with a gap of 2 to its control.
inline constexpr int focusRingWidth = 2;
inline constexpr int focusRingGap = 2;

/// Whether to show a focus that a widget has received: it was set by the keyboard, or the keyboard
/// was the last to move the focus in this window.
[[nodiscard]] bool focusIsShown(const QWidget& widget, Qt::FocusReason reason);

/// Paints the ring just inside `rect`.
void paintFocusRing(QPainter& painter, const QRectF& rect, const QColor& color);

/// The ring around one control or, if there is no room around it, inside its edge. Created by the
/// control on first use; owned by the control's parent. Main thread only.
class FocusRing final : public AttachedDrawing {
    Q_OBJECT

 public:
    enum class Position { outside, inside };

    FocusRing(QWidget& target, Position position, const QColor& color);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    const QColor color_;
};

}  // namespace tarvin
