#include "interface/result_cell_delegate.h"

#include "controls/check_box_cell.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "controls/row_painter.h"
#include "interface/result_table.h"

#include <QPainter>

namespace tarvin {

namespace {

constexpr QColor secondRow{247, 250, 251};

}  // namespace

QRect ResultCellDelegate::textPlace(const QRect& cell, int column) {
    constexpr int margin = 12;
    constexpr int nameGap = 6;
    constexpr int locationGap = 8;
    switch (column) {
        case ResultTable::nameText:
            return cell.adjusted(margin, 0, -nameGap, 0);
        case ResultTable::fileLocation:
            return cell.adjusted(0, 0, -locationGap, 0);
        default:
            return cell;
    }
}

QFont ResultCellDelegate::textFont(int column) {
    return look::font(13, column == ResultTable::nameText ? QFont::Medium : QFont::Normal);
}

void ResultCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const int column = index.column();
    painter->save();
    paintRow(*painter, option, index,
             {.ground = index.row() % 2 == 0 ? look::surface : secondRow, .line = QColor()});
    if (column == ResultTable::ButtonCell) {
        CheckBoxCell(index).paint(*painter, option.rect, boxSide);
    } else {
        const bool isPath = column == ResultTable::fileLocation;
        paintLine(*painter, textPlace(option.rect, column), index.data().toString(),
                  textFont(column), isPath ? look::muted : look::ink,
                  column == ResultTable::fileGroup ? Qt::AlignHCenter : Qt::AlignLeft,
                  isPath ? Qt::ElideMiddle : Qt::ElideRight);
    }
    painter->restore();
}

QSize ResultCellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {100, ResultTable::heightOfRows};
}

bool ResultCellDelegate::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                                     const QModelIndex&) {
    return false;
}

}  // namespace tarvin
