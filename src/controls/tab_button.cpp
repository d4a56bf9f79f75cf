#include "controls/tab_button.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <QFontMetrics>
#include <algorithm>
#include <utility>

namespace tarvin {

namespace {

constexpr int tabHeight = 40;
constexpr int glyphSide = 18;
constexpr int gap = 7;
constexpr int foot = 3;
constexpr int fontSize = 13;

QFont titleFont(bool selected) {
    return look::font(fontSize, selected ? QFont::Bold : QFont::Medium);
}

}  // namespace

TabButton::TabButton(QString glyph, const QString& title, QWidget* parent)
    : HoverButton(Kind::quiet, title, parent), glyph_(std::move(glyph)) {
    setDisabledOpacity(1.0);
    // The tabs have no gap between them.
    setFocusRing(FocusRing::Position::inside, look::focusRing);
}

QSize TabButton::sizeHint() const {
    constexpr int padding = 13;
    const int title = QFontMetrics(titleFont(true)).horizontalAdvance(text());
    return {2 * padding + glyphSide + gap + title, tabHeight};
}

double TabButton::shownOpacity() const {
    return isEnabled() ? HoverButton::shownOpacity() : 1.0;
}

void TabButton::draw(QPainter& painter) {
    const bool selected = !isEnabled();
    if (selected || isDown()) {
        painter.fillRect(rect(), look::activeTint);
    }
    if (selected) {
        painter.fillRect(0, height() - foot, width(), foot, look::deepTeal);
    }
    const QFont font = titleFont(selected);
    const int title = QFontMetrics(font).horizontalAdvance(text());
    const int left = std::max((width() - glyphSide - gap - title) / 2, 0);
    const QRect glyphArea(left, (height() - glyphSide) / 2, glyphSide, glyphSide);
    painter.drawPixmap(glyphArea.topLeft(),
                       picture(glyph_, glyphArea.size(), devicePixelRatioOf(painter)));
    const int titleLeft = glyphArea.right() + 1 + gap;
    paintLine(painter, {titleLeft, 0, width() - titleLeft, height()}, text(), font,
              selected ? look::activeTab : look::ink);
}

}  // namespace tarvin
