#pragma once

#include <QStyledItemDelegate>

namespace tarvin {

/// Paints the wide column of the location list with CustomTableCellView, in rows of 56. Space turns
/// over the check box of the row, which lies in another column. Owned by its parent; main thread.
class LocationCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    /// `checkColumn` is the column of the check boxes.
    explicit LocationCellDelegate(int checkColumn, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

 Q_SIGNALS:
    /// Space was pressed on the row and the model has taken the new state of `checkIndex`.
    void checkButtonClicked(const QModelIndex& checkIndex);

 private:
    int checkColumn_;
};

}  // namespace tarvin
