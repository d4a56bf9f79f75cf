#include "controls/button_settings_saved.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace tarvin {
namespace {

constexpr QRect buttonSettingsSavedGeometry(20, 20, 84, 27);

TEST(ButtonSettingsSaved, IsAGrayGradientWithABlueLine) {
    ControlFixture fixture;
    fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry);
    EXPECT_THAT(fixture.at(20, 30), IsRgb(53, 152, 252));
    EXPECT_THAT(fixture.at(103.5, 46.5), IsRgb(53, 152, 252));
    EXPECT_THAT(fixture.at(30, 45.5), IsRgb(223, 223, 223));
    EXPECT_THAT(fixture.at(30, 33.5), IsRgb(231, 231, 231));
    EXPECT_THAT(fixture.at(30, 21), IsRgb(239, 239, 239));
}

TEST(ButtonSettingsSaved, WhenHoveredItIsBlue) {
    ControlFixture fixture;
    auto& button = fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry);
    fixture.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
    EXPECT_THAT(fixture.at(20, 30), IsRgb(126, 180, 234));
    EXPECT_THAT(fixture.at(30, 45.5), IsRgb(221, 237, 252));
    EXPECT_THAT(fixture.at(30, 21), IsRgb(238, 246, 253));
    fixture.movePointerAway();
    EXPECT_FALSE(button.hovering());
    EXPECT_THAT(fixture.at(20, 30), IsRgb(53, 152, 252));
}

TEST(ButtonSettingsSaved, TheTitleIsBlackAndCentred) {
    ControlFixture fixture;
    fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry).setTitle(QStringLiteral("IHI"));
    const QImage image = fixture.screenshot(buttonSettingsSavedGeometry.adjusted(2, 2, -2, -2));
    int left = image.width();
    int right = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).lightness() < 100) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    EXPECT_NEAR(left + right, image.width(), 3 * image.devicePixelRatio());
}

TEST(ButtonSettingsSaved, IsHoveredOnlyInTheActiveProgram) {
    ControlFixture fixture;
    auto& button = fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry);
    // Another window of the same program is active.
    fixture.deactivate();
    fixture.movePointerTo(button);
    EXPECT_TRUE(button.hovering());
}

TEST(ButtonSettingsSaved, WithoutAnOverlayTheCursorStays) {
    ControlFixture fixture;
    auto& button = fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry);
    fixture.movePointerTo(button);
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
}

TEST(ButtonSettingsSaved, TheHandIsShownWhileNothingCoversTheOverlay) {
    ControlFixture fixture;
    ViewTransparent overlay;
    auto& button = fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry);
    button.setViewTransparent(&overlay);
    EXPECT_EQ(button.viewTransparent(), &overlay);
    fixture.movePointerTo(button);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    overlay.setviewsOverlaidCount(1);
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
    overlay.setviewsOverlaidCount(0);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    button.setViewTransparent(nullptr);
    EXPECT_EQ(fixture.cursor(), Qt::ArrowCursor);
}

TEST(ButtonSettingsSaved, TheOverlayMayBeDestroyedFirst) {
    ControlFixture fixture;
    auto overlay = std::make_unique<ViewTransparent>();
    auto& button = fixture.add<ButtonSettingsSaved>(buttonSettingsSavedGeometry);
    button.setViewTransparent(overlay.get());
    overlay.reset();
    EXPECT_EQ(button.viewTransparent(), nullptr);
    EXPECT_EQ(button.cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
}  // namespace tarvin
