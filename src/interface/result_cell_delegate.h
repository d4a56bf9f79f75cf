#pragma once

#include "controls/box_cell_delegate.h"

#include <QFont>

namespace tarvin {

/// Paints the cells of ResultTable: single-line texts, a check box in the last column, and a tint
/// on every second row. Owned by its parent. Main thread only.
class ResultCellDelegate final : public BoxCellDelegate {
 public:
    static constexpr int boxSide = 16;

    explicit ResultCellDelegate(QObject* parent);

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

    /// The geometry of the text in a cell, and its font.
    [[nodiscard]] static QRect textRect(const QRect& cell, int column);
    [[nodiscard]] static QFont textFont(int column);

 protected:
    void paintContent(QPainter& painter, const QRect& cell,
                      const QModelIndex& index) const override;
    [[nodiscard]] RowStyle rowStyle(const QModelIndex& index) const override;
};

}  // namespace tarvin
