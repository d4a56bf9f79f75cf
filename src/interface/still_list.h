#pragma once

class QAbstractItemView;
class QAbstractScrollArea;

namespace tarvin {

/// Keeps the content of `list` from scrolling sideways: the range of its horizontal scroll bar is
/// always 0. For lists whose columns are as wide as they are. Main thread.
void keepStillSideways(QAbstractScrollArea& list);

/// What all lists of the window have in common: no frame, one selected row, nothing to edit, Tab
/// leaves them, they scroll by pixels and keep still sideways. Main thread.
void setUpList(QAbstractItemView& list);

}  // namespace tarvin
