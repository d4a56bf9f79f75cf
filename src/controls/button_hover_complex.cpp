#include "controls/button_hover_complex.h"

#include "controls/look.h"
#include "controls/painting.h"

#include <QFontMetrics>
#include <algorithm>
#include <optional>

namespace tarvin {

namespace {

constexpr int inset = 10;
constexpr int pictureSide = 110;

std::optional<QSize> fittingSize(const QIcon& icon) {
    const QList<QSize> sizes = icon.availableSizes();
    const auto found = std::find_if(sizes.begin(), sizes.end(),
                                    [](const QSize& size) { return size.width() == pictureSide; });
    return found == sizes.end() ? std::nullopt : std::optional(*found);
}

/// The pixmap of an icon to paint: the fitting one, otherwise the largest.
QPixmap chosenPixmap(const QIcon& icon, const std::optional<QSize>& fitting) {
    if (fitting) {
        return icon.pixmap(*fitting, 1.0);
    }
    const QList<QSize> sizes = icon.availableSizes();
    const auto largest =
        std::max_element(sizes.begin(), sizes.end(), [](const QSize& one, const QSize& other) {
            return one.width() * one.height() < other.width() * other.height();
        });
    return largest == sizes.end() ? QPixmap() : icon.pixmap(*largest, 1.0);
}

bool isVector(const QIcon& icon) {
    return !icon.name().isEmpty();
}

}  // namespace

ButtonHoverComplex::ButtonHoverComplex(QWidget* parent)
    : PaintedButton(parent), fillColor_(look::deepTeal) {
    setCursor(Qt::PointingHandCursor);
}

void ButtonHoverComplex::setImageNormal(const QIcon& normal, const QIcon& arrow) {
    normalImage_ = normal;
    arrowImage_ = arrow;
    setHovering(false);
}

void ButtonHoverComplex::setFillColor(const QColor& fillColor) {
    fillColor_ = fillColor;
    update();
}

void ButtonHoverComplex::setMouseDown(bool mouseDown) {
    mouseDown_ = mouseDown;
    update();
}

void ButtonHoverComplex::draw(QPainter& painter) {
    painter.fillRect(rect(), isDown() ? darkened(fillColor_) : fillColor_);
    const QRect content = rect().adjusted(inset, inset, -inset, -inset);
    drawPicture(painter, content);
    constexpr int titleFoot = 15;  // from the content's top edge
    const QFont font = look::font(13);
    const int height = QFontMetrics(font).height();
    const QRect area(content.left(), content.top() + titleFoot - height, content.width(), height);
    paintLine(painter, area, title(), font, look::surface);
}

void ButtonHoverComplex::mouseEntered() {
    setAlpha(0.8);
    showCursor(Qt::PointingHandCursor);
}

void ButtonHoverComplex::mouseExited() {
    setAlpha(1.0);
}

void ButtonHoverComplex::mousePressEvent(QMouseEvent* event) {
    setMouseDown(event->button() == Qt::LeftButton);
    PaintedButton::mousePressEvent(event);
}

void ButtonHoverComplex::mouseReleaseEvent(QMouseEvent* event) {
    PaintedButton::mouseReleaseEvent(event);
    setMouseDown(false);
}

void ButtonHoverComplex::drawPicture(QPainter& painter, const QRect& content) const {
    const std::optional<QSize> fitting = fittingSize(normalImage_);
    const QSize size = fitting.value_or(QSize(pictureSide, pictureSide));
    const QPoint origin(qRound((content.width() - size.width()) / 2.0),
                        qRound((content.height() - size.height()) / 2.0));
    const QRect area(content.topLeft() + origin, size);
    if (isVector(normalImage_)) {
        normalImage_.paint(&painter, area);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(area, chosenPixmap(normalImage_, fitting));
}

}  // namespace tarvin
