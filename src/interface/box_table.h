#pragma once

#include "interface/box_list.h"

#include <QTableView>

namespace tarvin {

class ListHeader;

/// A table with a column of check boxes and rows of one height. Main thread only.
class BoxTable : public BoxList<QTableView> {
 public:
    [[nodiscard]] int shownRows() const override;
    [[nodiscard]] QModelIndex indexInRow(int row, int column) const override;
    [[nodiscard]] int rowOf(const QModelIndex& index) const override { return index.row(); }

 protected:
    /// Lengths in logical pixels.
    struct Design {
        int boxColumn = 0;
        int boxSide = 0;
        int heightOfRows = 0;
        int heightOfHeader = 0;
        int titleIndent = 0;  ///< from the left of the list
    };

    BoxTable(const Design& design, QWidget* parent);

    [[nodiscard]] ListHeader& listHeader() const { return *header_; }
    [[nodiscard]] QModelIndex boxAt(const QPoint& point) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
    const int boxColumn_;
    const int boxSide_;
    ListHeader* const header_;
};

}  // namespace tarvin
