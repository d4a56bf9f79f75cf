#include "controls/hover_button.h"

#include "controls/look.h"
#include "controls/painting.h"

#include <QEvent>
#include <QFontMetrics>
#include <algorithm>

namespace tarvin {

namespace {

constexpr QColor disabledBackgroundOnBar{205, 207, 208};
constexpr QColor disabledLineOnBar{169, 178, 183};
constexpr QColor disabledTextOnBar{115, 126, 133};
constexpr QColor outlineColor{255, 255, 255, 140};  // white at 55 %
constexpr QColor outlinePressed{0, 0, 0, 31};       // black at 12 %

QFont::Weight weightOf(HoverButton::Kind kind) {
    switch (kind) {
        case HoverButton::Kind::filled:
            return QFont::Bold;
        case HoverButton::Kind::quiet:
        case HoverButton::Kind::text:
            return QFont::Medium;
        case HoverButton::Kind::outline:
            break;
    }
    return QFont::Normal;
}

int heightOf(HoverButton::Kind kind) {
    switch (kind) {
        case HoverButton::Kind::filled:
            return 36;
        case HoverButton::Kind::quiet:
            return 32;
        case HoverButton::Kind::text:
            return 24;
        case HoverButton::Kind::outline:
            break;
    }
    return 29;
}

}  // namespace

HoverButton::HoverButton(QWidget* parent) : PaintedButton(parent), fill_(look::panelBlue) {
    setKind(Kind::filled);
    updateCursor();
}

HoverButton::HoverButton(Kind kind, const QString& title, QWidget* parent) : HoverButton(parent) {
    setKind(kind);
    setTitle(title);
}

void HoverButton::setKind(Kind kind) {
    kind_ = kind;
    look_.pixelSize = kind == Kind::filled ? 14 : 13;
    look_.underline = kind == Kind::text;
    setFocusRing(FocusRing::Position::outside,
                 kind == Kind::outline ? look::surface : look::focusRing);
    updateGeometry();
    update();
}

void HoverButton::setFill(const QColor& fill) {
    fill_ = fill;
    update();
}

void HoverButton::setCornerRadius(double radius) {
    cornerRadius_ = radius;
    update();
}

void HoverButton::setAttributedTitle(const AttributedTitle& title) {
    look_ = title;
    setTitle(title.text);
    updateGeometry();
    update();
}

AttributedTitle HoverButton::attributedTitle() const {
    AttributedTitle title = look_;
    title.text = text();
    return title;
}

void HoverButton::setDisabledOpacity(double opacity) {
    disabledOpacity_ = std::clamp(opacity, 0.0, 1.0);
    update();
}

void HoverButton::setOnGrayBar(bool onGrayBar) {
    onGrayBar_ = onGrayBar;
    update();
}

QSize HoverButton::sizeHint() const {
    // One pixel: the width of a text can be a fraction more.
    const int padding = kind_ == Kind::text ? 1 : 15;
    const QFontMetrics metrics(look::font(look_.pixelSize, weightOf(kind_)));
    return {metrics.horizontalAdvance(text()) + 2 * padding, heightOf(kind_)};
}

void HoverButton::draw(QPainter& painter) {
    drawBackground(painter);
    drawTitle(painter);
}

void HoverButton::mouseEntered() {
    if (isEnabled()) {
        setAlpha(look::hoverAlpha);
    }
    updateCursor();
}

void HoverButton::mouseExited() {
    if (isEnabled()) {
        setAlpha(1.0);
    }
}

double HoverButton::shownOpacity() const {
    if (isEnabled()) {
        return alpha();
    }
    // The hover alpha is not the state of a disabled button.
    const double own = alpha() == look::hoverAlpha ? 1.0 : alpha();
    return kind_ == Kind::quiet ? own : std::min(own, disabledOpacity_);
}

void HoverButton::changeEvent(QEvent* event) {
    PaintedButton::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) {
        return;
    }
    if (isEnabled() && !hovering() && alpha() == look::hoverAlpha) {
        setAlpha(1.0);
    }
    updateCursor();
}

void HoverButton::drawBackground(QPainter& painter) {
    switch (kind_) {
        case Kind::filled:
            paintBackground(painter, isDown() ? darkened(fill_) : fill_);
            break;
        case Kind::quiet: {
            const QuietColors colors = quietColors();
            painter.fillRect(rect(), isDown() ? darkened(colors.background) : colors.background);
            paintFrame(painter, rect(), 1, colors.line);
            break;
        }
        case Kind::outline:
            if (isDown()) {
                painter.fillRect(rect(), outlinePressed);
            }
            paintFrame(painter, rect(), 1, outlineColor);
            break;
        case Kind::text:
            break;
    }
}

void HoverButton::drawTitle(QPainter& painter) {
    const int padding = kind_ == Kind::text ? 0 : 4;
    QFont font = look::font(look_.pixelSize, weightOf(kind_));
    font.setUnderline(look_.underline);
    paintLine(painter, rect().adjusted(padding, 0, -padding, 0), text(), font, titleColor(),
              look_.alignment.value_or(kind_ == Kind::text ? Qt::AlignLeft : Qt::AlignHCenter));
}

HoverButton::QuietColors HoverButton::quietColors() const {
    if (isEnabled()) {
        return {look::surface, look::controlLine, look::ink};
    }
    if (onGrayBar_) {
        return {disabledBackgroundOnBar, disabledLineOnBar, disabledTextOnBar};
    }
    return {look::page, look::frame, look::disabledText};
}

QColor HoverButton::titleColor() const {
    if (kind_ == Kind::quiet && !isEnabled()) {
        return quietColors().text;
    }
    if (look_.color.isValid()) {
        return look_.color;
    }
    if (kind_ == Kind::text) {
        return isDown() ? darkened(look::activeTab) : look::activeTab;
    }
    return kind_ == Kind::quiet ? quietColors().text : look::surface;
}

void HoverButton::paintBackground(QPainter& painter, const QColor& color) const {
    if (cornerRadius_ <= 0) {
        painter.fillRect(rect(), color);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect(), cornerRadius_, cornerRadius_);
}

void HoverButton::updateCursor() {
    showCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ForbiddenCursor);
}

}  // namespace tarvin
