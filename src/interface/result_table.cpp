#include "interface/result_table.h"

#include "controls/check_box_painter.h"
#include "controls/row_painter.h"
#include "interface/accessible_list.h"
#include "interface/appearance.h"
#include "interface/full_text_tip.h"
#include "interface/list_header.h"
#include "interface/result_cell_delegate.h"
#include "interface/still_list.h"

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
constexpr double nameShare = 0.308;  ///< of what the list gains
constexpr int groupWidth = 52;
constexpr int boxWidth = 58;

/// With some air on both sides.
int widthOfTitle(const QTableView& table, int column) {
    constexpr int air = 4;
    const QString title = table.model()->headerData(column, Qt::Horizontal).toString();
    return table.horizontalHeader()->fontMetrics().horizontalAdvance(title) + 2 * air;
}

}  // namespace

ResultTable::ResultTable(QWidget* parent) : QTableView(parent) {
    constexpr int titleIndent = 12;
    auto* header = new ListHeader(heightOfHeader, titleIndent, this);
    header->setTitlesAtLeft(2);
    setHorizontalHeader(header);
    header->coverScrollBarOf(this);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(heightOfRows);
    setItemDelegate(new ResultCellDelegate(this));
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setMouseTracking(true);
    setUpList(*this);
    useNeutralStyle(this);
    AccessibleList::install();
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

int ResultTable::shownRows() const {
    return model() == nullptr ? 0 : model()->rowCount();
}

QModelIndex ResultTable::indexInRow(int row, int column) const {
    return model() == nullptr ? QModelIndex() : model()->index(row, column);
}

void ResultTable::turnBox(const QModelIndex& box) {
    Q_EMIT tableCheckBoxClicked(box.row());
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

/// No modifier takes the selection away again.
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
                              const QVector<int>& roles) {
    Q_UNUSED(roles)
    const int top = rowViewportPosition(topLeft.row());
    const int bottom = rowViewportPosition(bottomRight.row()) + rowHeight(bottomRight.row());
    viewport()->update(QRect(0, top, viewport()->width(), bottom - top) & viewport()->rect());
    announceData(*this, topLeft, bottomRight);
    marks_.announce(topLeft, bottomRight);
}

void ResultTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    // Qt repaints two cells.
    updateRow(*this, previous);
    updateRow(*this, current);
}

void ResultTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    marks_.painted();
}

void ResultTable::keyboardSearch(const QString& search) {
    constexpr int most = 20000;
    if (model() != nullptr && model()->rowCount() <= most) {
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
                     ResultCellDelegate::textPlace(visualRect(index), index.column()),
                     ResultCellDelegate::textFont(index.column()), index);
    }
    return true;
}

QModelIndex ResultTable::boxAt(const QPoint& point) const {
    constexpr int reach = 8;
    const QModelIndex index = indexAt(point);
    if (!index.isValid() || index.column() != ButtonCell) {
        return {};
    }
    const QRect target = checkBoxIn(visualRect(index), ResultCellDelegate::boxSide + 2 * reach);
    return target.contains(point) ? index : QModelIndex();
}

bool ResultTable::pressBox(const QMouseEvent& event) {
    pressedBox_ =
        event.button() == Qt::LeftButton ? boxAt(event.position().toPoint()) : QModelIndex();
    return pressedBox_.isValid();
}

void ResultTable::mousePressEvent(QMouseEvent* event) {
    if (!pressBox(*event)) {
        QTableView::mousePressEvent(event);
    }
}

void ResultTable::mouseMoveEvent(QMouseEvent* event) {
    if (!pressedBox_.isValid()) {
        QTableView::mouseMoveEvent(event);
    }
}

void ResultTable::mouseReleaseEvent(QMouseEvent* event) {
    if (!pressedBox_.isValid()) {
        QTableView::mouseReleaseEvent(event);
        return;
    }
    const QModelIndex pressed = pressedBox_;
    pressedBox_ = QPersistentModelIndex();
    if (event->button() == Qt::LeftButton && boxAt(event->position().toPoint()) == pressed) {
        Q_EMIT tableCheckBoxClicked(pressed.row());
    }
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
        QTableView::mousePressEvent(event);
    }
}

void ResultTable::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn && event->key() != Qt::Key_Space) {
        QTableView::keyPressEvent(event);
        selectRowOfKeyboard(*event);
        return;
    }
    if (!current.isValid() || event->isAutoRepeat()) {
        return;
    }
    if (isReturn) {
        Q_EMIT doubleClick(current.row());
        return;
    }
    // Assistive technology reads on from the box.
    selectionModel()->setCurrentIndex(current.siblingAtColumn(ButtonCell),
                                      QItemSelectionModel::NoUpdate);
    Q_EMIT tableCheckBoxClicked(current.row());
}

/// A key that would move, but is at the end already, selects the row where it is.
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
