#include "interface/progress_screen.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/progress_bar.h"
#include "controls/scan_animation.h"
#include "controls/solid_bars.h"
#include "controls/state_label.h"
#include "interface/making.h"
#include "interface/placement.h"

#include <QStackedWidget>

namespace tarvin {

namespace {

constexpr QSize blockPage{1016, 426};
constexpr int stateTop = 211;

}  // namespace

ProgressScreen::ProgressScreen(ViewTopBar* bar)
    : Screen(QStringLiteral("5"), bar),
      progressTypeText(makeTitle("progressTypeText", tr("Searching for duplicate files"))),
      exactSimilarTabView(named(new QStackedWidget, "exactSimilarTabView")),
      animationImage(named(new ScanAnimation, "animationImage")),
      searchStatus(named(makeLabel(tr("Searching for duplicate files..."),
                                   look::font(20, QFont::DemiBold), look::ink, Qt::AlignHCenter),
                         "searchStatus")),
      similarIndicator(named(new ProgressBar, "similarIndicator")),
      similarProcessing(named(new ElidedLabel, "similarProcessing")),
      progressDetails(
          named(makeLabel({}, look::font(12), look::muted, Qt::AlignHCenter), "progressDetails")),
      progressState(named(new StateLabel, "progressState")),
      textelapse(named(makeLabel({}, look::font(14, QFont::DemiBold), look::ink), "textelapse")),
      pauseResume(makeFilledButton("pauseResume", tr("Pause"), look::panelBlue)),
      stopButton(makeFilledButton("stopButton", tr("Stop"), look::slate)),
      actionBar_(named(new ViewButtonGrayBar, "progressActionBar")) {
    similarIndicator->setAccessibleName(tr("Scan progress"));
    similarProcessing->setFont(look::font(13));
    similarProcessing->setTextColor(look::muted);
    similarProcessing->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    placeControls();
    addShortcut({Qt::CTRL | Qt::Key_P}, pauseResume);
    addShortcut({Qt::CTRL | Qt::Key_Period}, stopButton);
    setReadingOrder({pauseResume, stopButton});
    setFirstControl(pauseResume);
}

void ProgressScreen::placeControls() {
    auto* placement = new Placement(this, designSize);
    placement->place(exactSimilarTabView, {{0, 0, 1016, 426}, stretching, stretching});
    placeBlock();
    placement->place(actionBar_, {{0, 426, 1016, 60}, stretching, atEnd});
    placement->place(textelapse, {{51, 446, 400, 20}, atStart, atEnd});
    placement->place(pauseResume, {{741, 438, 112, 36}, atEnd, atEnd});
    placement->place(stopButton, {{865, 438, 100, 36}, atEnd, atEnd});
    placement->row({pauseResume, stopButton});
}

void ProgressScreen::placeBlock() {
    auto* page = new QWidget;
    page->resize(blockPage);
    exactSimilarTabView->addWidget(page);
    block_ = new Placement(page, blockPage);
    const auto place = [this](QWidget* control, QRect design) {
        block_->place(control, {design, inMiddle, inMiddle});
    };
    place(animationImage, {364, 25, 288, 216});
    place(searchStatus, {188, 263, 640, 28});
    place(similarIndicator, {188, 307, 640, 10});
    place(similarProcessing, {188, 327, 640, 20});
    place(progressDetails, {188, 351, 640, 18});
    showState({});
}

void ProgressScreen::showState(const QString& text) const {
    progressState->setState(text);
    const int width = progressState->sizeHint().width();
    block_->place(progressState,
                  {{(blockPage.width() - width) / 2, stateTop, width, StateLabel::designHeight},
                   inMiddle,
                   inMiddle});
}

}  // namespace tarvin
