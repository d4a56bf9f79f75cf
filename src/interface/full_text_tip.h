#pragma once

#include <QFont>
#include <QModelIndex>
#include <QRect>

class QHelpEvent;
class QWidget;

namespace tarvin {

/// Shows the tool tip of a cell whose text does not fit into `place` in `font`: Qt::ToolTipRole,
/// which is ready to be shown, or else the text letter for letter. One line in any case. Where the
/// text fits, an older tip is taken away. Main thread.
void showFullText(const QHelpEvent& event, QWidget* viewport, const QRect& place, const QFont& font,
                  const QModelIndex& cell);

}  // namespace tarvin
