#include "interface/result_table.h"

#include "interface/list_header.h"
#include "interface/list_setup.h"
#include "interface/result_cell_delegate.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace tarvin {

namespace {

constexpr int designWidth = 531;
constexpr int nameWidth = 165;
constexpr double nameShare = 0.308;  ///< share of what the list gains
constexpr int groupWidth = 52;
constexpr int boxWidth = 58;

/// The width of a title with its padding.
int widthOfTitle(const QTableView& table, int column) {
    constexpr int padding = 4;
    const QString title = table.model()->headerData(column, Qt::Horizontal).toString();
    return table.horizontalHeader()->fontMetrics().horizontalAdvance(title) + 2 * padding;
}

}  // namespace

ResultTable::ResultTable(QWidget* parent)
    : BoxTable({.boxColumn = ButtonCell,
                .boxSide = ResultCellDelegate::boxSide,
                .heightOfRows = heightOfRows,
                .heightOfHeader = heightOfHeader,
                .titleIndent = 12},
               parent) {
    listHeader().setTitlesAtLeft(2);
    setItemDelegate(new ResultCellDelegate(this));
}

QString ResultTable::title(Column column) {
    switch (column) {
        case nameText:
            return tr("Name");
        case fileLocation:
            return tr("Location");
        case fileGroup:
            return tr("Set", "header of a column with the numbers of sets");
        case ButtonCell:
            break;
    }
    return tr("Mark", "header of a column of check boxes");
}

void ResultTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitColumns();
}

void ResultTable::selectFile(int row) {
    if (model() == nullptr || row < 0 || row >= model()->rowCount()) {
        return;
    }
    selectionModel()->setCurrentIndex(
        model()->index(row, nameText),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

int ResultTable::selectedRow() const {
    const QModelIndexList rows =
        selectionModel() == nullptr ? QModelIndexList() : selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

/// Modifier keys do not clear the selection.
QItemSelectionModel::SelectionFlags ResultTable::selectionCommand(const QModelIndex& index,
                                                                  const QEvent* event) const {
    const QItemSelectionModel::SelectionFlags command = QTableView::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate
                                                           : command;
}

void ResultTable::fitColumns() {
    if (model() == nullptr || model()->columnCount() <= ButtonCell) {
        return;
    }
    const int width = viewport()->width();
    const int gain = std::max(width - designWidth, 0);
    const int name = nameWidth + static_cast<int>(std::lround(gain * nameShare));
    const int group = std::max(groupWidth, widthOfTitle(*this, fileGroup));
    const int box = std::max(boxWidth, widthOfTitle(*this, ButtonCell));
    QHeaderView& header = *horizontalHeader();
    header.resizeSection(nameText, name);
    header.resizeSection(fileLocation, width - name - group - box);
    header.resizeSection(fileGroup, group);
    header.resizeSection(ButtonCell, box);
}

void ResultTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

void ResultTable::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                              const QVector<int>&) {
    const int top = rowViewportPosition(topLeft.row());
    const int bottom = rowViewportPosition(bottomRight.row()) + rowHeight(bottomRight.row());
    viewport()->update(QRect(0, top, viewport()->width(), bottom - top) & viewport()->rect());
    announceData(*this, topLeft, bottomRight);
    marks().announce(topLeft, bottomRight);
}

void ResultTable::keyboardSearch(const QString& search) {
    constexpr int maxRows = 20000;  // more take too long
    if (model() != nullptr && model()->rowCount() <= maxRows) {
        QTableView::keyboardSearch(search);
    }
}

bool ResultTable::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QTableView::viewportEvent(event);
    }
    const auto& help = static_cast<QHelpEvent&>(*event);
    const QModelIndex index = indexAt(help.pos());
    if (index.isValid() && index.column() != ButtonCell) {
        showFullText(help, viewport(),
                     ResultCellDelegate::textRect(visualRect(index), index.column()),
                     ResultCellDelegate::textFont(index.column()), index);
    }
    return true;
}

void ResultTable::mouseDoubleClickEvent(QMouseEvent* event) {
    if (pressBox(*event)) {
        return;
    }
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool opens =
        event->button() == Qt::LeftButton && index.isValid() && index.row() == currentIndex().row();
    if (opens) {
        Q_EMIT doubleClick(index.row());
    } else {
        BoxTable::mousePressEvent(event);
    }
}

void ResultTable::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (current.isValid() && !event->isAutoRepeat()) {
            Q_EMIT doubleClick(current.row());
        }
        return;
    }
    if (event->key() == Qt::Key_Space) {
        continueFromBox();
    }
    BoxTable::keyPressEvent(event);
    selectRowOfKeyboard(*event);
}

void ResultTable::contextMenuEvent(QContextMenuEvent* event) {
    if (const QModelIndex index = indexAt(event->pos()); index.isValid()) {
        selectFile(index.row());
        Q_EMIT menuRequested(index.row(), event->globalPos());
    }
}

/// Below the row, so that it stays visible.
void ResultTable::openMenu(const QModelIndex& row, const QPoint& lowerLeft) {
    selectFile(row.row());
    Q_EMIT menuRequested(row.row(), viewport()->mapToGlobal(lowerLeft + QPoint(0, 1)));
}

/// Selects the current row if a navigation key could not move because it is at an end.
void ResultTable::selectRowOfKeyboard(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (selectionMode() != NoSelection && selectedRow() < 0) {
                selectFile(currentIndex().row());
            }
            break;
        default:
            break;
    }
}

}  // namespace tarvin
