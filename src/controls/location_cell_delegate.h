#pragma once

#include "controls/box_cell_delegate.h"

namespace tarvin {

/// Paints the cells of the location list, in rows of 56 logical pixels: CustomTableCellView and a
/// check box. Owned by its parent. Main thread only.
class LocationCellDelegate final : public BoxCellDelegate {
 public:
    explicit LocationCellDelegate(int boxColumn, QObject* parent = nullptr);

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

 protected:
    void paintContent(QPainter& painter, const QRect& cell,
                      const QModelIndex& index) const override;
};

}  // namespace tarvin
