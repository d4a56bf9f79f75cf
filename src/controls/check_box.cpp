#include "controls/check_box.h"

#include "controls/images.h"
#include "controls/painting.h"

namespace tarvin {

namespace {

QString imageNameOf(Qt::CheckState state) {
    switch (state) {
        case Qt::Unchecked:
            return QStringLiteral("ui/check_off");
        case Qt::PartiallyChecked:
            return QStringLiteral("ui/check_mixed");
        case Qt::Checked:
            break;
    }
    return QStringLiteral("ui/check_on");
}

}  // namespace

void paintCheckBox(QPainter& painter, const QRect& box, Qt::CheckState state, bool enabled) {
    constexpr double disabledOpacity = 0.45;
    const double before = painter.opacity();
    painter.setOpacity(enabled ? before : before * disabledOpacity);
    painter.drawPixmap(box.topLeft(),
                       picture(imageNameOf(state), box.size(), devicePixelRatioOf(painter)));
    painter.setOpacity(before);
}

QRect checkBoxIn(const QRect& cell, int side) {
    return {cell.left() + (cell.width() - side) / 2, cell.top() + (cell.height() - side) / 2, side,
            side};
}

QRect checkBoxReach(const QRect& cell, int side) {
    constexpr int reach = 8;
    return checkBoxIn(cell, side + 2 * reach).intersected(cell);
}

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
