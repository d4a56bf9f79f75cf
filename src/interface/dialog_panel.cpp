#include "interface/dialog_panel.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "controls/panel_shadow.h"
#include "interface/making.h"
#include "interface/placement.h"

#include <QPainter>

namespace tarvin {

namespace {

constexpr int frameLine = 1;
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
    placement_->place(header, {{frameLine + frameMargin, frameLine,
                                design.width() - 2 * (frameLine + frameMargin), bandHeight},
                               stretching,
                               atStart});
}

int DialogPanel::heightForWidth(int width) const {
    Q_UNUSED(width)
    return design_.height() + heightMissing();
}

QSize DialogPanel::sizeHint() const {
    return {design_.width(), heightForWidth(design_.width())};
}

void DialogPanel::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
    QPainter painter(this);
    painter.fillRect(rect(), look::surface);
    if (footHeight_ > 0) {
        const int top = height() - frameLine - footHeight_;
        painter.fillRect(frameLine, top, width() - 2 * frameLine, footHeight_, look::page);
        painter.fillRect(frameLine, top, width() - 2 * frameLine, frameLine, look::line);
    }
    paintFrame(painter, rect(), frameLine, look::noticeFrame);
    painter.fillRect(frameLine, frameLine, width() - 2 * frameLine, bandHeight, look::panelBlue);
}

}  // namespace tarvin
