#pragma once

#include <QPainter>
#include <QRect>

namespace tarvin {

/// The side of a check box in the location list, in logical pixels; trees and result lists use 16.
inline constexpr int checkBoxSide = 18;

/// Paints a check box that fills the square `box`. A disabled one is painted at opacity 0.45.
void paintCheckBox(QPainter& painter, const QRect& box, Qt::CheckState state, bool enabled = true);

/// The square of side `side`, centred in `cell`.
[[nodiscard]] QRect checkBoxIn(const QRect& cell, int side = checkBoxSide);

/// Where a click in `cell` hits its check box: up to 8 logical pixels outside the box.
[[nodiscard]] QRect checkBoxReach(const QRect& cell, int side = checkBoxSide);

}  // namespace tarvin
