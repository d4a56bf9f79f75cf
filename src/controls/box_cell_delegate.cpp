#include "controls/box_cell_delegate.h"

#include "controls/check_box.h"

namespace tarvin {

BoxCellDelegate::BoxCellDelegate(int boxColumn, int boxSide, QObject* parent)
    : QStyledItemDelegate(parent), boxColumn_(boxColumn), boxSide_(boxSide) {}

void BoxCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    painter->save();
    paintRow(*painter, option, index, rowStyle(index));
    if (index.column() == boxColumn_) {
        CheckBoxCell(index).paint(*painter, option.rect, boxSide_);
    } else {
        paintContent(*painter, option.rect, index);
    }
    painter->restore();
}

bool BoxCellDelegate::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                                  const QModelIndex&) {
    return false;
}

RowStyle BoxCellDelegate::rowStyle(const QModelIndex&) const {
    return {};
}

}  // namespace tarvin
