#include "controls/button_settings_saved.h"

#include "controls/look.h"
#include "controls/painting.h"

#include <QLinearGradient>

namespace tarvin {

ButtonSettingsSaved::ButtonSettingsSaved(QWidget* parent)
    : PaintedButton(parent, Tracking::inActiveApplication) {}

void ButtonSettingsSaved::setViewTransparent(ViewTransparent* viewTransparent) {
    if (viewTransparent_ != nullptr) {
        viewTransparent_->disconnect(this);
    }
    viewTransparent_ = viewTransparent;
    if (viewTransparent != nullptr) {
        connect(viewTransparent, &ViewTransparent::viewsOverlaidCountChanged, this,
                &ButtonSettingsSaved::updateCursor);
        // destroyed() comes while pointers to the widget are still valid.
        connect(viewTransparent, &QObject::destroyed, this, [this] {
            viewTransparent_.clear();
            updateCursor();
        });
    }
    updateCursor();
}

void ButtonSettingsSaved::draw(QPainter& painter) {
    painter.fillRect(rect(), look::surface);
    QColor base = hovering() ? look::noticeHover : look::noticeFoot;
    if (isDown()) {
        base = darkened(base);
    }
    QLinearGradient gradient(0, height(), 0, 0);
    gradient.setColorAt(0, base);
    base.setAlphaF(0.5F);
    gradient.setColorAt(1, base);
    painter.fillRect(rect(), gradient);
    paintFrame(painter, rect(), 1,
               hovering() ? look::noticeButtonLineHover : look::noticeButtonLine);
    paintLine(painter, rect().adjusted(1, 1, -1, -1), title(), look::font(13), Qt::black,
              Qt::AlignHCenter);
}

double ButtonSettingsSaved::shownOpacity() const {
    return isEnabled() ? alpha() : alpha() * 0.45;
}

void ButtonSettingsSaved::updateCursor() {
    if (viewTransparent_ != nullptr && viewTransparent_->viewsOverlaidCount() == 0) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
}

}  // namespace tarvin
