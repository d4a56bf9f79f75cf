#include "controls/notice_strip.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "controls/plain_text.h"

#include <QEvent>
#include <QFontMetrics>
#include <algorithm>
#include <utility>

namespace tarvin {

namespace {

constexpr int pictureLeft = 8;
constexpr int pictureSide = 18;
constexpr int gap = 8;  ///< between image, message and action
constexpr int rightPadding = 12;
constexpr int messageLeft = pictureLeft + pictureSide + gap;

QFont messageFont() {
    return look::font(13);
}

QFont actionFont() {
    QFont font = look::font(13, QFont::DemiBold);
    font.setUnderline(true);
    return font;
}

/// One pixel more: the width of a text can be a fraction more.
int widthOf(const QString& text, const QFont& font) {
    return QFontMetrics(font).horizontalAdvance(text) + 1;
}

}  // namespace

NoticeStrip::NoticeStrip(QString pictureName, QString action, QWidget* parent)
    : PaintedButton(parent), pictureName_(std::move(pictureName)), action_(std::move(action)) {
    setFocusRing(FocusRing::Position::outside, look::surface);
    showCursor(Qt::PointingHandCursor);
    setMessage({});
}

void NoticeStrip::setMessage(const QString& message) {
    setTitle(message);
    setAccessibleName(message.isEmpty() ? action_ : message + QLatin1Char(' ') + action_);
    setToolTip(message.isEmpty() ? QString() : plainToolTip(message));
    updateGeometry();
}

bool NoticeStrip::isElided() const {
    return messageWidth() > messageArea().width();
}

QSize NoticeStrip::sizeHint() const {
    if (text().isEmpty()) {
        return {0, fixedHeight};
    }
    const int needed = messageLeft + messageWidth() + gap + actionWidth() + rightPadding;
    return {std::min(needed, int{maxWidth}), fixedHeight};
}

QRect NoticeStrip::messageArea() const {
    return rect().adjusted(messageLeft, 0, -(gap + actionWidth() + rightPadding), 0);
}

int NoticeStrip::actionWidth() const {
    return widthOf(action_, actionFont());
}

int NoticeStrip::messageWidth() const {
    return widthOf(text(), messageFont());
}

void NoticeStrip::draw(QPainter& painter) {
    painter.fillRect(rect(), isDown() ? darkened(look::noticeBand) : look::noticeBand);
    const QRect square(pictureLeft, (rect().height() - pictureSide) / 2, pictureSide, pictureSide);
    painter.drawPixmap(square, picture(pictureName_, square.size(), devicePixelRatioOf(painter)));
    const QRect message = messageArea();
    paintLine(painter, message, text(), messageFont(), look::ink);
    paintLine(painter, {message.right() + 1 + gap, 0, actionWidth(), rect().height()}, action_,
              actionFont(), look::ink);
}

void NoticeStrip::mouseEntered() {
    setAlpha(look::hoverAlpha);
}

void NoticeStrip::mouseExited() {
    setAlpha(1.0);
}

bool NoticeStrip::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && !isElided()) {
        event->ignore();
        return true;
    }
    return PaintedButton::event(event);
}

}  // namespace tarvin
