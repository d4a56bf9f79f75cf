#include "controls/row_painter.h"

#include "controls/focus_ring.h"

#include <QMouseEvent>

namespace tarvin {

namespace {

QAbstractItemView* viewOf(const QStyleOptionViewItem& option) {
    return qobject_cast<QAbstractItemView*>(const_cast<QWidget*>(option.widget));
}

QColor backgroundOf(const QStyleOptionViewItem& option, const QModelIndex& index,
                    const RowStyle& rowStyle) {
    if (option.state.testFlag(QStyle::State_Selected)) {
        return rowStyle.selected;
    }
    QAbstractItemView* view = viewOf(option);
    if (view != nullptr && RowHover::of(*view).isOver(index)) {
        return look::rowHover;
    }
    return rowStyle.background;
}

bool hasShownFocus(const QAbstractItemView& view, const QModelIndex& index) {
    const QModelIndex current = view.currentIndex();
    return view.hasFocus() && current.row() == index.row() && current.parent() == index.parent() &&
           focusIsShown(view, Qt::OtherFocusReason);
}

}  // namespace

RowHover& RowHover::of(QAbstractItemView& view) {
    auto* known = view.findChild<RowHover*>(QString(), Qt::FindDirectChildrenOnly);
    return known != nullptr ? *known : *new RowHover(view);
}

RowHover::RowHover(QAbstractItemView& view) : QObject(&view), view_(view) {
    view.setMouseTracking(true);
    view.viewport()->setMouseTracking(true);
    view.viewport()->installEventFilter(this);
    if (view.viewport()->underMouse()) {
        setRow(view.indexAt(view.viewport()->mapFromGlobal(QCursor::pos())));
    }
}

bool RowHover::isOver(const QModelIndex& index) const {
    return row_.isValid() && row_.row() == index.row() && row_.parent() == index.parent();
}

bool RowHover::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
            setRow(view_.indexAt(static_cast<QMouseEvent*>(event)->position().toPoint()));
            break;
        case QEvent::Wheel:
        case QEvent::Leave:
        case QEvent::Hide:
            setRow({});
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void RowHover::setRow(const QModelIndex& index) {
    const QModelIndex first = index.siblingAtColumn(0);
    if (row_ == first) {
        return;
    }
    const QModelIndex before = row_;
    row_ = first;
    updateRow(view_, before);
    updateRow(view_, first);
}

void updateRow(const QAbstractItemView& view, const QModelIndex& index) {
    if (index.isValid()) {
        const QRect cell = view.visualRect(index);
        view.viewport()->update(0, cell.top(), view.viewport()->width(), cell.height());
    }
}

void paintRow(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
              const RowStyle& rowStyle) {
    const QRect& cell = option.rect;
    painter.fillRect(cell, backgroundOf(option, index, rowStyle));
    if (rowStyle.line.isValid()) {
        painter.fillRect(cell.left(), cell.bottom(), cell.width(), 1, rowStyle.line);
    }
    const QAbstractItemView* view = viewOf(option);
    if (view == nullptr || !hasShownFocus(*view, index)) {
        return;
    }
    painter.save();
    painter.setClipRect(cell, Qt::IntersectClip);
    paintFocusRing(painter, QRectF(0, cell.top(), view->viewport()->width(), cell.height()),
                   look::focusRing);
    painter.restore();
}

}  // namespace tarvin
