#pragma once

#include "interface/accessible_list.h"
#include "interface/mark_announcer.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPersistentModelIndex>

namespace tarvin {

/// The base of the lists whose rows have check boxes, `View` being QTableView or QTreeView: the
/// boxes take clicks and Space, and their changes are announced to assistive technology. A click is
/// a press and a release of the left button on the same box; a double click is two. A key that is
/// held acts once. The Menu key opens the menu of the current row, which is scrolled into view
/// first. Main thread only.
template <class View>
class BoxList : public View, public MarkedList {
 protected:
    BoxList(int boxColumn, QWidget* parent)
        : View(parent), boxColumn_(boxColumn), marks_(*this, boxColumn) {
        this->setMouseTracking(true);
        AccessibleList::install();
    }

    /// The box that a click at `point` hits; invalid if there is none.
    [[nodiscard]] virtual QModelIndex boxAt(const QPoint& point) const = 0;

    /// Begins a click if the event is a press on a box, and returns whether it is.
    bool pressBox(const QMouseEvent& event) {
        pressedBox_ =
            event.button() == Qt::LeftButton ? boxAt(event.position().toPoint()) : QModelIndex();
        return pressedBox_.isValid();
    }

    [[nodiscard]] QModelIndex boxOfCurrentRow() const {
        return this->currentIndex().siblingAtColumn(boxColumn_);
    }

    /// Makes the box of the current row the current index: assistive technology reads on from it.
    void continueFromBox() {
        if (const QModelIndex box = boxOfCurrentRow(); box.isValid()) {
            this->selectionModel()->setCurrentIndex(box, QItemSelectionModel::NoUpdate);
        }
    }

    [[nodiscard]] MarkAnnouncer& marks() { return marks_; }

    /// Opens the menu of a row that is in view. `row` is in the first column, `lowerLeft` the
    /// corner of that cell in the viewport.
    virtual void openMenu(const QModelIndex& /*row*/, const QPoint& lowerLeft) {
        Q_EMIT this->customContextMenuRequested(lowerLeft);
    }

    /// Only keys send a request for a menu to the list itself; the mouse sends it to the viewport.
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ContextMenu ||
            static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Keyboard) {
            return View::event(event);
        }
        if (const QModelIndex row = this->currentIndex().siblingAtColumn(0); row.isValid()) {
            this->scrollTo(row);
            openMenu(row, (this->visualRect(row) & this->viewport()->rect()).bottomLeft());
        }
        return true;
    }

    void paintEvent(QPaintEvent* event) override {
        View::paintEvent(event);
        marks_.painted();
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (!pressBox(*event)) {
            View::mousePressEvent(event);
        }
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        if (!pressedBox_.isValid()) {
            View::mouseMoveEvent(event);
        }
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (!pressedBox_.isValid()) {
            View::mouseReleaseEvent(event);
            return;
        }
        const QModelIndex pressed = pressedBox_;
        pressedBox_ = QPersistentModelIndex();
        if (event->button() == Qt::LeftButton && boxAt(event->position().toPoint()) == pressed) {
            turnBox(pressed);
        }
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (!pressBox(*event)) {
            View::mouseDoubleClickEvent(event);
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Space) {
            View::keyPressEvent(event);
        } else if (const QModelIndex box = boxOfCurrentRow();
                   box.isValid() && !event->isAutoRepeat()) {
            turnBox(box);
        }
    }

 private:
    const int boxColumn_;
    MarkAnnouncer marks_;
    QPersistentModelIndex pressedBox_;  // valid between press and release
};

}  // namespace tarvin
