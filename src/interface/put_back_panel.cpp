#include "interface/put_back_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/pane_frame.h"
#include "interface/placement.h"

namespace tarvin {

PutBackPanel::PutBackPanel(QWidget* parent)
    : DialogPanel(designPlace.size(), "putBackHeader", parent),
      putBackDate(named(makeLabel({}, look::font(14, QFont::DemiBold), look::ink), "putBackDate")),
      putBackTotal(named(makeLabel({}, look::font(14), look::ink, Qt::AlignRight), "putBackTotal")),
      putBackTable(
          named(new ListTable({{ListTable::Text::nameAndPlace, 360}, {ListTable::Text::wrapped, 0}},
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

}  // namespace tarvin
