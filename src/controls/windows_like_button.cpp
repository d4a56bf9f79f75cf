#include "controls/windows_like_button.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <utility>

namespace tarvin {

WIndowsLikeButton::WIndowsLikeButton(QString glyph, QWidget* parent)
    : HoverButton(parent), glyph_(std::move(glyph)) {
    setDisabledOpacity(0.4);
}

void WIndowsLikeButton::draw(QPainter& painter) {
    constexpr int edge = 2;
    constexpr int side = 20;
    painter.fillRect(rect(), isDown() ? darkened(look::teal) : look::teal);
    paintFrame(painter, rect(), edge, look::surface);
    const QRect area((width() - side) / 2, (height() - side) / 2, side, side);
    painter.drawPixmap(area.topLeft(), picture(glyph_, area.size(), devicePixelRatioOf(painter)));
}

}  // namespace tarvin
