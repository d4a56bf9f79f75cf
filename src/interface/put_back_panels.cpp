#include "interface/put_back_panels.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/progress_bar.h"
#include "interface/frames.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/text_block.h"

namespace tarvin {

namespace {

TextBlock* makeReportLine(const char* name) {
    constexpr int pitch = 24;
    return named(new TextBlock(look::font(15), pitch, look::ink), name);
}

}  // namespace

PutBackPanel::PutBackPanel(QWidget* parent)
    : DialogPanel(designGeometry.size(), "putBackHeader", parent),
      putBackDate(named(makeLabel({}, look::font(14, QFont::DemiBold), look::ink), "putBackDate")),
      putBackTotal(named(makeLabel({}, look::font(14), look::ink, Qt::AlignRight), "putBackTotal")),
      putBackTable(
          named(new ListTable({{ListTable::Text::nameAndPath, 360}, {ListTable::Text::wrapped, 0}},
                              ListTable::heightOfTwoLines),
                "putBackTable")),
      putBackOutcome(
          named(makeLabel({}, look::font(13, QFont::DemiBold), look::ink), "putBackOutcome")),
      putBackCannot(named(makeLabel({}, look::font(13), look::muted), "putBackCannot")),
      putBackCancel(makeQuietButton("putBackCancel", tr("Cancel"))),
      putBackOk(makeFilledButton("putBackOk", tr("Put Back"), look::deepTeal)) {
    setObjectName(QStringLiteral("putBackWindow"));
    header->setText(tr("Put Back Last Clean-up"));
    putBackTable->setAccessibleName(tr("Files of the last clean-up"));
    setFootHeight(64);
    placeControls();
    setPossible(true);
}

void PutBackPanel::placeControls() {
    auto* frame =
        named(new PaneFrame(putBackTable, ListTable::heightOfHeader), "putBackTableFrame");
    placement().place(putBackDate, {{24, 60, 400, 20}});
    placement().place(putBackTotal, {{424, 60, 272, 20}, stretching});
    placement().place(frame, {{24, 94, 672, 226}, stretching, stretching});
    placement().place(putBackOutcome, {{24, 350, 400, 19}, stretching, atEnd});
    placement().place(putBackCannot, {{24, 369, 400, 19}, stretching, atEnd});
    placement().place(putBackCancel, {{480, 352, 104, 34}, atEnd, atEnd});
    placement().place(putBackOk, {{592, 352, 104, 34}, atEnd, atEnd});
    placement().row({putBackCancel, putBackOk});
}

void PutBackPanel::setPossible(bool possible) {
    putBackOk->setEnabled(possible);
    HoverButton* const first = possible ? putBackOk : putBackCancel;
    keyboard().setAnswers({putBackTable, putBackCancel, putBackOk}, first, putBackCancel);
}

PutBackProgress::PutBackProgress(QWidget* parent)
    : DialogPanel(designGeometry.size(), "putBackProgressHeader", parent),
      putBackIndicator(named(new ProgressBar, "putBackIndicator")),
      putBackProcessing(named(new TextBlock(look::font(13), 19, look::muted), "putBackProcessing")),
      stopPutBackBtn(makeFilledButton("stopPutBackBtn", tr("Stop"), look::slate)) {
    setObjectName(QStringLiteral("putBackProgress"));
    header->setText(tr("Putting Back"));
    auto* picture = named(new PictureView, "putBackProgressImage");
    picture->setPictureName(QStringLiteral("ui/trash_info"));
    auto* status = named(new TextBlock(look::font(16, QFont::DemiBold), 22, look::ink),
                         "putBackProgressStatus");
    status->setText(tr("Putting files back, please wait..."));
    status->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    putBackIndicator->setAccessibleName(tr("Put back progress"));
    setFootHeight(64);
    placement().place(picture, {{32, 86, 112, 112}});
    placement().place(status, {{176, 82, 396, 44}});
    placement().place(putBackIndicator, {{176, 138, 396, 10}});
    placement().place(putBackProcessing, {.design = {176, 160, 396, 19}, .fit = Fit::taller});
    placement().place(stopPutBackBtn, {{466, 252, 108, 36}, atEnd, atEnd});
    placement().row({stopPutBackBtn});
    keyboard().setAnswers({stopPutBackBtn}, stopPutBackBtn, stopPutBackBtn);
}

PutBackReport::PutBackReport(QWidget* parent)
    : DialogPanel(designGeometry.size(), "putBackReportHeader", parent),
      putBackReportCount(makeReportLine("putBackReportCount")),
      putBackReportSize(makeReportLine("putBackReportSize")),
      putBackReportFailed(named(makeLabel({}, look::font(13), look::ink), "putBackReportFailed")),
      putBackFailures(named(new ListTable({{ListTable::Text::name, 152},
                                           {ListTable::Text::path, 0},
                                           {ListTable::Text::plain, 210}},
                                          ListTable::heightOfLine),
                            "putBackFailures")),
      putBackReportHint(named(new ElidedLabel, "putBackReportHint")),
      putBackReportOk(makeFilledButton("putBackReportOk", tr("Ok"), look::deepTeal)) {
    setObjectName(QStringLiteral("putBackReport"));
    header->setText(tr("Put Back Last Clean-up"));
    putBackFailures->setAccessibleName(tr("Files that could not be put back"));
    auto* picture = named(new PictureView, "putBackReportImage");
    picture->setPictureName(QStringLiteral("common_info"));
    putBackReportHint->setElideMode(Qt::ElideRight);
    putBackReportHint->setTextColor(look::muted);
    setFootHeight(64);
    placement().place(picture, {{24, 60, 96, 96}});
    placement().place(putBackReportCount, {{144, 64, 502, 24}});
    placement().place(putBackReportSize, {{144, 88, 502, 24}});
    placement().place(putBackReportFailed, {{144, 128, 502, 18}});
    placement().place(
        named(new PaneFrame(putBackFailures, ListTable::heightOfHeader), "putBackFailuresFrame"),
        {{24, 166, 622, 120}});
    placement().place(putBackReportHint, {{24, 325, 480, 18}});
    placement().place(putBackReportOk, {{526, 318, 120, 34}, atEnd, atEnd});
    placement().row({putBackReportOk});
    keyboard().setAnswers({putBackFailures, putBackReportOk}, putBackReportOk, putBackReportOk);
}

}  // namespace tarvin
