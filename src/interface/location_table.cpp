#include "interface/location_table.h"

#include "controls/check_box.h"
#include "controls/focus_ring.h"
#include "controls/location_cell_delegate.h"
#include "controls/look.h"
#include "interface/list_header.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace tarvin {

namespace {

bool isReturn(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

LocationTable::LocationTable(QWidget* parent)
    : BoxTable({.boxColumn = buttonCell,
                .boxSide = checkBoxSide,
                .heightOfRows = heightOfRows,
                .heightOfHeader = heightOfHeader,
                .titleIndent = 16},  // the left edge of the images
               parent) {
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAcceptDrops(true);
    setDragDropMode(DropOnly);
    setDragDropOverwriteMode(false);
    setDropIndicatorShown(false);
    setItemDelegate(new LocationCellDelegate(buttonCell, this));
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (opensRow_) {
            Q_EMIT rowOpened(index);
        }
    });
}

void LocationTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    if (model == nullptr || model->columnCount() <= buttonCell) {
        return;
    }
    horizontalHeader()->setSectionResizeMode(mainCell, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(buttonCell, QHeaderView::Fixed);
    horizontalHeader()->resizeSection(buttonCell, buttonCellWidth);
}

void LocationTable::setEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

bool LocationTable::event(QEvent* event) {
    // A current row takes Return before the shortcuts do.
    if (event->type() == QEvent::ShortcutOverride && isReturn(*static_cast<QKeyEvent*>(event)) &&
        currentIndex().isValid()) {
        event->accept();
        return true;
    }
    return BoxTable::event(event);
}

void LocationTable::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    if (current.isValid() && isReturn(*event)) {
        if (!event->isAutoRepeat()) {
            Q_EMIT rowOpened(current);
        }
    } else {
        BoxTable::keyPressEvent(event);
    }
}

void LocationTable::turnBox(const QModelIndex& box) {
    if (!signalsBlocked()) {
        toggleCheckState(*model(), box);
    }
}

void LocationTable::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                const QVector<int>& roles) {
    QTableView::dataChanged(topLeft, bottomRight, roles);
    marks().announce(topLeft, bottomRight);
}

void LocationTable::mouseDoubleClickEvent(QMouseEvent* event) {
    opensRow_ = event->button() == Qt::LeftButton;
    BoxTable::mouseDoubleClickEvent(event);
}

void LocationTable::paintEvent(QPaintEvent* event) {
    BoxTable::paintEvent(event);
    if (model() != nullptr && model()->rowCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setFont(look::font(13));
    painter.setPen(look::muted);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void LocationTable::dragEnterEvent(QDragEnterEvent* event) {
    QTableView::dragEnterEvent(event);
    setDragHovering(event->isAccepted());
}

void LocationTable::dragLeaveEvent(QDragLeaveEvent* event) {
    QTableView::dragLeaveEvent(event);
    setDragHovering(false);
}

void LocationTable::dropEvent(QDropEvent* event) {
    QTableView::dropEvent(event);
    setDragHovering(false);
}

void LocationTable::setDragHovering(bool hovering) {
    if (dragHovering_ != hovering) {
        dragHovering_ = hovering;
        Q_EMIT surroundingsChanged();
    }
}

void LocationTable::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    focusShown_ = focusIsShown(*this, event->reason());
    Q_EMIT surroundingsChanged();
}

void LocationTable::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    focusShown_ = false;
    Q_EMIT surroundingsChanged();
}

void LocationTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    BoxTable::currentChanged(current, previous);
    Q_EMIT surroundingsChanged();
}

}  // namespace tarvin
