#include "interface/list_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/frames.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/placement.h"

#include <string>

namespace tarvin {

namespace {

std::string nameOfPart(const char* panel, const char* part) {
    return std::string(panel) + part;
}

}  // namespace

ListPanel::ListPanel(const Words& words, QWidget* parent)
    : DialogPanel(designPlace.size(), nameOfPart(words.name, "Header").c_str(), parent),
      sentence(named(makeLabel(words.sentence, look::font(13), look::ink),
                     nameOfPart(words.name, "Sentence").c_str())),
      table(named(new ListTable({{ListTable::Text::name, 160},
                                 {ListTable::Text::place, 0},
                                 {ListTable::Text::plain, words.reasonWidth}},
                                ListTable::heightOfLine),
                  nameOfPart(words.name, "Table").c_str())),
      copyButton(makeQuietButton(nameOfPart(words.name, "Copy").c_str(), tr("Copy List"))),
      closeButton(
          makeFilledButton(nameOfPart(words.name, "Close").c_str(), tr("Close"), look::deepTeal)) {
    setObjectName(QString::fromStdString(nameOfPart(words.name, "Window")));
    header->setText(words.title);
    table->setAccessibleName(words.listName);
    setFootHeight(64);
    auto* frame = named(new PaneFrame(table, ListTable::heightOfHeader),
                        nameOfPart(words.name, "TableFrame").c_str());
    placement().place(sentence, {{24, 58, 632, 18}, stretching});
    placement().place(frame, {{24, 88, 632, 236}, stretching, stretching});
    placement().place(copyButton, {{24, 357, 104, 32}, atStart, atEnd});
    placement().place(closeButton, {{552, 356, 104, 34}, atEnd, atEnd});
    placement().row({copyButton});
    placement().row({closeButton});
    keyboard().setAnswers({table, copyButton, closeButton}, closeButton, closeButton);
}

}  // namespace tarvin
