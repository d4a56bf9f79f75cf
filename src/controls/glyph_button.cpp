#include "controls/glyph_button.h"

#include "controls/images.h"
#include "controls/painting.h"

#include <QPainter>
#include <utility>

namespace tarvin {

namespace {

constexpr QSize quietGlyph{18, 18};
constexpr double disabledGlyphOpacity = 0.45;

}  // namespace

GlyphButton::GlyphButton(QString glyph, QWidget* parent)
    : HoverButton(Kind::quiet, {}, parent), glyph_(std::move(glyph)) {}

void GlyphButton::draw(QPainter& painter) {
    drawBackground(painter);
    const double before = painter.opacity();
    painter.setOpacity(isEnabled() ? before : before * disabledGlyphOpacity);
    painter.drawPixmap(
        QPoint((width() - quietGlyph.width()) / 2, (height() - quietGlyph.height()) / 2),
        picture(glyph_, quietGlyph, devicePixelRatioOf(painter)));
    painter.setOpacity(before);
}

}  // namespace tarvin
