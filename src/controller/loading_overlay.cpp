#include "controller/loading_overlay.h"

#include "controls/spinner.h"
#include "interface/main_window.h"

namespace tarvin {

void LoadingOverlay::show() const {
    window_.loadingIndicator->startAnimation();
    window_.loadingView->raise();
    window_.loadingView->show();
}

void LoadingOverlay::hide() const {
    window_.loadingView->hide();
    window_.loadingIndicator->stopAnimation();
}

}  // namespace tarvin
