#include "interface/list_setup.h"

#include "controls/plain_text.h"
#include "interface/appearance.h"
#include "interface/list_header.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>

namespace tarvin {

namespace {

void disableHorizontalScrolling(QAbstractScrollArea& list) {
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QScrollBar* bar = list.horizontalScrollBar();
    // A hidden bar still scrolls: by keys, by the wheel, and to bring a row into view.
    QObject::connect(bar, &QScrollBar::rangeChanged, bar, [bar] { bar->setRange(0, 0); });
    bar->setRange(0, 0);
}

}  // namespace

void setUpList(QAbstractItemView& list) {
    list.setFrameShape(QFrame::NoFrame);
    list.setTabKeyNavigation(false);
    list.setSelectionBehavior(QAbstractItemView::SelectRows);
    list.setSelectionMode(QAbstractItemView::SingleSelection);
    list.setEditTriggers(QAbstractItemView::NoEditTriggers);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    disableHorizontalScrolling(list);
    useNeutralStyle(&list);
}

void setUpTable(QTableView& table, ListHeader& header, int heightOfRows) {
    table.setHorizontalHeader(&header);
    header.coverScrollBarOf(&table);
    QHeaderView& rows = *table.verticalHeader();
    rows.hide();
    rows.setSectionResizeMode(QHeaderView::Fixed);
    rows.setMinimumSectionSize(1);
    rows.setDefaultSectionSize(heightOfRows);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setCornerButtonEnabled(false);
    setUpList(table);
}

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
