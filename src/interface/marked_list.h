#pragma once

#include <QModelIndex>

namespace tarvin {

/// A list whose rows have check boxes, as seen by assistive technology: its visible rows in order,
/// without those of collapsed extensions. Main thread only.
class MarkedList {
 public:
    MarkedList() = default;
    MarkedList(const MarkedList&) = delete;
    MarkedList& operator=(const MarkedList&) = delete;
    virtual ~MarkedList() = default;

    [[nodiscard]] virtual int shownRows() const = 0;
    /// Returns an invalid index if there is no such row or column.
    [[nodiscard]] virtual QModelIndex indexInRow(int row, int column) const = 0;
    /// Returns -1 if the row of the index is not shown.
    [[nodiscard]] virtual int rowOf(const QModelIndex& index) const = 0;
    /// Does what a click on the box does; nothing while a panel covers the list.
    virtual void turnBox(const QModelIndex& box) = 0;
};

}  // namespace tarvin
