#include "interface/loading_overlay.h"

#include "controls/look.h"
#include "controls/spinner.h"
#include "interface/appearance.h"
#include "interface/placement.h"

#include <QPalette>

namespace tarvin {

LoadingOverlay::LoadingOverlay(QWidget& view, Spinner& indicator, Placement& placement)
    : view_(view), indicator_(indicator) {
    QPalette colors = lightPalette();
    QColor veil = look::page;
    veil.setAlphaF(0.86F);
    colors.setColor(QPalette::Window, veil);
    view.setPalette(colors);
    view.setAutoFillBackground(true);
    // The tree of a result, which stays free, takes 18 % of what the window gains.
    constexpr QRect design{205, 97, 799, 320};
    placement.place(&view, {design, {0.18, 0.82}, stretching});
    auto* inside = new Placement(&view, design.size());
    inside->place(&indicator, {{377, 138, 44, 44}, inMiddle, inMiddle});
}

void LoadingOverlay::show() const {
    indicator_.startAnimation();
    view_.raise();
    view_.show();
}

void LoadingOverlay::hide() const {
    view_.hide();
    indicator_.stopAnimation();
}

}  // namespace tarvin
