#include "interface/put_back_report.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/pane_frame.h"
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

PutBackReport::PutBackReport(QWidget* parent)
    : DialogPanel(designPlace.size(), "putBackReportHeader", parent),
      putBackReportCount(makeReportLine("putBackReportCount")),
      putBackReportSize(makeReportLine("putBackReportSize")),
      putBackReportFailed(named(makeLabel({}, look::font(13), look::ink), "putBackReportFailed")),
      putBackFailures(named(new ListTable({{ListTable::Text::name, 152},
                                           {ListTable::Text::place, 0},
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
