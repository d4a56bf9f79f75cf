#include "controls/windows_like_button.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

constexpr QRect windowsLikeButtonGeometry(20, 20, 32, 32);

// A dark background, to distinguish the white edge.
const QColor background(40, 40, 40);

TEST(WIndowsLikeButton, IsTealWithAWhiteEdgeOfTwo) {
    ControlFixture fixture(background);
    fixture.add<WIndowsLikeButton>(windowsLikeButtonGeometry, QString());
    EXPECT_THAT(fixture.at(20, 30), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(21.5, 30), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(22, 30), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(49.5, 30), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(50, 30), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(36, 51.5), IsRgb(255, 255, 255));
}

TEST(WIndowsLikeButton, ItsChevronPointsInItsDirection) {
    ControlFixture fixture(background);
    fixture.add<WIndowsLikeButton>(windowsLikeButtonGeometry, QStringLiteral("ui/back"));
    fixture.add<WIndowsLikeButton>(QRect(60, 20, 32, 32), QStringLiteral("ui/next"));
    // The points of the two chevrons, 9 and 23 from the left edges.
    EXPECT_THAT(fixture.at(33.5, 36), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(78.5, 36), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(39, 36), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(73, 36), IsRgb(0, 155, 178));
}

TEST(WIndowsLikeButton, WhenHoveredItsAlphaIsSevenTenths) {
    ControlFixture fixture(background);
    auto& button = fixture.add<WIndowsLikeButton>(windowsLikeButtonGeometry, QString());
    fixture.movePointerTo(button);
    EXPECT_DOUBLE_EQ(button.alpha(), 0.7);
    EXPECT_THAT(fixture.at(30, 25), IsRgb(12, 121, 137));
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    fixture.movePointerAway();
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(WIndowsLikeButton, DisabledItIsShownAtFourTenths) {
    ControlFixture fixture(background);
    auto& button =
        fixture.add<WIndowsLikeButton>(windowsLikeButtonGeometry, QStringLiteral("ui/back"));
    button.setEnabled(false);
    EXPECT_THAT(fixture.at(30, 25), IsRgb(24, 86, 95));
    fixture.movePointerTo(button);
    EXPECT_EQ(fixture.cursor(), Qt::ForbiddenCursor);
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(WIndowsLikeButton, HeldDownItIsDarker) {
    ControlFixture fixture(background);
    fixture.add<WIndowsLikeButton>(windowsLikeButtonGeometry, QString()).setDown(true);
    EXPECT_THAT(fixture.at(30, 25), IsRgb(0, 136, 157));
    EXPECT_THAT(fixture.at(20, 30), IsRgb(255, 255, 255));
}

}  // namespace
}  // namespace tarvin
