#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace tarvin {

/// Paints the cells of ResultTable: texts on one line, a check box in the last column, and a tint
/// on every second row. Owned by its parent; main thread.
class ResultCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int boxSide = 16;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    /// The table takes presses itself.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

    /// Where the text of a cell lies, and its font.
    [[nodiscard]] static QRect textPlace(const QRect& cell, int column);
    [[nodiscard]] static QFont textFont(int column);
};

}  // namespace tarvin
