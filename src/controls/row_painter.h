#pragma once

#include "controls/look.h"

#include <QAbstractItemView>
#include <QObject>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QStyleOptionViewItem>

namespace tarvin {

/// Tracks the hovered row of a list: Qt gives a delegate only the cell. Enables mouse
/// tracking of the list. Owned by the list. Main thread only.
class RowHover final : public QObject {
    Q_OBJECT

 public:
    /// The tracker of a list, created on first use.
    static RowHover& of(QAbstractItemView& view);

    [[nodiscard]] bool isOver(const QModelIndex& index) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    explicit RowHover(QAbstractItemView& view);

    void setRow(const QModelIndex& index);

    QAbstractItemView& view_;
    QPersistentModelIndex row_;  // first column
};

/// Repaints the whole row of an index: background and focus ring go across its cells. Ignores an
/// invalid index.
void updateRow(const QAbstractItemView& view, const QModelIndex& index);

/// The colours of a row.
struct RowStyle {
    QColor background = look::surface;
    QColor selected = look::rowSelected;
    QColor line = look::rowLine;  ///< below the row; invalid: none
};

/// Paints one cell's part of a row: its background (its own, selected or hovered), the line below
/// it and, if the focus is shown, the focus ring around the whole row.
void paintRow(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
              const RowStyle& rowStyle = {});

}  // namespace tarvin
