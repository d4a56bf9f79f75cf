#include "interface/list_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/frames.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/placement.h"

namespace tarvin {

ListPanel* ListPanel::makeKept(QWidget* parent) {
    return new ListPanel("kept",
                         {tr("Left Where They Are"),
                          tr("These files were not moved to the Trash. They are still in the "
                             "results and still marked."),
                          tr("Files left where they are")},
                         parent);
}

ListPanel* ListPanel::makeNotRead(QWidget* parent) {
    return new ListPanel("notRead",
                         {tr("Could Not Be Read"),
                          tr("These folders and files were left out of the scan. Copies in them "
                             "were not found."),
                          tr("Folders and files that could not be read")},
                         parent);
}

ListPanel::ListPanel(const std::string& prefix, const Texts& texts, QWidget* parent)
    : DialogPanel(designGeometry.size(), (prefix + "Header").c_str(), parent),
      sentence(named(makeLabel(texts.sentence, look::font(13), look::ink),
                     (prefix + "Sentence").c_str())),
      table(named(new ListTable({{ListTable::Text::name, 160},
                                 {ListTable::Text::path, 0},
                                 {ListTable::Text::plain, 226}},
                                ListTable::heightOfLine),
                  (prefix + "Table").c_str())),
      copyButton(makeQuietButton((prefix + "Copy").c_str(), tr("Copy List"))),
      closeButton(makeFilledButton((prefix + "Close").c_str(), tr("Close"), look::deepTeal)) {
    setObjectName(QLatin1String((prefix + "Window").c_str()));
    header->setText(texts.title);
    table->setAccessibleName(texts.listName);
    setFootHeight(64);
    auto* frame =
        named(new PaneFrame(table, ListTable::heightOfHeader), (prefix + "TableFrame").c_str());
    placement().place(sentence, {{24, 58, 632, 18}, stretching});
    placement().place(frame, {{24, 88, 632, 236}, stretching, stretching});
    placement().place(copyButton, {{24, 357, 104, 32}, atStart, atEnd});
    placement().place(closeButton, {{552, 356, 104, 34}, atEnd, atEnd});
    placement().row({copyButton});
    placement().row({closeButton});
    keyboard().setAnswers({table, copyButton, closeButton}, closeButton, closeButton);
}

}  // namespace tarvin
