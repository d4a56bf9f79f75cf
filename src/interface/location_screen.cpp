#include "interface/location_screen.h"

#include "controls/button_hover_simple.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/solid_bars.h"
#include "controls/windows_like_button.h"
#include "interface/appearance.h"
#include "interface/frames.h"
#include "interface/location_table.h"
#include "interface/making.h"
#include "interface/placement.h"
#include "interface/text_block.h"

#include <QAction>
#include <QMenu>

namespace tarvin {

namespace {

constexpr Column column{914, 1180};

}  // namespace

LocationScreen::LocationScreen(ViewTopBar* bar)
    : Screen(QStringLiteral("2"), bar),
      buttonHomeExactPage(makeHomeButton("buttonHomeExactPage")),
      backFolderButton(named(new WIndowsLikeButton(QStringLiteral("ui/back")), "backFolderButton")),
      nextFolderButton(named(new WIndowsLikeButton(QStringLiteral("ui/next")), "nextFolderButton")),
      hint(named(new TextBlock(look::font(13), 18, look::muted), "hint")),
      markAllExactBtn(makeQuietButton("markAllExactBtn", tr("Mark All"))),
      unmarkAllExactBtn(makeQuietButton("unmarkAllExactBtn", tr("Unmark All"))),
      removeFromListExactBtn(makeQuietButton("removeFromListExactBtn", tr("Remove from List"))),
      tableExact(named(new LocationTable, "tableExact")),
      tableFrame(named(new LocationFrame(tableExact), "tableFrame")),
      addPhotos(makeFilledButton("addPhotos", tr("Add Photos"), look::panelBlue)),
      addFolders(makeFilledButton("addFolders", tr("Add Folders"), look::panelBlue)),
      findDuplicateExact(makeFilledButton("findDuplicateExact", tr("Scan"), look::deepTeal)),
      tableMenu(named(new QMenu(this), "tableMenu")),
      markMenuTable(named(tableMenu->addAction(tr("Mark")), "markMenuTable")),
      removeFromListMenu(named(tableMenu->addAction(tr("Remove from List")), "removeFromListMenu")),
      markAllMenu(named(new QAction(tr("Mark All"), tableMenu), "markAllMenu")),
      unMarkAllMenu(named(new QAction(tr("Unmark All"), tableMenu), "unMarkAllMenu")),
      actionBar_(named(new ViewButtonGrayBar, "locationActionBar")) {
    backFolderButton->setAccessibleName(tr("Back"));
    nextFolderButton->setAccessibleName(tr("Next"));
    backFolderButton->setToolTip(tr("Back"));
    nextFolderButton->setToolTip(tr("Next"));
    hint->setText(tr("Check the locations to scan. You can also drop folders here."));
    tableExact->setAccessibleName(tr("Locations"));
    tableExact->setEmptyText(tr("No locations yet. Add folders, or drop them here."));
    findDuplicateExact->setDisabledOpacity(0.6);
    makeTitle("locationScreenTitle", tr("Choose Locations"));
    placeControls();
    makeMenu();
    makeShortcuts();
    setReadingOrder({buttonHomeExactPage, backFolderButton, nextFolderButton, markAllExactBtn,
                     unmarkAllExactBtn, removeFromListExactBtn, tableExact, addPhotos, addFolders,
                     findDuplicateExact});
    setFirstControl(tableExact);
    markAllExactBtn->setFocusAfterDisabling({unmarkAllExactBtn, tableExact});
    unmarkAllExactBtn->setFocusAfterDisabling({markAllExactBtn, tableExact});
    removeFromListExactBtn->setFocusAfterDisabling({tableExact});
    findDuplicateExact->setFocusAfterDisabling({tableExact});
    backFolderButton->setFocusAfterDisabling({nextFolderButton, tableExact});
    nextFolderButton->setFocusAfterDisabling({backFolderButton, tableExact});
}

void LocationScreen::placeControls() {
    auto* placement = new Placement(this, designSize, column);
    placeTools(*placement);
    placement->place(
        tableFrame,
        {.design = {51, 56, 914, 358}, .across = stretching, .down = stretching, .inColumn = true});
    placeActionBar(*placement);
}

void LocationScreen::placeTools(Placement& placement) {
    const auto place = [&placement](QWidget* control, QRect design, Growth across) {
        placement.place(control, {.design = design, .across = across, .inColumn = true});
    };
    place(backFolderButton, {51, 12, 32, 32}, atStart);
    place(nextFolderButton, {87, 12, 32, 32}, atStart);
    placement.place(hint, {.design = {131, 19, 466, 18},
                           .across = stretching,
                           .fit = Fit::tallerAround,
                           .inColumn = true});
    place(markAllExactBtn, {609, 12, 96, 32}, atEnd);
    place(unmarkAllExactBtn, {713, 12, 104, 32}, atEnd);
    place(removeFromListExactBtn, {825, 12, 140, 32}, atEnd);
    placement.row({markAllExactBtn, unmarkAllExactBtn, removeFromListExactBtn}, hint);
}

void LocationScreen::placeActionBar(Placement& placement) {
    placement.place(actionBar_,
                    {.design = {0, 426, 1016, 60}, .across = stretching, .down = atEnd});
    const auto place = [&placement](QWidget* control, QRect design, Growth across) {
        placement.place(control,
                        {.design = design, .across = across, .down = atEnd, .inColumn = true});
    };
    place(addPhotos, {51, 438, 128, 36}, atStart);
    place(addFolders, {191, 438, 132, 36}, atStart);
    place(findDuplicateExact, {805, 438, 160, 36}, atEnd);
    placement.row({addPhotos, addFolders});
    placement.row({findDuplicateExact});
}

void LocationScreen::makeMenu() {
    tableMenu->addSeparator();
    tableMenu->addActions({markAllMenu, unMarkAllMenu});
    styleMenu(tableMenu);
    connect(tableExact, &QWidget::customContextMenuRequested, this, &LocationScreen::openMenu);
}

void LocationScreen::openMenu(const QPoint& position) {
    const QModelIndex clicked = tableExact->indexAt(position);
    if (clicked.isValid()) {
        clickedRow_ = clicked.row();
        tableMenu->popup(tableExact->viewport()->mapToGlobal(position));
    }
}

void LocationScreen::makeShortcuts() {
    addShortcut({Qt::CTRL | Qt::SHIFT | Qt::Key_H}, buttonHomeExactPage);
    addShortcut({Qt::CTRL | Qt::Key_O}, addFolders);
    addShortcut({Qt::CTRL | Qt::SHIFT | Qt::Key_O}, addPhotos);
    // Ctrl+Return works also where a row or a button takes Return.
    addShortcut(
        {Qt::Key_Return, Qt::Key_Enter, Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter},
        findDuplicateExact);
    addShortcut(QKeySequence::keyBindings(QKeySequence::Back), backFolderButton);
    addShortcut(QKeySequence::keyBindings(QKeySequence::Forward), nextFolderButton);
    addShortcut({Qt::CTRL | Qt::Key_A}, markAllExactBtn);
    addShortcut({Qt::CTRL | Qt::SHIFT | Qt::Key_A}, unmarkAllExactBtn);
}

}  // namespace tarvin
