#pragma once

class QWidget;

namespace tarvin {

/// Disables or enables the effect of the buttons and lists inside `area`, which a panel covers.
/// They look as before. The cover keeps mouse and keyboard away, but assistive technology still
/// presses and selects controls by name. Main thread only.
void setCovered(const QWidget* area, bool covered);

}  // namespace tarvin
