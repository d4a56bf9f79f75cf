#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "controls/notice_strip.h"
#include "controls/pop_up_button.h"
#include "controls/progress_bar.h"
#include "controls/scan_animation.h"
#include "controls/solid_bars.h"
#include "controls/spinner.h"
#include "controls/tab_button.h"
#include "controls/toggle_button.h"
#include "controls/view_background.h"
#include "controls/view_settings_saved.h"
#include "controls/windows_like_button.h"
#include "interface/home_screen.h"
#include "interface/image_view.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"

#include <QLabel>
#include <QStackedWidget>
#include <QTextEdit>
#include <QTreeView>

namespace tarvin {

namespace {

/// One control in the design, its class given by its meta object.
struct Control {
    const char* name;
    const QMetaObject& type;
    const char* screen;   ///< the screen that shows it
    QRect geometry;       ///< in the content of 1016 x 531
    QRect grownGeometry;  ///< in a content of 1400 x 900
};

// The window gains 384 across and 369 down; the column gains all of its 266 and moves by 59.
const Control controls[] = {
    {"topBar", ViewTopBar::staticMetaObject, "1", {0, 0, 1016, 45}, {0, 0, 1400, 45}},
    {"tabViewMain", QStackedWidget::staticMetaObject, "1", {0, 45, 1016, 486}, {0, 45, 1400, 855}},
    {"buttonMore", MenuButton::staticMetaObject, "1", {895, 8, 29, 29}, {1279, 8, 29, 29}},
    {"buttonHelpManual", HoverButton::staticMetaObject, "1", {932, 8, 72, 29}, {1316, 8, 72, 29}},

    {"brandMark", QWidget::staticMetaObject, "1", {14, 9, 26, 26}, {14, 9, 26, 26}},
    {"viewBackground",
     ViewBackground::staticMetaObject,
     "1",
     {-11, 45, 1038, 486},
     {181, 230, 1038, 486}},
    {"HomePage", QWidget::staticMetaObject, "1", {51, 88, 914, 400}, {243, 273, 914, 400}},
    {"heading", QLabel::staticMetaObject, "1", {91, 132, 430, 36}, {283, 317, 430, 36}},
    {"explanation", QLabel::staticMetaObject, "1", {91, 178, 412, 44}, {283, 363, 412, 44}},
    {"mainScanButton",
     ButtonHoverComplex::staticMetaObject,
     "1",
     {91, 264, 190, 160},
     {283, 449, 190, 160}},
    {"mainScanButtonFolder",
     ButtonHoverComplex::staticMetaObject,
     "1",
     {297, 264, 190, 160},
     {489, 449, 190, 160}},
    {"cleanHistory", QLabel::staticMetaObject, "1", {51, 488, 914, 43}, {243, 673, 914, 43}},

    {"buttonHomeExactPage",
     ButtonHoverSimple::staticMetaObject,
     "2",
     {0, 0, 45, 45},
     {0, 0, 45, 45}},
    {"backFolderButton",
     WIndowsLikeButton::staticMetaObject,
     "2",
     {51, 57, 32, 32},
     {110, 57, 32, 32}},
    {"nextFolderButton",
     WIndowsLikeButton::staticMetaObject,
     "2",
     {87, 57, 32, 32},
     {146, 57, 32, 32}},
    {"hint", QLabel::staticMetaObject, "2", {131, 64, 466, 18}, {190, 64, 732, 18}},
    {"markAllExactBtn", HoverButton::staticMetaObject, "2", {609, 57, 96, 32}, {934, 57, 96, 32}},
    {"unmarkAllExactBtn",
     HoverButton::staticMetaObject,
     "2",
     {713, 57, 104, 32},
     {1038, 57, 104, 32}},
    {"removeFromListExactBtn",
     HoverButton::staticMetaObject,
     "2",
     {825, 57, 140, 32},
     {1150, 57, 140, 32}},
    {"tableFrame", QWidget::staticMetaObject, "2", {51, 101, 914, 358}, {110, 101, 1180, 727}},
    {"tableExact", QTableView::staticMetaObject, "2", {55, 102, 906, 353}, {114, 102, 1172, 722}},
    {"locationActionBar",
     ViewButtonGrayBar::staticMetaObject,
     "2",
     {0, 471, 1016, 60},
     {0, 840, 1400, 60}},
    {"addPhotos", HoverButton::staticMetaObject, "2", {51, 483, 128, 36}, {110, 852, 128, 36}},
    {"addFolders", HoverButton::staticMetaObject, "2", {191, 483, 132, 36}, {250, 852, 132, 36}},
    {"findDuplicateExact",
     HoverButton::staticMetaObject,
     "2",
     {805, 483, 160, 36},
     {1130, 852, 160, 36}},

    {"progressTypeText", QLabel::staticMetaObject, "5", {51, 12, 832, 21}, {51, 12, 832, 21}},
    {"exactSimilarTabView",
     QStackedWidget::staticMetaObject,
     "5",
     {0, 45, 1016, 426},
     {0, 45, 1400, 795}},
    {"animationImage",
     ScanAnimation::staticMetaObject,
     "5",
     {364, 70, 288, 216},
     {556, 255, 288, 216}},
    {"searchStatus", QLabel::staticMetaObject, "5", {188, 308, 640, 28}, {380, 493, 640, 28}},
    {"similarIndicator",
     ProgressBar::staticMetaObject,
     "5",
     {188, 352, 640, 10},
     {380, 537, 640, 10}},
    {"similarProcessing",
     ElidedLabel::staticMetaObject,
     "5",
     {188, 372, 640, 20},
     {380, 557, 640, 20}},
    {"progressActionBar",
     ViewButtonGrayBar::staticMetaObject,
     "5",
     {0, 471, 1016, 60},
     {0, 840, 1400, 60}},
    {"textelapse", QLabel::staticMetaObject, "5", {51, 491, 400, 20}, {51, 860, 400, 20}},
    {"pauseResume", HoverButton::staticMetaObject, "5", {741, 483, 112, 36}, {1125, 852, 112, 36}},
    {"stopButton", HoverButton::staticMetaObject, "5", {865, 483, 100, 36}, {1249, 852, 100, 36}},

    {"buttonHomePage", ButtonHoverSimple::staticMetaObject, "4", {0, 0, 45, 45}, {0, 0, 45, 45}},
    {"resultTabBar", ViewButtonBar::staticMetaObject, "4", {0, 45, 1016, 40}, {0, 45, 1400, 40}},
    {"allButton", TabButton::staticMetaObject, "4", {12, 45, 78, 40}, {12, 45, 78, 40}},
    {"imageButton", TabButton::staticMetaObject, "4", {90, 45, 94, 40}, {90, 45, 94, 40}},
    {"videoButton", TabButton::staticMetaObject, "4", {184, 45, 94, 40}, {184, 45, 94, 40}},
    {"audioButton", TabButton::staticMetaObject, "4", {278, 45, 94, 40}, {278, 45, 94, 40}},
    {"documentButton", TabButton::staticMetaObject, "4", {372, 45, 124, 40}, {372, 45, 124, 40}},
    {"otherButton", TabButton::staticMetaObject, "4", {496, 45, 94, 40}, {496, 45, 94, 40}},
    {"sortLabel", QLabel::staticMetaObject, "4", {718, 56, 70, 18}, {1102, 56, 70, 18}},
    {"sortPopupBtn", PopUpButton::staticMetaObject, "4", {796, 49, 132, 32}, {1180, 49, 132, 32}},
    {"sortBtn", ToggleButton::staticMetaObject, "4", {934, 49, 32, 32}, {1318, 49, 32, 32}},
    {"asscendingBtn", ToggleButton::staticMetaObject, "4", {972, 49, 32, 32}, {1356, 49, 32, 32}},
    // The tree takes 18 % of 384, the list 52 % and the preview 30 %.
    {"treeBackground",
     ViewBackgroundTree::staticMetaObject,
     "4",
     {12, 97, 181, 366},
     {12, 97, 250, 735}},
    {"OView2", QTreeView::staticMetaObject, "4", {13, 100, 179, 362}, {13, 100, 248, 731}},
    {"resultTableFrame", QWidget::staticMetaObject, "4", {205, 97, 533, 320}, {274, 97, 733, 689}},
    {"resultTable", QTableView::staticMetaObject, "4", {206, 98, 531, 318}, {275, 98, 731, 687}},
    {"imView", ImageView::staticMetaObject, "4", {750, 97, 254, 191}, {1019, 97, 369, 277}},
    {"textFieldFrame", QWidget::staticMetaObject, "4", {750, 296, 254, 121}, {1019, 382, 369, 404}},
    {"textField", QTextEdit::staticMetaObject, "4", {751, 297, 252, 119}, {1020, 383, 367, 402}},
    {"selectedPath", ElidedLabel::staticMetaObject, "4", {205, 425, 799, 38}, {274, 794, 1114, 38}},
    {"resultActionBar",
     ViewButtonGrayBar::staticMetaObject,
     "4",
     {0, 471, 1016, 60},
     {0, 840, 1400, 60}},
    {"markAll", HoverButton::staticMetaObject, "4", {12, 485, 92, 32}, {12, 854, 92, 32}},
    {"unMarkAll", HoverButton::staticMetaObject, "4", {112, 485, 104, 32}, {112, 854, 104, 32}},
    {"resultDivider", QWidget::staticMetaObject, "4", {227, 485, 1, 32}, {227, 854, 1, 32}},
    {"addEceptionBtn",
     HoverButton::staticMetaObject,
     "4",
     {239, 485, 146, 32},
     {239, 854, 146, 32}},
    {"removeExceptionBtn",
     HoverButton::staticMetaObject,
     "4",
     {393, 485, 158, 32},
     {393, 854, 158, 32}},
    {"selectedCount", ElidedLabel::staticMetaObject, "4", {568, 482, 300, 19}, {568, 851, 684, 19}},
    {"selectedSize", ElidedLabel::staticMetaObject, "4", {568, 501, 300, 19}, {568, 870, 684, 19}},
    {"finishButton", HoverButton::staticMetaObject, "4", {884, 483, 120, 36}, {1268, 852, 120, 36}},

    {"loadingView", QWidget::staticMetaObject, "4", {205, 97, 799, 320}, {274, 97, 1114, 689}},
    {"loadingIndicator", Spinner::staticMetaObject, "4", {582, 235, 44, 44}, {809, 420, 44, 44}},
};

class ControlPlacesTest : public ShownWindow {
 protected:
    // Qt sends resize events only to visible widgets.
    ControlPlacesTest() {
        window.home->cleanHistory->show();
        window.loadingView->show();
    }
};

TEST_F(ControlPlacesTest, EveryControlIsFoundByItsNameWithItsClass) {
    for (const Control& expected : controls) {
        const auto* found = control(expected.name);
        ASSERT_NE(found, nullptr);
        EXPECT_TRUE(found->metaObject()->inherits(&expected.type))
            << expected.name << " is a " << found->metaObject()->className();
    }
}

TEST_F(ControlPlacesTest, NamesAreUsedOnce) {
    for (const Control& expected : controls) {
        EXPECT_EQ(window.findChildren<QWidget*>(QLatin1String(expected.name)).size(), 1)
            << expected.name;
    }
}

TEST_F(ControlPlacesTest, HaveTheGeometryOfTheDesign) {
    ASSERT_EQ(window.size(), QSize(1016, 531));
    for (const Control& expected : controls) {
        window.selectTabViewItem(QLatin1String(expected.screen));
        EXPECT_EQ(geometryOf(control(expected.name)), expected.geometry) << expected.name;
    }
}

TEST_F(ControlPlacesTest, GrowWithTheWindow) {
    resizeTo({1400, 900});
    for (const Control& expected : controls) {
        window.selectTabViewItem(QLatin1String(expected.screen));
        EXPECT_EQ(geometryOf(control(expected.name)), expected.grownGeometry) << expected.name;
    }
}

/// The design has the notice with another font; only its right edge is fixed.
TEST_F(ControlPlacesTest, TheNoticeInTheBarEndsBeforeMoreAndShortensTheTitle) {
    window.selectTabViewItem(QStringLiteral("4"));
    const auto* notice = control<NoticeStrip>("notReadNotice");
    const auto* title = control("resultScreenTitle");
    EXPECT_FALSE(notice->isVisible());
    EXPECT_EQ(geometryOf(title), QRect(51, 12, 832, 21));
    window.results->setNotRead(QStringLiteral("3 folders and 12 files could not be read."));
    EXPECT_TRUE(notice->isVisible());
    QCoreApplication::sendPostedEvents();
    const int width = notice->sizeHint().width();
    EXPECT_GT(width, 300);
    EXPECT_EQ(geometryOf(notice), QRect(883 - width, 8, width, 29));
    EXPECT_EQ(geometryOf(title), QRect(51, 12, 832 - width, 21));
    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(notice), QRect(883 + 384 - width, 8, width, 29));
    window.results->setNotRead(QStringLiteral("a long message ").repeated(20));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(geometryOf(notice), QRect(883 + 384 - 640, 8, 640, 29));
}

TEST_F(ControlPlacesTest, TheNoticeInTheBarIsShownOnItsScreenOnly) {
    const auto* notice = control<NoticeStrip>("notReadNotice");
    window.results->setNotRead(QStringLiteral("3 files could not be read."));
    EXPECT_FALSE(notice->isVisible());
    window.selectTabViewItem(QStringLiteral("4"));
    EXPECT_TRUE(notice->isVisible());
    window.selectTabViewItem(QStringLiteral("1"));
    EXPECT_FALSE(notice->isVisible());
    window.selectTabViewItem(QStringLiteral("4"));
    window.results->setNotRead({});
    EXPECT_FALSE(notice->isVisible());
    window.selectTabViewItem(QStringLiteral("1"));
    window.selectTabViewItem(QStringLiteral("4"));
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(ControlPlacesTest, ComeBackWhenTheWindowShrinks) {
    resizeTo({1400, 900});
    resizeTo({1016, 531});
    for (const Control& expected : controls) {
        window.selectTabViewItem(QLatin1String(expected.screen));
        EXPECT_EQ(geometryOf(control(expected.name)), expected.geometry) << expected.name;
    }
}

TEST_F(ControlPlacesTest, TheListAreaLiesInsideItsFrame) {
    window.selectTabViewItem(QStringLiteral("2"));
    const QWidget* listArea = control<LocationTable>("tableExact")->viewport();

    EXPECT_EQ(geometryOf(listArea), QRect(55, 134, 906, 321));
}

TEST_F(ControlPlacesTest, ColumnsOfTheListFillIt) {
    SomeLocations rows;
    auto* table = control<LocationTable>("tableExact");
    table->setModel(&rows);
    window.selectTabViewItem(QStringLiteral("2"));

    EXPECT_EQ(table->columnWidth(LocationTable::mainCell), 822);
    EXPECT_EQ(table->columnWidth(LocationTable::buttonCell), 84);

    resizeTo({1400, 900});
    EXPECT_EQ(table->columnWidth(LocationTable::mainCell), 1088);
    EXPECT_EQ(table->columnWidth(LocationTable::buttonCell), 84);
}

TEST_F(ControlPlacesTest, RowsHaveTheHeightOfTheDesign) {
    SomeLocations rows;
    rows.add(QStringLiteral("/a"), QStringLiteral("folder.png"), false);
    auto* table = control<LocationTable>("tableExact");
    table->setModel(&rows);

    EXPECT_EQ(table->rowHeight(0), 56);
}

TEST_F(ControlPlacesTest, OnlyTheScreensOwnControlsAreInTheBar) {
    const auto shownInBar = [this] {
        QStringList names;
        for (const QWidget* child : window.findChild<QWidget*>(QStringLiteral("topBar"))
                                        ->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (child->isVisible() && child->objectName() != QLatin1String("focusRing")) {
                names.push_back(child->objectName());
            }
        }
        names.sort();
        return names;
    };
    const QString help = QStringLiteral("buttonHelpManual");
    const QString more = QStringLiteral("buttonMore");

    EXPECT_EQ(shownInBar(), QStringList({QStringLiteral("brandMark"), help, more,
                                         QStringLiteral("homeScreenTitle")}));
    window.selectTabViewItem(QStringLiteral("2"));
    EXPECT_EQ(shownInBar(), QStringList({help, QStringLiteral("buttonHomeExactPage"), more,
                                         QStringLiteral("locationScreenTitle")}));
    window.selectTabViewItem(QStringLiteral("5"));
    EXPECT_EQ(shownInBar(), QStringList({help, more, QStringLiteral("progressTypeText")}));
    window.selectTabViewItem(QStringLiteral("4"));
    EXPECT_EQ(shownInBar(), QStringList({help, QStringLiteral("buttonHomePage"), more,
                                         QStringLiteral("resultScreenTitle")}));
}

}  // namespace

}  // namespace tarvin
