#pragma once

#include <QFont>
#include <QModelIndex>
#include <QRect>

class QAbstractItemView;
class QHelpEvent;
class QTableView;
class QWidget;

namespace tarvin {

class ListHeader;

/// Sets up what all lists of the window have in common: no frame, one selected row, no editing, Tab
/// leaves the list, vertical scrolling by pixels and none horizontally (columns fit the width), our
/// colours and style. Ctrl+F1 shows what the mouse shows as the tool tips of the current row, until
/// it is pressed again or another row becomes the current one. Call it when the list has its
/// header. Main thread only.
void setUpList(QAbstractItemView& list);

/// The same for a table, with `header`, rows of one height in logical pixels, and no grid. Main
/// thread only.
void setUpTable(QTableView& table, ListHeader& header, int heightOfRows);

/// Shows the tool tip of a cell whose text does not fit into `area` in `font`: Qt::ToolTipRole as
/// it is, or else the text with markup escaped, on one line. Hides the tool tip if the text fits.
/// Main thread only.
void showFullText(const QHelpEvent& event, QWidget* viewport, const QRect& area, const QFont& font,
                  const QModelIndex& cell);

}  // namespace tarvin
