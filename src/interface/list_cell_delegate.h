#pragma once

#include <QRect>
#include <QStyledItemDelegate>

namespace tarvin {

class ListTable;

/// Paints the cells of a ListTable, its parent. Main thread only.
class ListCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    explicit ListCellDelegate(ListTable& table);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

    /// The full text of a cell if it is shortened in `cell`, else an empty text.
    [[nodiscard]] QString hiddenText(const QRect& cell, const QModelIndex& index) const;

 private:
    const ListTable& table_;
};

}  // namespace tarvin
