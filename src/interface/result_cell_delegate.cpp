#include "interface/result_cell_delegate.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "interface/result_table.h"

#include <QPainter>

namespace tarvin {

namespace {

constexpr QColor secondRow{247, 250, 251};

}  // namespace

ResultCellDelegate::ResultCellDelegate(QObject* parent)
    : BoxCellDelegate(ResultTable::ButtonCell, boxSide, parent) {}

QRect ResultCellDelegate::textRect(const QRect& cell, int column) {
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

void ResultCellDelegate::paintContent(QPainter& painter, const QRect& cell,
                                      const QModelIndex& index) const {
    const int column = index.column();
    const bool isPath = column == ResultTable::fileLocation;
    paintLine(painter, textRect(cell, column), index.data().toString(), textFont(column),
              isPath ? look::muted : look::ink,
              column == ResultTable::fileGroup ? Qt::AlignHCenter : Qt::AlignLeft,
              isPath ? Qt::ElideMiddle : Qt::ElideRight);
}

RowStyle ResultCellDelegate::rowStyle(const QModelIndex& index) const {
    return {.background = index.row() % 2 == 0 ? look::surface : secondRow, .line = QColor()};
}

QSize ResultCellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {100, ResultTable::heightOfRows};
}

}  // namespace tarvin
