#include "interface/information_panel.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/text_block.h"

#include <QEvent>
#include <algorithm>

namespace tarvin {

namespace {

constexpr QSize design{516, 190};
constexpr int linePitch = 24;
constexpr int linesLeft = 144;
constexpr int linesWidth = 348;
constexpr int linesTop = 58;
constexpr int linesRoom = 3 * linePitch;
constexpr int airAboveFew = 8;  ///< one or two lines are placed a little lower

TextBlock* makeLine(const char* name, QWidget* parent) {
    auto* block = named(new TextBlock(look::font(15), linePitch, look::ink), name);
    block->setParent(parent);
    return block;
}

int heightOf(const TextBlock& block) {
    return block.text().isEmpty() ? 0 : block.heightForWidth(linesWidth);
}

}  // namespace

InformationPanel::InformationPanel(QWidget* parent)
    : DialogPanel(design, "informationHeader", parent),
      informationHeader(header),
      scanInfoCount(makeLine("scanInfoCount", this)),
      scanInfoSize(makeLine("scanInfoSize", this)),
      scanOtherInfo(makeLine("scanOtherInfo", this)),
      scanInfoImage(named(new PictureView, "scanInfoImage")),
      keptLine(named(new ElidedLabel(this), "keptLine")),
      keptShow(makeTextButton("keptShow", tr("Show…"))),
      scanInforOKBtn(makeFilledButton("scanInforOKBtn", tr("Review"), look::buttonTeal)) {
    setObjectName(QStringLiteral("informationWindow"));
    placement().place(scanInfoImage, {{24, 68, 96, 96}});
    placement().place(scanInforOKBtn, {{372, 140, 120, 34}, atEnd, atEnd});
    placement().row({scanInforOKBtn});
    keptLine->setElideMode(Qt::ElideRight);
    keptLine->setTextColor(look::muted);
    keptShow->setParent(this);
    keptShow->setAccessibleName(tr("Show the files that were left where they are"));
    setKeptLine({});
    keyboard().setAnswers({keptShow, scanInforOKBtn}, scanInforOKBtn, scanInforOKBtn);
}

bool InformationPanel::event(QEvent* event) {
    const bool done = DialogPanel::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) {
        placeLines();
    }
    return done;
}

int InformationPanel::heightMissing() const {
    const int needed =
        heightOf(*scanInfoCount) + heightOf(*scanInfoSize) + heightOf(*scanOtherInfo);
    return std::max(needed - linesRoom, 0);
}

void InformationPanel::placeLines() {
    const int needed =
        heightOf(*scanInfoCount) + heightOf(*scanInfoSize) + heightOf(*scanOtherInfo);
    int top = linesTop + (needed < linesRoom ? airAboveFew : 0);
    for (TextBlock* block : {scanInfoCount, scanInfoSize, scanOtherInfo}) {
        block->setGeometry(linesLeft, top, linesWidth, heightOf(*block));
        top += block->height();
    }
    placeKeptLine(top);
}

void InformationPanel::placeKeptLine(int top) const {
    constexpr int height = 20;
    constexpr int gap = 4;
    const QSize button = keptShow->sizeHint();
    // A text can be wider than its size hint by a fraction of a pixel.
    const int width = std::min(keptLine->sizeHint().width() + 1, linesWidth - gap - button.width());
    keptLine->setGeometry(linesLeft, top, width, height);
    // Higher than the text, to be easier to click.
    keptShow->setGeometry(
        {{linesLeft + width + gap, top - (button.height() - height) / 2}, button});
}

void InformationPanel::setKeptLine(const QString& text) {
    keptLine->setText(text);
    keptLine->setVisible(!text.isEmpty());
    keptShow->setVisible(!text.isEmpty());
    placeLines();
}

}  // namespace tarvin
