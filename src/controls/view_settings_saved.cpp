#include "controls/view_settings_saved.h"

#include "controls/look.h"
#include "controls/painting.h"

namespace tarvin {

ViewSettingsSaved::ViewSettingsSaved(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ViewSettingsSaved::paintEvent(QPaintEvent*) {
    constexpr int band = 25;
    constexpr int foot = 45;
    QPainter painter(this);
    painter.fillRect(rect(), look::surface);
    paintFrame(painter, rect(), 1, look::noticeFrame);
    painter.fillRect(1, 1, width() - 2, band, look::noticeBand);
    painter.fillRect(1, height() - 1 - foot, width() - 2, foot, look::noticeFoot);
}

}  // namespace tarvin
