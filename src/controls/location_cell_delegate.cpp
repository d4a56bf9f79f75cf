#include "controls/location_cell_delegate.h"

#include "controls/check_box.h"
#include "controls/custom_table_cell_view.h"

namespace tarvin {

LocationCellDelegate::LocationCellDelegate(int boxColumn, QObject* parent)
    : BoxCellDelegate(boxColumn, checkBoxSide, parent) {}

QSize LocationCellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {400, 56};
}

void LocationCellDelegate::paintContent(QPainter& painter, const QRect& cell,
                                        const QModelIndex& index) const {
    CustomTableCellView(index).paint(painter, cell);
}

}  // namespace tarvin
