#pragma once

class QWidget;

namespace tarvin {

/// Has the buttons and lists inside `area` do nothing while a panel covers them, or act again. They
/// look as before. Neither mouse nor keyboard gets there then, but assistive technology presses and
/// selects what it finds by its name. Main thread.
void setCovered(const QWidget* area, bool covered);

}  // namespace tarvin
