#include "controls/button_style.h"

namespace tarvin {

void setButtonAtrribute(HoverButton& button, double cornerRadious, const QColor& background,
                        const TitleDetail& titleDetail) {
    button.setKind(HoverButton::Kind::filled);
    button.setFill(NSColorToCGColor(background));
    button.setAttributedTitle(
        setCenterAttributes(titleDetail.titleColor, titleDetail.title, titleDetail.font));
    button.setCornerRadius(cornerRadious);
}

// NOLINTNEXTLINE(readability-identifier-naming)
QColor NSColorToCGColor(const QColor& color) {
    return color;
}

}  // namespace tarvin
