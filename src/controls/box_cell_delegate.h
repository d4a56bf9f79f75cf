#pragma once

#include "controls/row_painter.h"

#include <QStyledItemDelegate>

namespace tarvin {

/// Paints the cells of a list with a column of check boxes: the background of the row and, in that
/// column, the box. A derived class paints the other columns. The list handles the mouse and the
/// keyboard. Owned by its parent. Main thread only.
class BoxCellDelegate : public QStyledItemDelegate {
 public:
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const final;
    /// Handles nothing: QStyledItemDelegate would toggle a box by itself.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) final;

 protected:
    /// `boxSide` in logical pixels.
    BoxCellDelegate(int boxColumn, int boxSide, QObject* parent);

    /// Paints a cell of another column over the background.
    virtual void paintContent(QPainter& painter, const QRect& cell,
                              const QModelIndex& index) const = 0;
    [[nodiscard]] virtual RowStyle rowStyle(const QModelIndex& index) const;

 private:
    const int boxColumn_;
    const int boxSide_;
};

}  // namespace tarvin
