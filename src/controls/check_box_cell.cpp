#include "controls/check_box_cell.h"

#include "controls/check_box_painter.h"

namespace tarvin {

bool toggleCheckState(QAbstractItemModel& model, const QModelIndex& index) {
    const Qt::ItemFlags flags = model.flags(index);
    if (!flags.testFlag(Qt::ItemIsUserCheckable) || !flags.testFlag(Qt::ItemIsEnabled)) {
        return false;
    }
    const bool wasOn = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model.setData(index, static_cast<int>(wasOn ? Qt::Unchecked : Qt::Checked),
                         Qt::CheckStateRole);
}

CheckBoxCell::CheckBoxCell(const QModelIndex& index)
    : checkBox_(static_cast<Qt::CheckState>(index.data(Qt::CheckStateRole).toInt())),
      enabled_(index.flags().testFlag(Qt::ItemIsEnabled)) {}

void CheckBoxCell::paint(QPainter& painter, const QRect& cell, int side) const {
    paintCheckBox(painter, checkBoxIn(cell, side), checkBox_, enabled_);
}

}  // namespace tarvin
