#include "interface/exception_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/making.h"
#include "interface/placement.h"
#include "interface/text_block.h"

#include <QLabel>
#include <algorithm>

namespace tarvin {

namespace {

constexpr QRect questionPlace{24, 62, 368, 66};

}  // namespace

ExceptionPanel::ExceptionPanel(QWidget* parent)
    : DialogPanel({416, 190}, "exceptionHeader", parent),
      exceptionTextField(named(new TextBlock(look::font(14), 22, look::ink), "exceptionTextField")),
      excCancelBtn(makeFilledButton("excCancelBtn", tr("Cancel"), look::buttonTeal)),
      excOKBtn(makeFilledButton("excOKBtn", tr("Ok"), look::buttonTeal)) {
    setObjectName(QStringLiteral("exceptionWindow"));
    header->setText(tr("Add to Exceptions"));
    placement().place(exceptionTextField, {questionPlace, atStart, stretching});
    placement().place(excCancelBtn, {{176, 140, 104, 34}, atEnd, atEnd});
    placement().place(excOKBtn, {{288, 140, 104, 34}, atEnd, atEnd});
    placement().row({excCancelBtn, excOKBtn});
    keyboard().setAnswers({excCancelBtn, excOKBtn}, excOKBtn, excCancelBtn);
}

int ExceptionPanel::heightMissing() const {
    const int needed = exceptionTextField->heightForWidth(questionPlace.width());
    return std::max(needed - questionPlace.height(), 0);
}

}  // namespace tarvin
