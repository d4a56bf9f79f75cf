#include "interface/box_table.h"

#include "controls/check_box.h"
#include "controls/row_painter.h"
#include "interface/list_header.h"
#include "interface/list_setup.h"

namespace tarvin {

BoxTable::BoxTable(const Design& design, QWidget* parent)
    : BoxList(design.boxColumn, parent),
      boxColumn_(design.boxColumn),
      boxSide_(design.boxSide),
      header_(new ListHeader(design.heightOfHeader, design.titleIndent, this)) {
    setUpTable(*this, *header_, design.heightOfRows);
}

int BoxTable::shownRows() const {
    return model() == nullptr ? 0 : model()->rowCount();
}

QModelIndex BoxTable::indexInRow(int row, int column) const {
    return model() == nullptr ? QModelIndex() : model()->index(row, column);
}

QModelIndex BoxTable::boxAt(const QPoint& point) const {
    const QModelIndex index = indexAt(point);
    const bool isHit =
        index.column() == boxColumn_ && checkBoxReach(visualRect(index), boxSide_).contains(point);
    return isHit ? index : QModelIndex();
}

void BoxTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    // Qt repaints two cells.
    updateRow(*this, previous);
    updateRow(*this, current);
}

}  // namespace tarvin
