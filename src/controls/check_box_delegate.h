#pragma once

#include "controls/check_box_painter.h"

#include <QStyledItemDelegate>

namespace tarvin {

/// Gives an index the other check state: a box that is partly on or off goes on, one that is on
/// goes off. False if the item cannot be checked now or its model refuses.
bool toggleCheckState(QAbstractItemModel& model, const QModelIndex& index);

/// Paints a column of check boxes with CheckBoxCell and turns them over by click or by Space. The
/// box takes clicks up to 8 logical pixels outside its edge. Owned by its parent; main thread.
class CheckBoxDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    explicit CheckBoxDelegate(QObject* parent = nullptr, int side = checkBoxSide);

    /// Where a click in a cell means the box.
    [[nodiscard]] QRect reachIn(const QRect& cell) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

 Q_SIGNALS:
    /// A person has turned a box over and the model has taken the new state.
    void checkButtonClicked(const QModelIndex& index);

 private:
    bool handleMouse(const QMouseEvent& event, QAbstractItemModel& model, const QRect& cell,
                     const QModelIndex& index);

    int side_;
    QPersistentModelIndex pressed_;  // where a click began
};

}  // namespace tarvin
