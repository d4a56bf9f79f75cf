#include "controls/view_settings_saved.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

TEST(ViewSettingsSaved, HasALineABandAndAFoot) {
    ControlFixture fixture;
    fixture.add<ViewSettingsSaved>(QRect(20, 20, 200, 140));
    EXPECT_THAT(fixture.at(20, 20), IsRgb(80, 148, 184));
    EXPECT_THAT(fixture.at(20.5, 90), IsRgb(80, 148, 184));
    EXPECT_THAT(fixture.at(219.5, 159.5), IsRgb(80, 148, 184));
    EXPECT_THAT(fixture.at(21, 21), IsRgb(105, 193, 243));
    EXPECT_THAT(fixture.at(218.5, 45.5), IsRgb(105, 193, 243));
    EXPECT_THAT(fixture.at(21, 46), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(100, 113.5), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(100, 114), IsRgb(223, 223, 223));
    EXPECT_THAT(fixture.at(21, 158.5), IsRgb(223, 223, 223));
}

TEST(ViewSettingsSaved, AClickFocusesIt) {
    ControlFixture fixture;
    auto& panel = fixture.add<ViewSettingsSaved>(QRect(20, 20, 200, 140));
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {}, QPoint(60, 70));
    EXPECT_TRUE(panel.hasFocus());
}

}  // namespace
}  // namespace tarvin
