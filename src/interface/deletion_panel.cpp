#include "interface/deletion_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/progress_bar.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/text_block.h"

#include <QAction>
#include <QLabel>

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

}  // namespace tarvin
