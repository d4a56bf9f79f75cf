#include "interface/accessible_cell.h"

#include "interface/accessible_list.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>
#include <QWindow>

namespace tarvin {

namespace {

/// The part of a widget in screen coordinates.
QRect onScreen(const QWidget& widget, const QRect& part) {
    return part.isEmpty() ? QRect() : QRect(widget.mapToGlobal(part.topLeft()), part.size());
}

}  // namespace

AccessiblePart::AccessiblePart(QAbstractItemView& view) : view_(&view) {}

QWindow* AccessiblePart::window() const {
    return view_ == nullptr ? nullptr : view_->window()->windowHandle();
}

QAccessibleInterface* AccessiblePart::parent() const {
    return view_ == nullptr ? nullptr : QAccessible::queryAccessibleInterface(view_);
}

AccessibleCell::AccessibleCell(QAbstractItemView& view, const QModelIndex& index)
    : AccessiblePart(view), index_(index) {}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
        case QAccessible::TableCellInterface:
            return static_cast<QAccessibleTableCellInterface*>(this);
        case QAccessible::ActionInterface:
            return static_cast<QAccessibleActionInterface*>(this);
        default:
            return nullptr;
    }
}

bool AccessibleCell::isValid() const {
    return view() != nullptr && index_.isValid() && index_.model() == view()->model();
}

AccessibleList* AccessibleCell::owner() const {
    return view() == nullptr ? nullptr : AccessibleList::of(*view());
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid()) {
        return {};
    }
    switch (kind) {
        case QAccessible::Name: {
            const QString name = index_.data(Qt::AccessibleTextRole).toString();
            return name.isEmpty() ? index_.data(Qt::DisplayRole).toString() : name;
        }
        case QAccessible::Description:
            return index_.data(Qt::AccessibleDescriptionRole).toString();
        default:
            return {};
    }
}

QRect AccessibleCell::rect() const {
    return isValid() ? onScreen(*view()->viewport(), view()->visualRect(index_)) : QRect();
}

QAccessible::Role AccessibleCell::role() const {
    return qobject_cast<const QTreeView*>(view()) != nullptr ? QAccessible::TreeItem
                                                             : QAccessible::Cell;
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect area = view()->visualRect(index_);
    state.invisible = !view()->isVisible();
    state.offscreen = !view()->viewport()->rect().intersects(area);
    state.selectable = index_.flags().testFlag(Qt::ItemIsSelectable);
    state.selected = view()->selectionModel()->isSelected(index_);
    state.focusable = true;
    state.focused = view()->hasFocus() && view()->currentIndex() == index_;
    const auto mark = static_cast<Qt::CheckState>(index_.data(Qt::CheckStateRole).toInt());
    state.checkable = isBox();
    state.checked = isBox() && mark == Qt::Checked;
    state.checkStateMixed = isBox() && mark == Qt::PartiallyChecked;
    if (const auto* tree = qobject_cast<const QTreeView*>(view())) {
        const QModelIndex first = index().siblingAtColumn(0);
        state.expandable = tree->model()->hasChildren(first);
        state.expanded = state.expandable && tree->isExpanded(first);
        state.collapsed = state.expandable && !state.expanded;
    }
    return state;
}

bool AccessibleCell::isBox() const {
    return index_.flags().testFlag(Qt::ItemIsUserCheckable) &&
           index_.data(Qt::CheckStateRole).isValid();
}

bool AccessibleCell::isSelected() const {
    return isValid() && view()->selectionModel()->isSelected(index_);
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
    const AccessibleList* list = owner();
    return list == nullptr ? QList<QAccessibleInterface*>()
                           : QList<QAccessibleInterface*>{list->headerOf(index_.column())};
}

int AccessibleCell::rowIndex() const {
    const AccessibleList* list = owner();
    return list == nullptr ? -1 : list->list().rowOf(index_);
}

QStringList AccessibleCell::actionNames() const {
    QStringList names;
    if (isValid() && isBox()) {
        names.push_back(toggleAction());
    }
    names.push_back(setFocusAction());
    return names;
}

void AccessibleCell::doAction(const QString& actionName) {
    const AccessibleList* list = owner();
    if (list == nullptr || !isValid()) {
        return;
    }
    if (actionName == toggleAction() && isBox()) {
        list->list().turnBox(index_);
    } else if (actionName == setFocusAction()) {
        view()->setFocus(Qt::OtherFocusReason);
        view()->selectionModel()->setCurrentIndex(index_, QItemSelectionModel::NoUpdate);
    }
}

bool AccessibleHeader::isValid() const {
    return view() != nullptr && view()->model() != nullptr;
}

QHeaderView* AccessibleHeader::header() const {
    if (const auto* tree = qobject_cast<const QTreeView*>(view())) {
        return tree->header();
    }
    const auto* table = qobject_cast<const QTableView*>(view());
    return table == nullptr               ? nullptr
           : orientation_ == Qt::Vertical ? table->verticalHeader()
                                          : table->horizontalHeader();
}

QString AccessibleHeader::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name && isValid() && orientation_ == Qt::Horizontal
               ? view()->model()->headerData(section_, orientation_).toString()
               : QString();
}

QRect AccessibleHeader::rect() const {
    const QHeaderView* titles = header();
    if (titles == nullptr || orientation_ == Qt::Vertical) {
        return {};
    }
    return onScreen(*titles->viewport(), {titles->sectionViewportPosition(section_), 0,
                                          titles->sectionSize(section_), titles->height()});
}

QAccessible::Role AccessibleHeader::role() const {
    return orientation_ == Qt::Horizontal ? QAccessible::ColumnHeader : QAccessible::RowHeader;
}

QAccessible::State AccessibleHeader::state() const {
    QAccessible::State state;
    const QHeaderView* titles = header();
    state.invisible = titles == nullptr || !titles->isVisible();
    return state;
}

}  // namespace tarvin
