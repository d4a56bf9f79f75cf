#include "interface/put_back_progress.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/progress_bar.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/text_block.h"

namespace tarvin {

PutBackProgress::PutBackProgress(QWidget* parent)
    : DialogPanel(designPlace.size(), "putBackProgressHeader", parent),
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

}  // namespace tarvin
