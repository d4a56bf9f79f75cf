#include "interface/still_list.h"

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

}  // namespace tarvin
