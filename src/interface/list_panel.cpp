#include "interface/list_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/frames.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/placement.h"

namespace tarvin {

ListPanel::ListPanel(QWidget* parent)
    : DialogPanel(designGeometry.size(), "keptHeader", parent),
      sentence(named(makeLabel(tr("These files were not moved to the Trash. They are still in the "
                                  "results and still marked."),
                               look::font(13), look::ink),
                     "keptSentence")),
      table(named(new ListTable({{ListTable::Text::name, 160},
                                 {ListTable::Text::path, 0},
                                 {ListTable::Text::plain, 226}},
                                ListTable::heightOfLine),
                  "keptTable")),
      copyButton(makeQuietButton("keptCopy", tr("Copy List"))),
      closeButton(makeFilledButton("keptClose", tr("Close"), look::deepTeal)) {
    setObjectName(QStringLiteral("keptWindow"));
    header->setText(tr("Left Where They Are"));
    table->setAccessibleName(tr("Files left where they are"));
    setFootHeight(64);
    auto* frame = named(new PaneFrame(table, ListTable::heightOfHeader), "keptTableFrame");
    placement().place(sentence, {{24, 58, 632, 18}, stretching});
    placement().place(frame, {{24, 88, 632, 236}, stretching, stretching});
    placement().place(copyButton, {{24, 357, 104, 32}, atStart, atEnd});
    placement().place(closeButton, {{552, 356, 104, 34}, atEnd, atEnd});
    placement().row({copyButton});
    placement().row({closeButton});
    keyboard().setAnswers({table, copyButton, closeButton}, closeButton, closeButton);
}

}  // namespace tarvin
