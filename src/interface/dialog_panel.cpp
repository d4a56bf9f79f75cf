#include "interface/dialog_panel.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "controls/panel_shadow.h"
#include "interface/making.h"
#include "interface/placement.h"

#include <QPainter>

namespace tarvin {

namespace {

constexpr int frameMargin = 24;

}  // namespace

DialogPanel::DialogPanel(QSize design, const char* headerName, QWidget* parent)
    : Panel(parent),
      header(named(makeLabel({}, look::font(17, QFont::DemiBold), look::surface), headerName)),
      design_(design),
      placement_(new Placement(this, design)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(design);
    new PanelShadow(*this);
    placement_->place(header, {{look::frameLine + frameMargin, look::frameLine,
                                design.width() - 2 * (look::frameLine + frameMargin), bandHeight},
                               stretching,
                               atStart});
}

int DialogPanel::heightForWidth(int) const {
    return design_.height() + heightMissing();
}

QSize DialogPanel::sizeHint() const {
    return {design_.width(), heightForWidth(design_.width())};
}

void DialogPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::surface);
    if (footHeight_ > 0) {
        const int top = height() - look::frameLine - footHeight_;
        painter.fillRect(look::frameLine, top, width() - 2 * look::frameLine, footHeight_,
                         look::page);
        painter.fillRect(look::frameLine, top, width() - 2 * look::frameLine, look::frameLine,
                         look::line);
    }
    paintFrame(painter, rect(), look::frameLine, look::noticeFrame);
    painter.fillRect(look::frameLine, look::frameLine, width() - 2 * look::frameLine, bandHeight,
                     look::panelBlue);
}

}  // namespace tarvin
