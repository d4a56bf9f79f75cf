#include "controls/solid_bars.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

constexpr QRect solidBarsGeometry(10, 10, 100, 45);

TEST(SolidBars, TheTopBarIsDeepBlue) {
    ControlFixture fixture;
    fixture.add<ViewTopBar>(solidBarsGeometry);
    EXPECT_THAT(fixture.at(10, 10), IsRgb(31, 100, 134));
    EXPECT_THAT(fixture.at(109.5, 54.5), IsRgb(31, 100, 134));
    EXPECT_THAT(fixture.at(110, 54.5), IsRgb(243, 246, 248));
}

TEST(SolidBars, TheButtonBarIsWhite) {
    ControlFixture fixture;
    fixture.add<ViewButtonBar>(solidBarsGeometry);
    EXPECT_THAT(fixture.at(10, 10), IsRgb(255, 255, 255));
}

TEST(SolidBars, TheGrayBarIsGray) {
    ControlFixture fixture;
    fixture.add<ViewButtonGrayBar>(solidBarsGeometry);
    EXPECT_THAT(fixture.at(109.5, 54.5), IsRgb(193, 193, 193));
}

TEST(SolidBars, TheTreesFrameIsTeal) {
    ControlFixture fixture;
    fixture.add<ViewBackgroundTree>(solidBarsGeometry);
    EXPECT_THAT(fixture.at(10, 10), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(109.5, 54.5), IsRgb(0, 155, 178));
}

TEST(SolidBars, AColourSetOnTheTopBarIsNeverSeen) {
    ControlFixture fixture;
    auto& bar = fixture.add<ViewTopBar>(solidBarsGeometry);
    EXPECT_EQ(bar.fillColor(), QColor(31, 100, 134));
    bar.setFillColor(Qt::red);
    EXPECT_EQ(bar.fillColor(), QColor(Qt::red));
    EXPECT_THAT(fixture.at(50, 30), IsRgb(31, 100, 134));
    EXPECT_EQ(bar.fillColor(), QColor(31, 100, 134));
}

TEST(SolidBars, AColourSetOnTheOtherBarsIsNeverSeen) {
    ControlFixture fixture;
    auto& white = fixture.add<ViewButtonBar>(solidBarsGeometry);
    auto& gray = fixture.add<ViewButtonGrayBar>(QRect(10, 100, 100, 45));
    white.setFillColor(Qt::red);
    gray.setFillColor(Qt::red);
    EXPECT_THAT(fixture.at(50, 30), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(50, 120), IsRgb(193, 193, 193));
    EXPECT_EQ(white.fillColor(), QColor(255, 255, 255));
    EXPECT_EQ(gray.fillColor(), QColor(193, 193, 193));
}

TEST(SolidBars, SettingAColourRepaints) {
    ControlFixture fixture;
    auto& bar = fixture.add<ViewTopBar>(solidBarsGeometry);
    ASSERT_TRUE(fixture.isShownAt(50, 30, QColor(31, 100, 134)));
    bar.setFillColor(Qt::red);
    // Painting restores the colour.
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.fillColor() == QColor(31, 100, 134); }, 20'000));
}

}  // namespace
}  // namespace tarvin
