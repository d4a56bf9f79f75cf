#include "interface/accessible_list.h"

#include "interface/accessible_cell.h"

#include <QTableView>
#include <utility>

namespace tarvin {

namespace {

QAccessibleInterface* listInterface(const QString&, QObject* object) {
    auto* view = qobject_cast<QAbstractItemView*>(object);
    auto* list = dynamic_cast<MarkedList*>(view);
    return list == nullptr ? nullptr : new AccessibleList(*view, *list);
}

QAccessible::Role roleOf(const QAbstractItemView& view) {
    return qobject_cast<const QTableView*>(&view) != nullptr ? QAccessible::Table
                                                             : QAccessible::Tree;
}

}  // namespace

AccessibleList::AccessibleList(QAbstractItemView& view, MarkedList& list)
    : QAccessibleWidget(&view, roleOf(view)), view_(view), list_(list) {}

AccessibleList::~AccessibleList() {
    forgetCells();
}

void AccessibleList::install() {
    [[maybe_unused]] static const bool done = [] {
        QAccessible::installFactory(listInterface);
        return true;
    }();
}

AccessibleList* AccessibleList::of(QAbstractItemView& view) {
    return dynamic_cast<AccessibleList*>(QAccessible::queryAccessibleInterface(&view));
}

QAccessibleInterface* AccessibleList::cellOf(const QModelIndex& index) const {
    if (!index.isValid() || index.model() != view_.model() || list_.rowOf(index) < 0) {
        return nullptr;
    }
    if (const auto known = cells_.constFind(index); known != cells_.constEnd()) {
        auto* cell = dynamic_cast<AccessibleCell*>(QAccessible::accessibleInterface(known.value()));
        if (cell != nullptr && cell->index() == index) {
            return cell;
        }
        // The row has moved since.
        QAccessible::deleteAccessibleInterface(known.value());
    }
    auto* cell = new AccessibleCell(view_, index);
    cells_.insert(index, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QAccessibleInterface* AccessibleList::headerOf(int column) const {
    return headerAt(column, Qt::Horizontal);
}

QAccessibleInterface* AccessibleList::headerAt(int section, Qt::Orientation orientation) const {
    const int number =
        orientation == Qt::Horizontal ? section + headerColumns() : (section + 1) * stride();
    if (const auto known = headers_.constFind(number); known != headers_.constEnd()) {
        return QAccessible::accessibleInterface(known.value());
    }
    auto* header = new AccessibleHeader(view_, section, orientation);
    headers_.insert(number, QAccessible::registerAccessibleInterface(header));
    return header;
}

void AccessibleList::forgetCells() const {
    for (const auto& ids :
         {std::exchange(cells_, {}).values(), std::exchange(headers_, {}).values()}) {
        for (const QAccessible::Id id : ids) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
}

int AccessibleList::headerColumns() const {
    return role() == QAccessible::Table ? 1 : 0;
}

void* AccessibleList::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

int AccessibleList::childCount() const {
    return columnCount() == 0 ? 0 : (rowCount() + 1) * stride();
}

QAccessibleInterface* AccessibleList::child(int index) const {
    const int perRow = stride();
    if (perRow < 1 || index < 0 || index >= childCount()) {
        return nullptr;
    }
    const int row = index / perRow - 1;
    const int column = index % perRow - headerColumns();
    if (column < 0) {
        return headerAt(row, Qt::Vertical);
    }
    return row < 0 ? headerAt(column, Qt::Horizontal) : cellAt(row, column);
}

int AccessibleList::indexOfChild(const QAccessibleInterface* child) const {
    if (const auto* cell = dynamic_cast<const AccessibleCell*>(child)) {
        const int row = list_.rowOf(cell->index());
        return row < 0 ? -1 : (row + 1) * stride() + cell->columnIndex() + headerColumns();
    }
    const auto* header = dynamic_cast<const AccessibleHeader*>(child);
    if (header == nullptr) {
        return -1;
    }
    return header->orientation() == Qt::Horizontal ? header->section() + headerColumns()
                                                   : (header->section() + 1) * stride();
}

QAccessibleInterface* AccessibleList::childAt(int x, int y) const {
    const QPoint position = view_.viewport()->mapFromGlobal(QPoint(x, y));
    return view_.viewport()->rect().contains(position) ? cellOf(view_.indexAt(position)) : nullptr;
}

QAccessibleInterface* AccessibleList::focusChild() const {
    return cellOf(view_.currentIndex());
}

QAccessibleInterface* AccessibleList::cellAt(int row, int column) const {
    return cellOf(list_.indexInRow(row, column));
}

int AccessibleList::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> AccessibleList::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            cells.push_back(cellAt(row, column));
        }
    }
    return cells;
}

QString AccessibleList::columnDescription(int column) const {
    return view_.model() == nullptr ? QString()
                                    : view_.model()->headerData(column, Qt::Horizontal).toString();
}

int AccessibleList::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

int AccessibleList::columnCount() const {
    return view_.model() == nullptr ? 0 : view_.model()->columnCount();
}

int AccessibleList::rowCount() const {
    return list_.shownRows();
}

QList<int> AccessibleList::selectedRows() const {
    QList<int> rows;
    if (view_.selectionModel() != nullptr) {
        for (const QModelIndex& index : view_.selectionModel()->selectedRows()) {
            if (const int row = list_.rowOf(index); row >= 0) {
                rows.push_back(row);
            }
        }
    }
    return rows;
}

bool AccessibleList::isRowSelected(int row) const {
    return selectedRows().contains(row);
}

bool AccessibleList::selectRow(int row) {
    const QModelIndex index = list_.indexInRow(row, 0);
    if (!index.flags().testFlag(Qt::ItemIsSelectable) ||
        view_.selectionMode() == QAbstractItemView::NoSelection) {
        return false;
    }
    view_.selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}

void AccessibleList::modelChange(QAccessibleTableModelChangeEvent* event) {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) {
        forgetCells();
    }
}

}  // namespace tarvin
