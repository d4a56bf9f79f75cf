#include "controls/button_hover_simple.h"

#include "controls/control_fixture.h"
#include "controls/images.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace tarvin {
namespace {

constexpr QRect buttonHoverSimpleGeometry(20, 20, 45, 45);

QIcon plain(const QColor& color) {
    QPixmap pixmap(90, 90);
    pixmap.fill(color);
    return {pixmap};
}

/// Normal red, hover green, disabled blue, on click yellow.
ButtonHoverSimple& addButton(ControlFixture& fixture) {
    auto& button = fixture.add<ButtonHoverSimple>(buttonHoverSimpleGeometry);
    button.setImageNormal(plain(Qt::red), plain(Qt::green), plain(Qt::blue), plain(Qt::yellow));
    return button;
}

TEST(ButtonHoverSimple, StartsWithNothing) {
    const ButtonHoverSimple button;
    EXPECT_EQ(button.buttonID(), 0);
    EXPECT_FALSE(button.hovering());
    EXPECT_FALSE(button.mouseDown());
    EXPECT_FALSE(button.resetImageWhenNotHovering());
    EXPECT_TRUE(button.image().isNull());
}

TEST(ButtonHoverSimple, ShowsTheNormalImage) {
    ControlFixture fixture;
    addButton(fixture);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(255, 0, 0));
    EXPECT_THAT(fixture.at(64.5, 64.5), IsRgb(255, 0, 0));
}

TEST(ButtonHoverSimple, WhenHoveredItShowsTheHoverImage) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    fixture.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 0));
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
}

TEST(ButtonHoverSimple, KeepsTheHoverImageUnlessItIsToReset) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    fixture.movePointerTo(button);
    fixture.movePointerAway();
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 0));
}

TEST(ButtonHoverSimple, ShowsTheNormalImageAgainIfItIsToReset) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    button.setResetImageWhenNotHovering(true);
    fixture.movePointerTo(button);
    fixture.movePointerAway();
    EXPECT_THAT(fixture.at(40, 40), IsRgb(255, 0, 0));
}

TEST(ButtonHoverSimple, WithTheMouseDownTheHoverImageStays) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    button.setResetImageWhenNotHovering(true);
    fixture.movePointerTo(button);
    button.setMouseDown(true);
    fixture.movePointerAway();
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 0));
}

TEST(ButtonHoverSimple, ADisabledOneKeepsItsImage) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    button.setResetImageWhenNotHovering(true);
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(40, 40), IsRgb(255, 0, 0));
    fixture.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(255, 0, 0));
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
}

TEST(ButtonHoverSimple, OneDisabledWhileHoveredDoesNotReset) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    button.setResetImageWhenNotHovering(true);
    fixture.movePointerTo(button);
    button.setEnabled(false);
    fixture.movePointerAway();
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 0));
}

TEST(ButtonHoverSimple, ResettingClearsTheHoverState) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    fixture.movePointerTo(button);
    button.resetButton();
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 0));
    button.setResetImageWhenNotHovering(true);
    button.resetButton();
    EXPECT_THAT(fixture.at(40, 40), IsRgb(255, 0, 0));
}

TEST(ButtonHoverSimple, NewImagesBeginWithTheNormalOne) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    fixture.movePointerTo(button);
    button.setImageNormal(plain(Qt::cyan), plain(Qt::green), {}, {});
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 255));
}

TEST(ButtonHoverSimple, IsHoveredOnlyInTheActiveWindow) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    button.setResetImageWhenNotHovering(true);
    fixture.deactivate();
    fixture.movePointerTo(button);
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(255, 0, 0));
    fixture.activate();
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(fixture.at(40, 40), IsRgb(0, 255, 0));
    fixture.deactivate();
    EXPECT_FALSE(button.hovering());
}

TEST(ButtonHoverSimple, AClickPressesItAndLeavesMouseDownToItsOwner) {
    ControlFixture fixture;
    auto& button = addButton(fixture);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mousePress(fixture.window().windowHandle(), Qt::LeftButton, {},
                      buttonHoverSimpleGeometry.center());
    EXPECT_FALSE(button.mouseDown());
    EXPECT_FALSE(fixture.holds(buttonHoverSimpleGeometry, Qt::yellow));
    QTest::mouseRelease(fixture.window().windowHandle(), Qt::LeftButton, {},
                        buttonHoverSimpleGeometry.center());
    EXPECT_EQ(clicks.count(), 1);
}

TEST(ButtonHoverSimple, TheHomeImagesExist) {
    ControlFixture fixture(QColor(31, 100, 134));
    auto& button = fixture.add<ButtonHoverSimple>(buttonHoverSimpleGeometry);
    button.setImageNormal(pictureIcon(QStringLiteral("Home Normal.png")),
                          pictureIcon(QStringLiteral("Home Hover.png")),
                          pictureIcon(QStringLiteral("Home Normal Disabled.png")),
                          pictureIcon(QStringLiteral("Back Onclick.png")));
    EXPECT_FALSE(button.disabledImage().isNull());
    EXPECT_FALSE(button.onClickImage().isNull());
    EXPECT_TRUE(fixture.holds(buttonHoverSimpleGeometry, Qt::white));
    EXPECT_THAT(fixture.at(21, 21), IsRgb(31, 100, 134));
    fixture.movePointerTo(button);
    EXPECT_THAT(fixture.at(21, 21), IsRgb(47, 120, 153));
}

}  // namespace
}  // namespace tarvin
