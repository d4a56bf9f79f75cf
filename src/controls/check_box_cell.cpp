#include "controls/check_box_cell.h"

#include "controls/check_box_painter.h"

namespace tarvin {

CheckBoxCell::CheckBoxCell(const QModelIndex& index)
    : checkBox_(static_cast<Qt::CheckState>(index.data(Qt::CheckStateRole).toInt())),
      enabled_(index.flags().testFlag(Qt::ItemIsEnabled)) {}

void CheckBoxCell::paint(QPainter& painter, const QRect& cell, int side) const {
    paintCheckBox(painter, checkBoxIn(cell, side), checkBox_, enabled_);
}

}  // namespace tarvin
