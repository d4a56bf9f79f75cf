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
ButtonHoverSimple& addButton(ControlFixture& bench) {
    auto& button = bench.add<ButtonHoverSimple>(buttonHoverSimpleGeometry);
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
    ControlFixture bench;
    addButton(bench);
    EXPECT_THAT(bench.at(20, 20), IsRgb(255, 0, 0));
    EXPECT_THAT(bench.at(64.5, 64.5), IsRgb(255, 0, 0));
}

TEST(ButtonHoverSimple, WhenHoveredItShowsTheHoverImage) {
    ControlFixture bench;
    auto& button = addButton(bench);
    bench.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 0));
    EXPECT_EQ(bench.cursor(), Qt::PointingHandCursor);
}

TEST(ButtonHoverSimple, KeepsTheHoverImageUnlessItIsToReset) {
    ControlFixture bench;
    auto& button = addButton(bench);
    bench.movePointerTo(button);
    bench.movePointerAway();
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 0));
}

TEST(ButtonHoverSimple, ShowsTheNormalImageAgainIfItIsToReset) {
    ControlFixture bench;
    auto& button = addButton(bench);
    button.setResetImageWhenNotHovering(true);
    bench.movePointerTo(button);
    bench.movePointerAway();
    EXPECT_THAT(bench.at(40, 40), IsRgb(255, 0, 0));
}

TEST(ButtonHoverSimple, WithTheMouseDownTheHoverImageStays) {
    ControlFixture bench;
    auto& button = addButton(bench);
    button.setResetImageWhenNotHovering(true);
    bench.movePointerTo(button);
    button.setMouseDown(true);
    bench.movePointerAway();
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 0));
}

TEST(ButtonHoverSimple, ADisabledOneKeepsItsImage) {
    ControlFixture bench;
    auto& button = addButton(bench);
    button.setResetImageWhenNotHovering(true);
    button.setEnabled(false);
    EXPECT_THAT(bench.at(40, 40), IsRgb(255, 0, 0));
    bench.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(255, 0, 0));
    EXPECT_EQ(bench.cursor(), Qt::ArrowCursor);
}

TEST(ButtonHoverSimple, OneDisabledWhileHoveredDoesNotReset) {
    ControlFixture bench;
    auto& button = addButton(bench);
    button.setResetImageWhenNotHovering(true);
    bench.movePointerTo(button);
    button.setEnabled(false);
    bench.movePointerAway();
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 0));
}

TEST(ButtonHoverSimple, ResettingClearsTheHoverState) {
    ControlFixture bench;
    auto& button = addButton(bench);
    bench.movePointerTo(button);
    button.resetButton();
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 0));
    button.setResetImageWhenNotHovering(true);
    button.resetButton();
    EXPECT_THAT(bench.at(40, 40), IsRgb(255, 0, 0));
}

TEST(ButtonHoverSimple, NewImagesBeginWithTheNormalOne) {
    ControlFixture bench;
    auto& button = addButton(bench);
    bench.movePointerTo(button);
    button.setImageNormal(plain(Qt::cyan), plain(Qt::green), {}, {});
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 255));
}

TEST(ButtonHoverSimple, IsHoveredOnlyInTheActiveWindow) {
    ControlFixture bench;
    auto& button = addButton(bench);
    button.setResetImageWhenNotHovering(true);
    bench.deactivate();
    bench.movePointerTo(button);
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(255, 0, 0));
    bench.activate();
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(bench.at(40, 40), IsRgb(0, 255, 0));
    bench.deactivate();
    EXPECT_FALSE(button.hovering());
}

TEST(ButtonHoverSimple, AClickPressesItAndLeavesMouseDownToItsOwner) {
    ControlFixture bench;
    auto& button = addButton(bench);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mousePress(bench.window().windowHandle(), Qt::LeftButton, {},
                      buttonHoverSimpleGeometry.center());
    EXPECT_FALSE(button.mouseDown());
    EXPECT_FALSE(bench.holds(buttonHoverSimpleGeometry, Qt::yellow));
    QTest::mouseRelease(bench.window().windowHandle(), Qt::LeftButton, {},
                        buttonHoverSimpleGeometry.center());
    EXPECT_EQ(clicks.count(), 1);
}

TEST(ButtonHoverSimple, TheHomeImagesExist) {
    ControlFixture bench(QColor(31, 100, 134));
    auto& button = bench.add<ButtonHoverSimple>(buttonHoverSimpleGeometry);
    button.setImageNormal(pictureIcon(QStringLiteral("Home Normal.png")),
                          pictureIcon(QStringLiteral("Home Hover.png")),
                          pictureIcon(QStringLiteral("Home Normal Disabled.png")),
                          pictureIcon(QStringLiteral("Back Onclick.png")));
    EXPECT_FALSE(button.disabledImage().isNull());
    EXPECT_FALSE(button.onClickImage().isNull());
    EXPECT_TRUE(bench.holds(buttonHoverSimpleGeometry, Qt::white));
    EXPECT_THAT(bench.at(21, 21), IsRgb(31, 100, 134));
    bench.movePointerTo(button);
    EXPECT_THAT(bench.at(21, 21), IsRgb(47, 120, 153));
}

}  // namespace
}  // namespace tarvin
