#include "controls/button_hover_complex.h"

#include "controls/control_fixture.h"
#include "controls/images.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

constexpr QRect buttonHoverComplexGeometry(20, 20, 190, 160);

QPixmap plain(const QSize& size, const QColor& color) {
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

ButtonHoverComplex& addTile(ControlFixture& fixture, const QIcon& picture = {}) {
    auto& tile = fixture.add<ButtonHoverComplex>(buttonHoverComplexGeometry);
    tile.setFillColor(look::deepTeal);
    tile.setImageNormal(picture, {});
    return tile;
}

TEST(ButtonHoverComplex, IsFilledFromEdgeToEdge) {
    ControlFixture fixture;
    auto& tile = addTile(fixture);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(209.5, 179.5), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(210, 100), IsRgb(243, 246, 248));
    tile.setFillColor(look::topBar);
    EXPECT_EQ(tile.fillColor(), QColor(31, 100, 134));
    EXPECT_THAT(fixture.at(20, 20), IsRgb(31, 100, 134));
}

TEST(ButtonHoverComplex, AnImage110WideIsPaintedUnscaled) {
    ControlFixture fixture;
    QIcon icon(plain({220, 220}, Qt::red));
    icon.addPixmap(plain({110, 60}, Qt::green));
    addTile(fixture, icon);
    // 110 x 60 in the middle of 190 x 160: from (40, 50) on.
    EXPECT_THAT(fixture.at(60, 70), IsRgb(0, 255, 0));
    EXPECT_THAT(fixture.at(169.5, 129.5), IsRgb(0, 255, 0));
    EXPECT_THAT(fixture.at(59.5, 70), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(170, 100), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(100, 69.5), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(100, 130), IsRgb(14, 116, 138));
}

TEST(ButtonHoverComplex, OtherImagesAreResized) {
    for (const QSize size : {QSize(64, 32), QSize(300, 200), QSize(109, 110)}) {
        ControlFixture fixture;
        addTile(fixture, plain(size, Qt::red));
        EXPECT_THAT(fixture.at(60, 45), IsRgb(255, 0, 0)) << size.width();
        EXPECT_THAT(fixture.at(169.5, 154.5), IsRgb(255, 0, 0)) << size.width();
        EXPECT_THAT(fixture.at(59.5, 100), IsRgb(14, 116, 138)) << size.width();
        EXPECT_THAT(fixture.at(100, 155), IsRgb(14, 116, 138)) << size.width();
    }
}

TEST(ButtonHoverComplex, TheImageIsUpright) {
    QPixmap pixmap(110, 110);
    pixmap.fill(Qt::red);
    QPainter(&pixmap).fillRect(0, 0, 110, 55, Qt::green);
    ControlFixture fixture;
    addTile(fixture, pixmap);
    EXPECT_THAT(fixture.at(100, 50), IsRgb(0, 255, 0));
    EXPECT_THAT(fixture.at(100, 150), IsRgb(255, 0, 0));
}

TEST(ButtonHoverComplex, TheDrawingOfTheDrivesTileIsSharp) {
    ControlFixture fixture;
    addTile(fixture, pictureIcon(QStringLiteral("ui/tile_drives")));
    // The upper edge of the white sheet, 14 of 110 down, and its left one, 32 of 110.
    EXPECT_THAT(fixture.at(115, 58.5), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(115, 59), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(92, 75), IsRgb(255, 255, 255));
}

TEST(ButtonHoverComplex, TheTitleIsInTheUpperLeft) {
    ControlFixture fixture;
    addTile(fixture).setTitle(QStringLiteral("HHH"));
    const QImage image = fixture.screenshot(buttonHoverComplexGeometry);
    const double ratio = image.devicePixelRatio();
    const QRect ink = inkBounds(image, look::deepTeal);
    EXPECT_NEAR(ink.left() / ratio, 11, 1.5);
    EXPECT_GE(ink.top() / ratio, 9);
    EXPECT_LE(ink.bottom() / ratio, 25);
    EXPECT_TRUE(fixture.holds(buttonHoverComplexGeometry, Qt::white));
}

TEST(ButtonHoverComplex, ALongTitleIsCutAtTheInset) {
    ControlFixture fixture;
    addTile(fixture).setTitle(QString(60, QLatin1Char('W')));
    const QImage image = fixture.screenshot(buttonHoverComplexGeometry);
    EXPECT_LT(inkBounds(image, QColor(14, 116, 138)).right() / image.devicePixelRatio(), 180);
}

TEST(ButtonHoverComplex, WhenHoveredItsAlphaIsEightTenths) {
    ControlFixture fixture;
    auto& tile = addTile(fixture);
    fixture.movePointerTo(tile);
    EXPECT_DOUBLE_EQ(tile.alpha(), 0.8);
    EXPECT_THAT(fixture.at(25, 100), IsRgb(60, 142, 160));
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    fixture.movePointerAway();
    EXPECT_DOUBLE_EQ(tile.alpha(), 1.0);
    EXPECT_THAT(fixture.at(25, 100), IsRgb(14, 116, 138));
}

TEST(ButtonHoverComplex, TheMouseHoldsItDownUntilReleased) {
    ControlFixture fixture;
    auto& tile = addTile(fixture);
    EXPECT_FALSE(tile.mouseDown());
    QTest::mousePress(fixture.window().windowHandle(), Qt::LeftButton, {},
                      buttonHoverComplexGeometry.center());
    EXPECT_TRUE(tile.mouseDown());
    QTest::mouseRelease(fixture.window().windowHandle(), Qt::LeftButton, {},
                        buttonHoverComplexGeometry.center());
    EXPECT_FALSE(tile.mouseDown());
}

TEST(ButtonHoverComplex, HeldDownItIsDarker) {
    ControlFixture fixture;
    addTile(fixture).setDown(true);
    EXPECT_THAT(fixture.at(25, 100), IsRgb(12, 102, 121));
}

TEST(ButtonHoverComplex, ResettingAndNewImagesClearTheHoverState) {
    ControlFixture fixture;
    auto& tile = addTile(fixture);
    fixture.movePointerTo(tile);
    ASSERT_TRUE(tile.hovering());
    tile.resetButton();
    EXPECT_FALSE(tile.hovering());
    fixture.movePointerAway();
    fixture.movePointerTo(tile);
    tile.setImageNormal({}, {});
    EXPECT_FALSE(tile.hovering());
}

TEST(ButtonHoverComplex, TheArrowIsKeptAndNotDrawn) {
    ControlFixture fixture;
    auto& tile = addTile(fixture);
    tile.setImageNormal({}, plain({110, 110}, Qt::red));
    EXPECT_FALSE(tile.arrowImage().isNull());
    EXPECT_FALSE(fixture.holds(buttonHoverComplexGeometry, Qt::red));
    tile.setButtonID(7);
    EXPECT_EQ(tile.buttonID(), 7);
}

}  // namespace
}  // namespace tarvin
