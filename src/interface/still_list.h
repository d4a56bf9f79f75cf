#pragma once

class QAbstractScrollArea;

namespace tarvin {

/// Keeps the content of `list` from scrolling sideways: the range of its horizontal scroll bar is
/// always 0. For lists whose columns are as wide as they are. Main thread.
void keepStillSideways(QAbstractScrollArea& list);

}  // namespace tarvin
