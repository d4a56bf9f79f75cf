#include "interface/still_list.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QScrollBar>

namespace tarvin {

void keepStillSideways(QAbstractScrollArea& list) {
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QScrollBar* bar = list.horizontalScrollBar();
    // A hidden bar scrolls all the same: for keys, wheels, and rows that are brought into view.
    QObject::connect(bar, &QScrollBar::rangeChanged, bar, [bar] { bar->setRange(0, 0); });
    bar->setRange(0, 0);
}

void setUpList(QAbstractItemView& list) {
    list.setFrameShape(QFrame::NoFrame);
    list.setTabKeyNavigation(false);
    list.setSelectionBehavior(QAbstractItemView::SelectRows);
    list.setSelectionMode(QAbstractItemView::SingleSelection);
    list.setEditTriggers(QAbstractItemView::NoEditTriggers);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    keepStillSideways(list);
}

}  // namespace tarvin
