#include "controls/view_button_bar.h"

#include "controls/look.h"

namespace tarvin {

ViewButtonBar::ViewButtonBar(QWidget* parent) : SolidBar(look::surface, parent) {}

}  // namespace tarvin
