#include "interface/announced_rows.h"

#include <QAbstractItemView>
#include <QAccessible>

namespace tarvin {

namespace {

bool isWithin(const QModelIndex& index, const QModelIndex& topLeft,
              const QModelIndex& bottomRight) {
    return index.isValid() && index.parent() == topLeft.parent() && index.row() >= topLeft.row() &&
           index.row() <= bottomRight.row() && index.column() >= topLeft.column() &&
           index.column() <= bottomRight.column();
}

}  // namespace

bool holdFocusedBox(const QAbstractItemView& list, const QModelIndex& topLeft,
                    const QModelIndex& bottomRight) {
    const QModelIndex current = list.currentIndex();
    return list.hasFocus() && isWithin(current, topLeft, bottomRight) &&
           current.data(Qt::CheckStateRole).isValid();
}

void announceRows(QAbstractItemView& list, const QModelIndex& topLeft,
                  const QModelIndex& bottomRight) {
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleTableModelChangeEvent data(&list, QAccessibleTableModelChangeEvent::DataChanged);
    data.setFirstRow(topLeft.row());
    data.setFirstColumn(topLeft.column());
    data.setLastRow(bottomRight.row());
    data.setLastColumn(bottomRight.column());
    QAccessible::updateAccessibility(&data);

    if (!holdFocusedBox(list, topLeft, bottomRight)) {
        return;
    }
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&list);
    QAccessibleInterface* cell = told == nullptr ? nullptr : told->focusChild();
    if (cell != nullptr) {
        QAccessible::State turned;
        turned.checked = true;  // which part of the state is another now
        QAccessibleStateChangeEvent state(cell, turned);
        QAccessible::updateAccessibility(&state);
    }
}

}  // namespace tarvin
