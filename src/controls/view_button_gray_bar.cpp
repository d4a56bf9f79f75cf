#include "controls/view_button_gray_bar.h"

#include "controls/look.h"

namespace tarvin {

ViewButtonGrayBar::ViewButtonGrayBar(QWidget* parent) : SolidBar(look::barGray, parent) {}

}  // namespace tarvin
