#pragma once

#include <QFont>
#include <QModelIndex>
#include <QRect>

class QHelpEvent;
class QWidget;

namespace tarvin {

/// Shows the tool tip of a cell whose text does not fit into `area` in `font`: Qt::ToolTipRole as
/// it is, or else the text with markup escaped, on one line. Hides the tool tip if the text fits.
/// Main thread only.
void showFullText(const QHelpEvent& event, QWidget* viewport, const QRect& area, const QFont& font,
                  const QModelIndex& cell);

}  // namespace tarvin
