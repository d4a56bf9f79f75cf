#pragma once

class QAbstractItemView;
class QAbstractScrollArea;
class QTableView;

namespace tarvin {

class ListHeader;

/// Disables horizontal scrolling of `list`: the range of its horizontal scroll bar stays 0. For
/// lists whose columns fit their width. Main thread only.
void disableHorizontalScrolling(QAbstractScrollArea& list);

/// Sets up what all lists of the window have in common: no frame, one selected row, no editing, Tab
/// leaves the list, vertical scrolling by pixels and none horizontally, our colours and style.
/// Call it when the list has its header. Main thread only.
void setUpList(QAbstractItemView& list);

/// The same for a table, with `header`, rows of one height in logical pixels, and no grid. Main
/// thread only.
void setUpTable(QTableView& table, ListHeader& header, int heightOfRows);

}  // namespace tarvin
