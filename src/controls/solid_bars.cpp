#include "controls/solid_bars.h"

#include <QPaintEvent>
#include <QPainter>

namespace tarvin {

SolidBar::SolidBar(const QColor& ownColor, QWidget* parent)
    : QWidget(parent), ownColor_(ownColor), fillColor_(ownColor) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SolidBar::setFillColor(const QColor& fillColor) {
    fillColor_ = fillColor;
    update();
}

void SolidBar::paintEvent(QPaintEvent* event) {
    fillColor_ = ownColor_;
    QPainter(this).fillRect(event->rect(), fillColor_);
}

}  // namespace tarvin
