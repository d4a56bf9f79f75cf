#include "interface/full_text_tip.h"

#include "controls/plain_text.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>

namespace tarvin {

void showFullText(const QHelpEvent& event, QWidget* viewport, const QRect& area, const QFont& font,
                  const QModelIndex& cell) {
    const QString text = singleLine(cell.data().toString());
    if (QFontMetrics(font).horizontalAdvance(text) <= area.width()) {
        QToolTip::hideText();
        return;
    }
    const QString tip = singleLine(cell.data(Qt::ToolTipRole).toString());
    QToolTip::showText(event.globalPos(), tip.isEmpty() ? plainToolTip(text) : tip, viewport, area);
}

}  // namespace tarvin
