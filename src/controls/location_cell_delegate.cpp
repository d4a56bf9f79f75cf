#include "controls/location_cell_delegate.h"

#include "controls/check_box_delegate.h"
#include "controls/custom_table_cell_view.h"
#include "controls/row_painter.h"

#include <QKeyEvent>

namespace tarvin {

LocationCellDelegate::LocationCellDelegate(int checkColumn, QObject* parent)
    : QStyledItemDelegate(parent), checkColumn_(checkColumn) {}

void LocationCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    painter->save();
    paintRow(*painter, option, index);
    CustomTableCellView(index).paint(*painter, option.rect);
    painter->restore();
}

QSize LocationCellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {400, 56};
}

bool LocationCellDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                       const QStyleOptionViewItem&, const QModelIndex& index) {
    if (event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space) {
        return false;
    }
    const QModelIndex check = index.siblingAtColumn(checkColumn_);
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat() && toggleCheckState(*model, check)) {
        Q_EMIT checkButtonClicked(check);
    }
    return true;
}

}  // namespace tarvin
