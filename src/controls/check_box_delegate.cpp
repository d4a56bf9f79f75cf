#include "controls/check_box_delegate.h"

#include "controls/check_box_cell.h"
#include "controls/row_painter.h"

#include <QKeyEvent>
#include <QMouseEvent>

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

CheckBoxDelegate::CheckBoxDelegate(QObject* parent, int side)
    : QStyledItemDelegate(parent), side_(side) {}

void CheckBoxDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    painter->save();
    paintRow(*painter, option, index);
    CheckBoxCell(index).paint(*painter, option.rect, side_);
    painter->restore();
}

QSize CheckBoxDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    constexpr int margin = 12;
    return {side_ + 2 * margin, side_ + margin};
}

bool CheckBoxDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            return handleMouse(static_cast<QMouseEvent&>(*event), *model, option.rect, index);
        case QEvent::KeyPress:
            if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space) {
                return false;
            }
            if (!static_cast<QKeyEvent*>(event)->isAutoRepeat() &&
                toggleCheckState(*model, index)) {
                Q_EMIT checkButtonClicked(index);
            }
            return true;
        default:
            return false;
    }
}

QRect CheckBoxDelegate::reachIn(const QRect& cell) const {
    constexpr int reach = 8;
    return checkBoxIn(cell, side_ + 2 * reach).intersected(cell);
}

bool CheckBoxDelegate::handleMouse(const QMouseEvent& event, QAbstractItemModel& model,
                                   const QRect& cell, const QModelIndex& index) {
    const bool isHit =
        event.button() == Qt::LeftButton && reachIn(cell).contains(event.position().toPoint());
    if (event.type() == QEvent::MouseButtonPress) {
        pressed_ = isHit ? QPersistentModelIndex(index) : QPersistentModelIndex();
        return isHit;
    }
    // A list keeps the release after a double click to itself.
    const bool isClick =
        isHit && (event.type() == QEvent::MouseButtonDblClick || pressed_ == index);
    pressed_ = QPersistentModelIndex();
    if (isClick && toggleCheckState(model, index)) {
        Q_EMIT checkButtonClicked(index);
    }
    return isClick;
}

}  // namespace tarvin
