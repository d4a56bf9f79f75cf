#include "interface/result_screen.h"

#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/notice_strip.h"
#include "controls/pop_up_button.h"
#include "controls/solid_bars.h"
#include "controls/tab_button.h"
#include "controls/toggle_button.h"
#include "interface/appearance.h"
#include "interface/file_menu.h"
#include "interface/frames.h"
#include "interface/image_view.h"
#include "interface/making.h"
#include "interface/placement.h"
#include "interface/preview_column.h"
#include "interface/property_text.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"

#include <QAbstractItemView>
#include <QAction>
#include <QMenu>
#include <initializer_list>

namespace tarvin {

namespace {

constexpr QColor dividerColor{141, 151, 157};
constexpr int treeEdge = 3;  ///< of the teal background above the tree
// Shares of what the window gains.
constexpr double treeShare = 0.18;
constexpr double previewShare = 0.30;

HoverButton* makeBarButton(const char* name, const QString& title) {
    HoverButton* button = makeQuietButton(name, title);
    button->setOnGrayBar(true);
    return button;
}

ElidedLabel* makeTotal(const char* name, QFont::Weight weight) {
    auto* label = named(new ElidedLabel, name);
    label->setFont(look::font(13, weight));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setElideMode(Qt::ElideRight);
    return label;
}

QWidget* makeLine(const QColor& color) {
    auto* separator = new QWidget;
    QPalette colors;
    colors.setColor(QPalette::Window, color);
    separator->setPalette(colors);
    separator->setAutoFillBackground(true);
    return separator;
}

/// Adds an action for each title; its data is the index.
void addTagged(QMenu& menu, const QStringList& titles) {
    for (int tag = 0; tag < titles.size(); ++tag) {
        menu.addAction(titles[tag])->setData(tag);
    }
    styleMenu(&menu);
}

void openAsContextMenuOf(QWidget* control, QMenu* menu) {
    control->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(
        control, &QWidget::customContextMenuRequested, menu,
        [control, menu](QPoint position) { menu->popup(control->mapToGlobal(position)); });
}

}  // namespace

ResultScreen::ResultScreen(ViewTopBar* bar)
    : Screen(QStringLiteral("4"), bar),
      buttonHomePage(makeHomeButton("buttonHomePage")),
      notReadNotice(
          named(new NoticeStrip(QStringLiteral("ui/not_read"), tr("Show…"), bar), "notReadNotice")),
      allButton(named(new TabButton(QStringLiteral("ui/tab_all"), tr("All")), "allButton")),
      imageButton(named(new TabButton(QStringLiteral("ui/tab_image"), tr("Image")), "imageButton")),
      videoButton(named(new TabButton(QStringLiteral("ui/tab_video"), tr("Video")), "videoButton")),
      audioButton(named(new TabButton(QStringLiteral("ui/tab_audio"), tr("Audio")), "audioButton")),
      documentButton(named(new TabButton(QStringLiteral("ui/tab_documents"), tr("Documents")),
                           "documentButton")),
      otherButton(named(new TabButton(QStringLiteral("ui/tab_other"), tr("Other")), "otherButton")),
      sortPopupBtn(named(new PopUpButton, "sortPopupBtn")),
      sortBtn(
          named(new ToggleButton(QStringLiteral("ui/sort_files"), QStringLiteral("ui/sort_files")),
                "sortBtn")),
      asscendingBtn(
          named(new ToggleButton(QStringLiteral("ui/ascending"), QStringLiteral("ui/descending")),
                "asscendingBtn")),
      sortByMenu(named(new QMenu(this), "sortByMenu")),
      sortingOrderMenu(named(new QMenu(this), "sortingOrderMenu")),
      OView2(named(new ResultTreeView, "OView2")),
      outlineMenu(named(new QMenu(this), "outlineMenu")),
      resultTable(named(new ResultTable, "resultTable")),
      fileMenu(named(new FileMenu(*resultTable, this), "fileMenu")),
      imView(named(new ImageView, "imView")),
      textField(named(new PropertyText, "textField")),
      selectedPath(named(new ElidedLabel, "selectedPath")),
      markAll(makeBarButton("markAll", tr("Mark All"))),
      unMarkAll(makeBarButton("unMarkAll", tr("Unmark All"))),
      addEceptionBtn(makeBarButton("addEceptionBtn", tr("Add to Exceptions"))),
      removeExceptionBtn(makeBarButton("removeExceptionBtn", tr("Remove Exceptions"))),
      selectedCount(makeTotal("selectedCount", QFont::DemiBold)),
      selectedSize(makeTotal("selectedSize", QFont::Normal)),
      finishButton(makeFilledButton("finishButton", tr("Delete"), look::deleteRed)),
      sendToRecycle(makeQuietButton("sendToRecycle", tr("Move to Trash"))),
      deletePermanently(makeQuietButton("deletePermanently", tr("Delete Permanently"))),
      title_(makeTitle("resultScreenTitle", tr("Duplicate Files"))),
      tabBar_(named(new ViewButtonBar, "resultTabBar")),
      sortLabel_(named(makeLabel(tr("Sort by"), look::font(13), look::muted, Qt::AlignRight),
                       "sortLabel")),
      treeBackground_(named(new ViewBackgroundTree, "treeBackground")),
      tableFrame_(
          named(new PaneFrame(resultTable, ResultTable::heightOfHeader), "resultTableFrame")),
      actionBar_(named(new ViewButtonGrayBar, "resultActionBar")) {
    showInBar(notReadNotice);
    setNotRead({});
    nameControls();
    fillSortControls();
    makeMenus();
    placeControls();
    makeShortcuts();
    setReadingOrder({buttonHomePage, allButton, imageButton, videoButton, audioButton,
                     documentButton, otherButton, sortPopupBtn, sortBtn, asscendingBtn, OView2,
                     resultTable, textField, markAll, unMarkAll, addEceptionBtn, removeExceptionBtn,
                     finishButton, notReadNotice});
    setFirstControl(resultTable);
    keepKeyboardFromTraps();
}

/// Delete and Remove Exceptions are next to buttons that disable themselves.
void ResultScreen::keepKeyboardFromTraps() const {
    for (HoverButton* button : std::initializer_list<HoverButton*>{
             allButton, imageButton, videoButton, audioButton, documentButton, otherButton,
             addEceptionBtn, removeExceptionBtn, finishButton}) {
        button->setFocusAfterDisabling({resultTable});
    }
    markAll->setFocusAfterDisabling({unMarkAll, resultTable});
    unMarkAll->setFocusAfterDisabling({markAll, resultTable});
}

void ResultScreen::setNotRead(const QString& text) {
    notReadNotice->setMessage(text);
    setWantedInBar(notReadNotice, !text.isEmpty());
}

void ResultScreen::nameControls() {
    sortPopupBtn->setAccessibleName(tr("Sort by"));
    sortPopupBtn->view()->setAccessibleName(tr("Sort by"));
    sortBtn->setAccessibleName(tr("File order"));
    asscendingBtn->setAccessibleName(tr("Sort direction"));
    resultTable->setAccessibleName(tr("Files of the set"));
    imView->setAccessibleName(tr("Preview"));
    textField->setAccessibleName(tr("File properties"));
    selectedPath->setFramed(true);
    finishButton->setDisabledOpacity(0.6);
    for (HoverButton* button : {sendToRecycle, deletePermanently}) {
        button->setParent(this);
        button->hide();
    }
}

void ResultScreen::fillSortControls() const {
    const QStringList criteria = {tr("Size"), tr("Name"), tr("Created Date"), tr("Modified Date"),
                                  tr("Dimension")};
    for (int at = 0; at < criteria.size(); ++at) {
        sortPopupBtn->addTagged(criteria[at], at + 1);
    }
    useNeutralStyle(sortPopupBtn);
    sortBtn->setChecked(true);
    asscendingBtn->setChecked(true);
    addTagged(*sortByMenu, criteria);
    addTagged(*sortingOrderMenu, {tr("Ascending"), tr("Descending")});
    openAsContextMenuOf(sortPopupBtn, sortByMenu);
    openAsContextMenuOf(sortBtn, sortingOrderMenu);
    openAsContextMenuOf(asscendingBtn, sortingOrderMenu);
}

void ResultScreen::makeMenus() const {
    addTagged(*outlineMenu, {tr("Mark"), tr("Open"), tr("Show in Folder"), tr("Move to Trash"),
                             tr("Move Others to Trash"), tr("Mark All in Set"),
                             tr("Unmark All in Set"), tr("Get Info")});
    connect(OView2, &QWidget::customContextMenuRequested, this, &ResultScreen::openOutlineMenu);
}

void ResultScreen::openOutlineMenu(const QPoint& position) const {
    if (OView2->indexAt(position).isValid()) {
        outlineMenu->popup(OView2->viewport()->mapToGlobal(position));
    }
}

void ResultScreen::makeShortcuts() {
    addShortcut({Qt::CTRL | Qt::SHIFT | Qt::Key_H}, buttonHomePage);
    int digit = Qt::Key_1;
    for (TabButton* tab :
         {allButton, imageButton, videoButton, audioButton, documentButton, otherButton}) {
        addShortcut({Qt::CTRL | static_cast<Qt::Key>(digit)}, tab);
        ++digit;
    }
    addShortcut({Qt::CTRL | Qt::Key_A}, markAll);
    addShortcut({Qt::CTRL | Qt::SHIFT | Qt::Key_A}, unMarkAll);
    addShortcut({Qt::CTRL | Qt::Key_Backspace}, finishButton);
    addShortcut({Qt::CTRL | Qt::Key_Up}, [this] { OView2->clickNeighbour(-1); });
    addShortcut({Qt::CTRL | Qt::Key_Down}, [this] { OView2->clickNeighbour(1); });
}

void ResultScreen::placeControls() {
    auto* placement = new Placement(this, designSize);
    placeTabBar(*placement);
    placePanes(*placement);
    placeActionBar(*placement);
}

void ResultScreen::placeTabBar(Placement& placement) {
    placement.place(tabBar_, {{0, 0, 1016, 40}, stretching});
    placement.place(makeLine(look::line), {{0, 39, 1016, 1}, stretching});
    const auto place = [&placement](QWidget* control, QRect design, Growth across) {
        placement.place(control, {design, across});
    };
    place(allButton, {12, 0, 78, 40}, atStart);
    place(imageButton, {90, 0, 94, 40}, atStart);
    place(videoButton, {184, 0, 94, 40}, atStart);
    place(audioButton, {278, 0, 94, 40}, atStart);
    place(documentButton, {372, 0, 124, 40}, atStart);
    place(otherButton, {496, 0, 94, 40}, atStart);
    place(sortLabel_, {718, 11, 70, 18}, atEnd);
    place(sortPopupBtn, {796, 4, 132, 32}, atEnd);
    place(sortBtn, {934, 4, 32, 32}, atEnd);
    place(asscendingBtn, {972, 4, 32, 32}, atEnd);
    placement.row({allButton, imageButton, videoButton, audioButton, documentButton, otherButton});
    placement.row({sortLabel_, sortPopupBtn, sortBtn, asscendingBtn});
}

void ResultScreen::placePanes(Placement& placement) {
    placement.place(treeBackground_, {{12, 52, 181, 366}, {0, treeShare}, stretching});
    auto* inTree = new Placement(treeBackground_, {181, 366});
    auto* treeFrame =
        named(new PaneFrame(OView2, ResultTreeView::heightOfHeader, {1, 0, 1, 1}), "treeFrame");
    inTree->place(treeFrame, {{0, treeEdge, 181, 366 - treeEdge}, stretching, stretching});
    placement.place(tableFrame_,
                    {{205, 52, 533, 320}, {treeShare, 1 - treeShare - previewShare}, stretching});
    auto* preview = named(
        new PreviewColumn(imView, named(new PaneFrame(textField), "textFieldFrame")), "preview");
    placement.place(preview, {{750, 52, 254, 320}, {1 - previewShare, previewShare}, stretching});
    useNeutralStyle(textField);
    placement.place(selectedPath, {{205, 380, 799, 38}, {treeShare, 1 - treeShare}, atEnd});
}

void ResultScreen::placeActionBar(Placement& placement) {
    placement.place(actionBar_, {{0, 426, 1016, 60}, stretching, atEnd});
    const auto place = [&placement](QWidget* control, QRect design, Growth across) {
        placement.place(control, {design, across, atEnd});
    };
    QWidget* divider = named(makeLine(dividerColor), "resultDivider");
    place(markAll, {12, 440, 92, 32}, atStart);
    place(unMarkAll, {112, 440, 104, 32}, atStart);
    place(divider, {227, 440, 1, 32}, atStart);
    place(addEceptionBtn, {239, 440, 146, 32}, atStart);
    place(removeExceptionBtn, {393, 440, 158, 32}, atStart);
    // Shrinks for longer button titles.
    auto* totals = named(new QWidget, "resultTotals");
    auto* inTotals = new Placement(totals, {0, 38});
    inTotals->place(selectedCount, {{0, 0, 0, 19}, stretching});
    inTotals->place(selectedSize, {{0, 19, 0, 19}, stretching});
    placement.place(totals, {{568, 437, 300, 38}, stretching, atEnd});
    place(finishButton, {884, 438, 120, 36}, atEnd);
    placement.row({markAll, unMarkAll, divider, addEceptionBtn, removeExceptionBtn}, totals);
    placement.row({finishButton});
}

}  // namespace tarvin
