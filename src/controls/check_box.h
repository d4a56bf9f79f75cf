#pragma once

#include <QAbstractItemModel>
#include <QPainter>
#include <QRect>

namespace tarvin {

/// The side of a check box in the location list, in logical pixels; trees and result lists use 16.
inline constexpr int checkBoxSide = 18;

/// Paints a check box that fills the square `box`. A disabled one is painted at opacity 0.45.
void paintCheckBox(QPainter& painter, const QRect& box, Qt::CheckState state, bool enabled = true);

/// The square of side `side`, centred in `cell`.
[[nodiscard]] QRect checkBoxIn(const QRect& cell, int side = checkBoxSide);

/// Where a click in `cell` hits its check box: up to 8 logical pixels outside the box.
[[nodiscard]] QRect checkBoxReach(const QRect& cell, int side = checkBoxSide);

/// Toggles the check state of an index: unchecked and partially checked become checked. Returns
/// false if the item is not checkable, is disabled, or its model refuses.
bool toggleCheckState(QAbstractItemModel& model, const QModelIndex& index);

/// The check box of one row, as a value that a delegate creates for each row it paints.
class CheckBoxCell final {
 public:
    CheckBoxCell() = default;
    /// Takes the state from Qt::CheckStateRole, enabled if the item is.
    explicit CheckBoxCell(const QModelIndex& index);

    void setCheckBox(Qt::CheckState checkBox) { checkBox_ = checkBox; }
    [[nodiscard]] Qt::CheckState checkBox() const { return checkBox_; }

    void setEnabled(bool enabled) { enabled_ = enabled; }
    [[nodiscard]] bool isEnabled() const { return enabled_; }

    /// Paints the box centred in `cell`, `side` logical pixels wide.
    void paint(QPainter& painter, const QRect& cell, int side) const;

 private:
    Qt::CheckState checkBox_ = Qt::Unchecked;
    bool enabled_ = true;
};

}  // namespace tarvin
