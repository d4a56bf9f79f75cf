#pragma once

#include "controls/look.h"

#include <QAbstractItemView>
#include <QObject>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QStyleOptionViewItem>

namespace tarvin {

/// Knows over which row of a list the pointer is, because Qt tells a delegate only of the cell.
/// Turns on mouse tracking of the list. Belongs to the list; main thread.
class RowHover final : public QObject {
    Q_OBJECT

 public:
    /// The one of a list; made at the first call.
    static RowHover& of(QAbstractItemView& view);

    [[nodiscard]] bool isOver(const QModelIndex& index) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    explicit RowHover(QAbstractItemView& view);

    void setRow(const QModelIndex& index);

    QAbstractItemView& view_;
    QPersistentModelIndex row_;  // first column
};

/// Repaints the whole row of an index, with what goes across its cells: its ground and the focus
/// ring. Nothing happens without a row.
void updateRow(const QAbstractItemView& view, const QModelIndex& index);

/// The colours of a row.
struct RowLook {
    QColor background = look::surface;
    QColor selected = look::rowSelected;
    QColor line = look::rowLine;  ///< below the row; invalid: none
};

/// Paints one cell's part of a row: its ground (of its own, or the colour of selection or of the
/// pointer), the line below it and, if the keyboard is there, the focus ring round the whole row.
void paintRow(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
              const RowLook& rowLook = {});

}  // namespace tarvin
