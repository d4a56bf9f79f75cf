#include "controls/view_top_bar.h"

#include "controls/look.h"

namespace tarvin {

ViewTopBar::ViewTopBar(QWidget* parent) : SolidBar(look::topBar, parent) {}

}  // namespace tarvin
