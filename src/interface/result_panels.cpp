#include "interface/result_panels.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/progress_bar.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/text_block.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <algorithm>

namespace tarvin {

namespace {

/// The shortcuts of the screens are disabled while a panel is shown.
void addShortcut(QWidget* panel, QKeyCombination key, HoverButton* button) {
    auto* shortcut = new QAction(panel);
    shortcut->setShortcut(key);
    shortcut->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QAction::triggered, button, [button] { button->click(); });
    panel->addAction(shortcut);
}

constexpr QRect questionGeometry{24, 62, 368, 66};

constexpr QSize informationDesign{516, 190};
constexpr int linePitch = 24;
constexpr int linesLeft = 144;
constexpr int linesWidth = 348;
constexpr int linesTop = 58;
constexpr int linesRoom = 3 * linePitch;
constexpr int marginAboveFewLines = 8;  ///< one or two lines are placed a little lower

TextBlock* makeLine(const char* name, QWidget* parent) {
    auto* block = named(new TextBlock(look::font(15), linePitch, look::ink), name);
    block->setParent(parent);
    return block;
}

int heightOf(const TextBlock& block) {
    return block.text().isEmpty() ? 0 : block.heightForWidth(linesWidth);
}

}  // namespace

DeletionPanel::DeletionPanel(QWidget* parent)
    : DialogPanel({606, 303}, "deletionHeader", parent),
      deletionStatus(
          named(new TextBlock(look::font(16, QFont::DemiBold), 22, look::ink), "deletionStatus")),
      deletionIndicator(named(new ProgressBar, "deletionIndicator")),
      pauseResumeBtn(makeFilledButton("pauseResumeBtn", tr("Pause"), look::panelBlue)),
      stopDeleteBtn(makeFilledButton("stopDeleteBtn", tr("Stop"), look::slate)) {
    setObjectName(QStringLiteral("deletionPreview"));
    header->setText(tr("Moving to the Trash"));
    deletionStatus->setText(tr("Deleting files, please wait..."));
    deletionStatus->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    deletionIndicator->setAccessibleName(tr("Deletion progress"));
    deletionIndicator->setSheen(true);
    setFootHeight(64);
    placeControls();
    addShortcut(this, Qt::CTRL | Qt::Key_P, pauseResumeBtn);
    addShortcut(this, Qt::CTRL | Qt::Key_Period, stopDeleteBtn);
    keyboard().setAnswers({pauseResumeBtn, stopDeleteBtn}, pauseResumeBtn, nullptr);
}

void DeletionPanel::placeControls() {
    auto* picture = named(new PictureView, "deletionImage");
    picture->setPictureName(QStringLiteral("ui/trash_info"));
    auto* comfort = named(new TextBlock(look::font(13), 19, look::muted), "deletionComfort");
    comfort->setText(tr("Marked files go to the Trash. You can put them back from there."));
    const auto place = [this](QWidget* control, QRect design, Fit fit = Fit::drawn) {
        placement().place(control, {.design = design, .fit = fit});
    };
    place(picture, {32, 86, 112, 112});
    place(deletionStatus, {176, 82, 396, 44});
    place(deletionIndicator, {176, 138, 396, 10});
    place(comfort, {176, 160, 396, 19}, Fit::taller);
    placement().place(pauseResumeBtn, {{342, 252, 112, 36}, atEnd, atEnd});
    placement().place(stopDeleteBtn, {{466, 252, 108, 36}, atEnd, atEnd});
    placement().row({pauseResumeBtn, stopDeleteBtn});
}

ExceptionPanel::ExceptionPanel(QWidget* parent)
    : DialogPanel({416, 190}, "exceptionHeader", parent),
      exceptionTextField(named(new TextBlock(look::font(14), 22, look::ink), "exceptionTextField")),
      excCancelBtn(makeFilledButton("excCancelBtn", tr("Cancel"), look::buttonTeal)),
      excOKBtn(makeFilledButton("excOKBtn", tr("Ok"), look::buttonTeal)) {
    setObjectName(QStringLiteral("exceptionWindow"));
    header->setText(tr("Add to Exceptions"));
    placement().place(exceptionTextField, {questionGeometry, atStart, stretching});
    placement().place(excCancelBtn, {{176, 140, 104, 34}, atEnd, atEnd});
    placement().place(excOKBtn, {{288, 140, 104, 34}, atEnd, atEnd});
    placement().row({excCancelBtn, excOKBtn});
    keyboard().setAnswers({excCancelBtn, excOKBtn}, excOKBtn, excCancelBtn);
}

int ExceptionPanel::heightMissing() const {
    const int needed = exceptionTextField->heightForWidth(questionGeometry.width());
    return std::max(needed - questionGeometry.height(), 0);
}

InformationPanel::InformationPanel(QWidget* parent)
    : DialogPanel(informationDesign, "informationHeader", parent),
      informationHeader(header),
      scanInfoCount(makeLine("scanInfoCount", this)),
      scanInfoSize(makeLine("scanInfoSize", this)),
      scanOtherInfo(makeLine("scanOtherInfo", this)),
      scanInfoImage(named(new PictureView, "scanInfoImage")),
      keptLine(named(new ElidedLabel(this), "keptLine")),
      keptShow(makeTextButton("keptShow", tr("Show…"))),
      notReadShow(makeTextButton("notReadShow", tr("Show what was not read…"))),
      scanInforOKBtn(makeFilledButton("scanInforOKBtn", tr("Review"), look::buttonTeal)) {
    setObjectName(QStringLiteral("informationWindow"));
    placement().place(scanInfoImage, {{24, 68, 96, 96}});
    placement().place(scanInforOKBtn, {{372, 140, 120, 34}, atEnd, atEnd});
    placement().row({scanInforOKBtn});
    keptLine->setElideMode(Qt::ElideRight);
    keptLine->setTextColor(look::muted);
    keptShow->setParent(this);
    keptShow->setAccessibleName(tr("Show the files that were left where they are"));
    notReadShow->setParent(this);
    setKeptLine({});
    setNotRead({});
    keyboard().setAnswers({keptShow, notReadShow, scanInforOKBtn}, scanInforOKBtn, scanInforOKBtn);
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
    int top = linesTop + (needed < linesRoom ? marginAboveFewLines : 0);
    for (TextBlock* block : {scanInfoCount, scanInfoSize, scanOtherInfo}) {
        block->setGeometry(linesLeft, top, linesWidth, heightOf(*block));
        top += block->height();
    }
    placeKeptLine(top);
    placeNotReadShow();
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

/// Below the lines, at the height of the answer.
void InformationPanel::placeNotReadShow() const {
    const QSize size = notReadShow->sizeHint();
    const QRect answer = scanInforOKBtn->geometry();
    notReadShow->setGeometry(
        {{linesLeft, answer.top() + (answer.height() - size.height()) / 2}, size});
}

void InformationPanel::setNotRead(const QString& notice) const {
    notReadShow->setAccessibleName(notice.isEmpty() ? notReadShow->text()
                                                    : notice + u' ' + notReadShow->text());
    notReadShow->setVisible(!notice.isEmpty());
}

void InformationPanel::setKeptLine(const QString& text) {
    keptLine->setText(text);
    keptLine->setVisible(!text.isEmpty());
    keptShow->setVisible(!text.isEmpty());
    placeLines();
}

}  // namespace tarvin
