#include "interface/mark_announcer.h"

#include "interface/accessible_list.h"

#include <QAccessible>

namespace tarvin {

namespace {

Qt::CheckState markOf(const QModelIndex& box) {
    return static_cast<Qt::CheckState>(box.data(Qt::CheckStateRole).toInt());
}

bool isWithin(const QModelIndex& index, const QModelIndex& topLeft,
              const QModelIndex& bottomRight) {
    return index.parent() == topLeft.parent() && index.row() >= topLeft.row() &&
           index.row() <= bottomRight.row() && index.column() >= topLeft.column() &&
           index.column() <= bottomRight.column();
}

void tellOf(QAccessibleInterface& box) {
    QAccessible::State turned;  // the state flags that have changed
    turned.checked = true;
    turned.checkStateMixed = true;
    QAccessibleStateChangeEvent state(&box, turned);
    QAccessible::updateAccessibility(&state);
    // Qt announces only on and off; the description says that a mark is mixed.
    QAccessibleEvent description(&box, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
}

}  // namespace

void MarkAnnouncer::painted() {
    if (QAccessible::isActive()) {
        remember();
    }
}

void MarkAnnouncer::remember() {
    marks_.clear();
    QModelIndex before;
    for (int y = 0; y < view_.viewport()->height();) {
        const QModelIndex first = view_.indexAt({0, y}).siblingAtColumn(0);
        const QRect row = view_.visualRect(first);
        if (!first.isValid() || first == before || row.isEmpty()) {
            break;
        }
        rememberRow(first);
        before = first;
        y = row.bottom() + 1;
    }
    rememberRow(view_.currentIndex());
}

void MarkAnnouncer::rememberRow(const QModelIndex& index) {
    const QModelIndex box = index.siblingAtColumn(column_);
    if (box.data(Qt::CheckStateRole).isValid()) {
        marks_.push_back({box, markOf(box)});
    }
}

QModelIndexList MarkAnnouncer::takeChanged(const QModelIndex& topLeft,
                                           const QModelIndex& bottomRight) {
    QModelIndexList changed;
    for (auto& [box, mark] : marks_) {
        if (!box.isValid() || !isWithin(box, topLeft, bottomRight) || markOf(box) == mark) {
            continue;
        }
        mark = markOf(box);
        if (!changed.contains(box)) {
            changed.push_back(box);
        }
    }
    return changed;
}

void MarkAnnouncer::announce(const QModelIndex& topLeft, const QModelIndex& bottomRight) {
    if (!QAccessible::isActive()) {
        return;
    }
    const AccessibleList* list = AccessibleList::of(view_);
    for (const QModelIndex& index : takeChanged(topLeft, bottomRight)) {
        QAccessibleInterface* box = list == nullptr ? nullptr : list->cellOf(index);
        if (box != nullptr) {
            tellOf(*box);
        }
    }
}

void announceData(QAbstractItemView& view, const QModelIndex& topLeft,
                  const QModelIndex& bottomRight) {
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleTableModelChangeEvent data(&view, QAccessibleTableModelChangeEvent::DataChanged);
    data.setFirstRow(topLeft.row());
    data.setFirstColumn(topLeft.column());
    data.setLastRow(bottomRight.row());
    data.setLastColumn(bottomRight.column());
    QAccessible::updateAccessibility(&data);
}

}  // namespace tarvin
