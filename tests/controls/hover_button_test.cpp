#include "controls/hover_button.h"

#include "controls/control_fixture.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetrics>
#include <QMenu>
#include <QTest>

namespace tarvin {
namespace {

using Kind = HoverButton::Kind;

constexpr QRect hoverButtonGeometry(20, 20, 120, 36);

HoverButton& addFilled(ControlFixture& fixture, const QColor& fill) {
    auto& button = fixture.add<HoverButton>(hoverButtonGeometry);
    button.setFill(fill);
    return button;
}

TEST(HoverButton, AFilledOneIsOneColourFromEdgeToEdge) {
    ControlFixture fixture;
    addFilled(fixture, look::deepTeal);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(139.5, 55.5), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(19.5, 30), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(140, 30), IsRgb(243, 246, 248));
}

TEST(HoverButton, AFilledTitleIsWhiteAndCentred) {
    ControlFixture fixture;
    addFilled(fixture, look::deepTeal).setTitle(QStringLiteral("OOO"));
    const QImage image = fixture.screenshot(hoverButtonGeometry);
    const QRect ink = inkBounds(image, look::deepTeal);
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, Qt::white));
    EXPECT_NEAR(ink.left() + ink.right(), image.width(), 2 * image.devicePixelRatio() + 1);
    EXPECT_NEAR(ink.top() + ink.bottom(), image.height(), 4 * image.devicePixelRatio());
}

TEST(HoverButton, WhenHoveredItsAlphaIsSevenTenths) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    fixture.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
    EXPECT_DOUBLE_EQ(button.alpha(), 0.7);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(83, 155, 171));
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
}

TEST(HoverButton, ATextButtonIsPalerWhileHovered) {
    ControlFixture fixture;
    auto& button =
        fixture.add<HoverButton>(hoverButtonGeometry, Kind::text, QString(8, QChar(0x2588)));
    const QPointF title(80, 38);
    EXPECT_THAT(fixture.at(title.x(), title.y()), IsRgb(11, 97, 115));
    fixture.movePointerTo(button);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    // 0.7 of the title's colour on that of the page.
    EXPECT_TRUE(fixture.isShownAt(title.x(), title.y(), QColor(81, 142, 155)));
    fixture.movePointerAway();
    EXPECT_TRUE(fixture.isShownAt(title.x(), title.y(), QColor(11, 97, 115)));
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(HoverButton, WhenThePointerLeavesItsAlphaIsOne) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    button.setAlpha(0.6);
    fixture.movePointerTo(button);
    fixture.movePointerAway();
    EXPECT_FALSE(button.hovering());
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(14, 116, 138));
}

TEST(HoverButton, ADisabledOneShowsTheNotAllowedCursorAndKeepsItsAlpha) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    button.setEnabled(false);
    fixture.movePointerTo(button);
    EXPECT_EQ(fixture.cursor(), Qt::ForbiddenCursor);
    EXPECT_EQ(button.cursor().shape(), Qt::ForbiddenCursor);
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
    fixture.movePointer(QPoint(200, 200));
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(HoverButton, TheCursorIsRightBetweenTwoDisabledOnes) {
    ControlFixture fixture;
    auto& first = fixture.add<HoverButton>(QRect(20, 20, 50, 36));
    auto& second = fixture.add<HoverButton>(QRect(70, 20, 50, 36));
    first.setEnabled(false);
    second.setEnabled(false);
    fixture.movePointerTo(first);
    fixture.movePointerTo(second);
    EXPECT_EQ(fixture.cursor(), Qt::ForbiddenCursor);
    fixture.movePointer(QPoint(200, 200));
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
}

TEST(HoverButton, TheCursorFollowsChangesBelowThePointer) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    fixture.movePointerTo(button);
    button.setEnabled(false);
    EXPECT_EQ(fixture.cursor(), Qt::ForbiddenCursor);
    button.setEnabled(true);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    fixture.movePointer(QPoint(200, 200));
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
}

TEST(HoverButton, OneEnteredWhileDisabledGetsTheHandWhenItIsEnabled) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    button.setEnabled(false);
    fixture.movePointerTo(button);
    button.setEnabled(true);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
}

TEST(HoverButton, TheParentsOwnCursorIsRestored) {
    ControlFixture fixture;
    fixture.window().setCursor(Qt::CrossCursor);
    auto& button = addFilled(fixture, look::deepTeal);
    button.setEnabled(false);
    fixture.movePointerTo(button);
    EXPECT_EQ(fixture.cursor(), Qt::ForbiddenCursor);
    fixture.movePointer(QPoint(200, 200));
    EXPECT_EQ(fixture.cursor(), Qt::CrossCursor);
}

TEST(HoverButton, ADestroyedOneLeavesNoCursorBehind) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    button.setEnabled(false);
    fixture.movePointerTo(button);
    ASSERT_EQ(fixture.window().cursor().shape(), Qt::ForbiddenCursor);
    delete &button;
    EXPECT_EQ(fixture.window().cursor().shape(), Qt::ArrowCursor);
}

TEST(HoverButton, ADisabledOneIsShownAtLessThanHalf) {
    ControlFixture fixture;
    addFilled(fixture, look::panelBlue).setEnabled(false);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(147, 187, 211));
}

TEST(HoverButton, ScanAndDeleteAreShownAtSixTenthsWhenDisabled) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    button.setDisabledOpacity(0.6);
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(106, 168, 182));
    // The controller's alpha for a disabled Scan has the same value and is not multiplied.
    button.setAlpha(0.6);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(106, 168, 182));
}

TEST(HoverButton, TheAlphaIsClamped) {
    HoverButton button;
    button.setAlpha(1.5);
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
    button.setAlpha(-1);
    EXPECT_DOUBLE_EQ(button.alpha(), 0.0);
}

TEST(HoverButton, OneLeftWhileDisabledIsOpaqueWhenEnabledAgain) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    fixture.movePointerTo(button);
    button.setEnabled(false);
    fixture.movePointerAway();
    EXPECT_DOUBLE_EQ(button.alpha(), 0.7);
    button.setEnabled(true);
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(HoverButton, OneDisabledUnderThePointerIsNotWashedOut) {
    ControlFixture fixture(Qt::black);
    auto& button =
        fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QStringLiteral("Mark All"));
    fixture.movePointerTo(button);
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(20, 30), IsRgb(197, 207, 213));
    fixture.movePointerAway();
    EXPECT_THAT(fixture.at(25, 25), IsRgb(243, 246, 248));
    button.setEnabled(true);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(255, 255, 255));
}

TEST(HoverButton, OneDisabledByItsOwnerKeepsTheAlphaThatTheOwnerGave) {
    ControlFixture fixture(Qt::black);
    auto& button = fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QString());
    button.setAlpha(0.6);
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(146, 148, 149));
}

TEST(HoverButton, EnabledWhenHoveredItIsHovered) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    button.setEnabled(false);
    fixture.movePointerTo(button);
    button.setEnabled(true);
    EXPECT_DOUBLE_EQ(button.alpha(), 0.7);
    EXPECT_TRUE(button.hovering());
}

TEST(HoverButton, EnablingOrDisablingUpdatesItsHoverState) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    fixture.movePointerTo(button);
    fixture.loseThePointer();
    ASSERT_TRUE(button.hovering());
    button.setEnabled(false);
    EXPECT_FALSE(button.hovering());
    button.setEnabled(true);
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(14, 116, 138));
}

TEST(HoverButton, AClickUpdatesItsHoverState) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    fixture.movePointerTo(button);
    fixture.loseThePointer();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.hovering());
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(HoverButton, AClosedMenuUpdatesItsHoverState) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    QMenu menu;
    menu.addAction(QStringLiteral("Ascending"));
    fixture.movePointerTo(button);
    const UntoldPointer untold;
    menu.popup(fixture.window().mapToGlobal(QPoint(150, 100)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    fixture.loseThePointer();
    ASSERT_TRUE(button.hovering());
    menu.close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(fixture.at(25, 25), IsRgb(14, 116, 138));
}

TEST(HoverButton, WhenAMenuHasClosedOverItItIsHovered) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    QMenu menu;
    menu.addAction(QStringLiteral("Ascending"));
    const UntoldPointer untold;
    menu.popup(fixture.window().mapToGlobal(hoverButtonGeometry.topLeft()));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    QCursor::setPos(fixture.window().mapToGlobal(hoverButtonGeometry.topLeft() + QPoint(6, 6)));
    menu.close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(button.hovering());
}

TEST(HoverButton, HeldDownItIsDarker) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deleteRed);
    button.setDown(true);
    EXPECT_THAT(fixture.at(25, 25), IsRgb(155, 51, 48));
}

TEST(HoverButton, AQuietOneIsWhiteWithAThinLineAndInkTitle) {
    ControlFixture fixture;
    fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QStringLiteral("Mark All"));
    EXPECT_THAT(fixture.at(20, 20), IsRgb(107, 124, 135));
    EXPECT_THAT(fixture.at(139.5, 40), IsRgb(107, 124, 135));
    EXPECT_THAT(fixture.at(60, 55.5), IsRgb(107, 124, 135));
    EXPECT_THAT(fixture.at(21, 21), IsRgb(255, 255, 255));
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, QColor(20, 36, 46)));
}

TEST(HoverButton, AQuietOneChangesItsColoursWhenDisabled) {
    ControlFixture fixture;
    auto& button =
        fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QStringLiteral("Mark All"));
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(197, 207, 213));
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, QColor(138, 151, 159)));
    EXPECT_FALSE(fixture.holds(hoverButtonGeometry, QColor(20, 36, 46)));
}

TEST(HoverButton, AQuietOneHasItsOwnTitleColourOnlyWhileEnabled) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QString());
    button.setAttributedTitle(setAttributes(Qt::red, QStringLiteral("HHH"), 13));
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, Qt::red));
    button.setEnabled(false);
    EXPECT_FALSE(fixture.holds(hoverButtonGeometry, Qt::red));
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, QColor(138, 151, 159)));
}

TEST(HoverButton, OnTheGrayBarADisabledQuietOneIsDarker) {
    ControlFixture fixture(look::barGray);
    auto& button =
        fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QStringLiteral("Mark All"));
    button.setOnGrayBar(true);
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(169, 178, 183));
    EXPECT_THAT(fixture.at(21, 21), IsRgb(205, 207, 208));
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, QColor(115, 126, 133)));
    button.setEnabled(true);
    EXPECT_THAT(fixture.at(21, 21), IsRgb(255, 255, 255));
}

TEST(HoverButton, AQuietOneFadesUnderThePointerToo) {
    ControlFixture fixture(Qt::black);
    auto& button = fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QString());
    fixture.movePointerTo(button);
    EXPECT_THAT(fixture.at(30, 30), IsRgb(179, 179, 179));
}

TEST(HoverButton, AnOutlinedOneHasNoBackground) {
    ControlFixture fixture(look::topBar);
    auto& button =
        fixture.add<HoverButton>(hoverButtonGeometry, Kind::outline, QStringLiteral("Help"));
    EXPECT_THAT(fixture.at(20, 30), IsRgb(154, 185, 200));
    EXPECT_THAT(fixture.at(22, 22), IsRgb(31, 100, 134));
    EXPECT_TRUE(fixture.holds(hoverButtonGeometry, Qt::white));
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(20, 30), IsRgb(86, 138, 164));
    EXPECT_FALSE(fixture.holds(hoverButtonGeometry, Qt::white));
}

TEST(HoverButton, RoundedCornersShowTheBackground) {
    ControlFixture fixture;
    addFilled(fixture, look::deepTeal).setCornerRadius(10);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(20.5, 38), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(80, 20.5), IsRgb(14, 116, 138));
}

TEST(HoverButton, SettingItsLookRepaints) {
    ControlFixture fixture;
    auto& button = addFilled(fixture, look::deepTeal);
    ASSERT_TRUE(fixture.isShownAt(20, 20, QColor(14, 116, 138)));
    button.setFill(look::panelBlue);
    EXPECT_TRUE(fixture.isShownAt(20, 20, QColor(30, 115, 165)));
    button.setCornerRadius(10);
    EXPECT_TRUE(fixture.isShownAt(20, 20, QColor(243, 246, 248)));
}

TEST(HoverButton, ItsSizeFollowsItsKind) {
    EXPECT_EQ(HoverButton(Kind::filled, QString()).sizeHint(), QSize(30, 36));
    EXPECT_EQ(HoverButton(Kind::quiet, QString()).sizeHint(), QSize(30, 32));
    EXPECT_EQ(HoverButton(Kind::outline, QString()).sizeHint(), QSize(30, 29));
    EXPECT_GT(HoverButton(Kind::quiet, QStringLiteral("Remove from List")).sizeHint().width(), 90);
}

TEST(HoverButton, ATitleThatIsTooLongEndsInsideTheButton) {
    ControlFixture fixture;
    fixture.add<HoverButton>(hoverButtonGeometry, Kind::quiet, QString(80, QLatin1Char('W')));
    EXPECT_THAT(fixture.at(22, 38), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(137, 38), IsRgb(255, 255, 255));
}

struct Titled {
    const char* title;
    int pixelSize;
    QFont::Weight weight;
    int width;
};

TEST(HoverButton, EveryTitleFitsInAWideFallbackFont) {
    constexpr Titled titles[] = {
        {"Mark All", 13, QFont::Medium, 92},
        {"Unmark All", 13, QFont::Medium, 104},
        {"Remove from List", 13, QFont::Medium, 140},
        {"Add to Exceptions", 13, QFont::Medium, 146},
        {"Remove Exceptions", 13, QFont::Medium, 158},
        {"Add Photos", 14, QFont::Bold, 128},
        {"Add Folders", 14, QFont::Bold, 132},
        {"Scan", 14, QFont::Bold, 160},
        {"Pause", 14, QFont::Bold, 112},
        {"Resume", 14, QFont::Bold, 112},
        {"Stop", 14, QFont::Bold, 100},
        {"Delete", 14, QFont::Bold, 120},
        {"Review", 14, QFont::Bold, 120},
        {"Cancel", 14, QFont::Bold, 104},
        {"Help", 13, QFont::Normal, 72},
        {"Yes", 13, QFont::Normal, 84},
    };
    for (const Titled& titled : titles) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(titled.pixelSize);
        font.setWeight(titled.weight);
        ASSERT_EQ(QFontInfo(font).family(), QStringLiteral("DejaVu Sans"));
        const int room = titled.width - 2 * 4;
        EXPECT_LE(QFontMetrics(font).horizontalAdvance(QString::fromUtf8(titled.title)), room)
            << titled.title;
    }
}

}  // namespace
}  // namespace tarvin
