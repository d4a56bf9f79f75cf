#include "controls/button_hover_simple.h"

#include "controls/look.h"

#include <QEvent>

namespace tarvin {

ButtonHoverSimple::ButtonHoverSimple(QWidget* parent)
    : PaintedButton(parent, Tracking::inKeyWindow) {
    // There is no room around it in the corner of the top bar.
    setFocusRing(FocusRing::Position::inside, look::surface);
}

void ButtonHoverSimple::setImageNormal(const QIcon& normal, const QIcon& hover,
                                       const QIcon& disabled, const QIcon& onClick) {
    normalImage_ = normal;
    hoverImage_ = hover;
    disabledImage_ = disabled;
    onClickImage_ = onClick;
    setHovering(false);
    setImage(normalImage_);
}

void ButtonHoverSimple::resetButton() {
    setHovering(false);
    if (isEnabled() && resetImageWhenNotHovering_) {
        setImage(normalImage_);
    }
}

void ButtonHoverSimple::draw(QPainter& painter) {
    image_.paint(&painter, rect());
}

void ButtonHoverSimple::mouseEntered() {
    if (isEnabled()) {
        setImage(hoverImage_);
        showCursor(Qt::PointingHandCursor);
    }
}

void ButtonHoverSimple::mouseExited() {
    if (isEnabled() && resetImageWhenNotHovering_) {
        setImage(mouseDown_ ? hoverImage_ : normalImage_);
    }
}

void ButtonHoverSimple::changeEvent(QEvent* event) {
    PaintedButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        unsetCursor();
    }
}

void ButtonHoverSimple::setImage(const QIcon& image) {
    image_ = image;
    update();
}

}  // namespace tarvin
