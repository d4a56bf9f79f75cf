#pragma once

#include <QModelIndex>

namespace tarvin {

/// A list whose rows have check boxes, as assistive technology goes through it: row by row, in the
/// order in which they are shown, those of collapsed parts left out. Each list of the window is
/// one. Main thread.
class MarkedList {
 public:
    MarkedList() = default;
    MarkedList(const MarkedList&) = delete;
    MarkedList& operator=(const MarkedList&) = delete;
    virtual ~MarkedList() = default;

    [[nodiscard]] virtual int shownRows() const = 0;
    /// Invalid if there is no such row or column.
    [[nodiscard]] virtual QModelIndex indexInRow(int row, int column) const = 0;
    /// -1 if the row of the index is not shown.
    [[nodiscard]] virtual int rowOf(const QModelIndex& index) const = 0;
    /// What a click on a box does; nothing while a panel covers the list.
    virtual void turnBox(const QModelIndex& box) = 0;
};

}  // namespace tarvin
