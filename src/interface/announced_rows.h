#pragma once

class QAbstractItemView;
class QModelIndex;

namespace tarvin {

/// Tells assistive technology, if there is any, that cells of a list became others, and that a
/// check box has turned over if it is the one where the keyboard is. For a list that repaints by
/// itself on dataChanged(). Main thread.
void announceRows(QAbstractItemView& list, const QModelIndex& topLeft,
                  const QModelIndex& bottomRight);

/// Whether the keyboard is in the list and on a check box among these cells.
[[nodiscard]] bool holdFocusedBox(const QAbstractItemView& list, const QModelIndex& topLeft,
                                  const QModelIndex& bottomRight);

}  // namespace tarvin
