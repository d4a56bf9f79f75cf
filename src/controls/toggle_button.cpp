#include "controls/toggle_button.h"

#include "controls/check_box.h"
#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <utility>

namespace tarvin {

ToggleButton::ToggleButton(QString onGlyph, QString offGlyph, QWidget* parent)
    : HoverButton(Kind::quiet, {}, parent),
      onGlyph_(std::move(onGlyph)),
      offGlyph_(std::move(offGlyph)) {
    setCheckable(true);
}

void ToggleButton::draw(QPainter& painter) {
    constexpr int side = 18;
    if (!isChecked() || !isEnabled()) {
        drawBackground(painter);
    } else {
        painter.fillRect(rect(), isDown() ? darkened(look::activeTint) : look::activeTint);
        paintFrame(painter, rect(), 1, look::deepTeal);
    }
    if (!isEnabled()) {
        painter.setOpacity(painter.opacity() * disabledOpacity());
    }
    const QRect area = checkBoxIn(rect(), side);
    painter.drawPixmap(area.topLeft(), picture(glyph(), area.size(), devicePixelRatioOf(painter)));
}

}  // namespace tarvin
