#include "controls/panel_shadow.h"

#include "controls/control_fixture.h"
#include "controls/view_settings_saved.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

constexpr QRect panelShadowGeometry(80, 60, 140, 100);

class PanelShadowTest : public testing::Test {
 protected:
    PanelShadowTest()
        : fixture_(Qt::white), panel_(fixture_.add<ViewSettingsSaved>(panelShadowGeometry)) {
        shadow_ = new PanelShadow(panel_);
    }

    ControlFixture fixture_;
    ViewSettingsSaved& panel_;
    PanelShadow* shadow_;
};

TEST_F(PanelShadowTest, IsDarkestBelowThePanelAndFadesOutward) {
    const int near = fixture_.at(150, 162).lightness();
    const int far = fixture_.at(150, 185).lightness();
    const int beyond = fixture_.at(150, 215).lightness();
    EXPECT_LT(near, 235);
    EXPECT_LT(near, far);
    EXPECT_LT(far, beyond);
    EXPECT_GT(beyond, 250);
}

TEST_F(PanelShadowTest, ThereIsMoreOfItBelowThanAbove) {
    EXPECT_LT(fixture_.at(150, 165).lightness(), fixture_.at(150, 54).lightness());
}

TEST_F(PanelShadowTest, BothSidesAreAlike) {
    EXPECT_NEAR(fixture_.at(75, 110).lightness(), fixture_.at(224.5, 110).lightness(), 2);
}

TEST_F(PanelShadowTest, LiesBelowThePanel) {
    EXPECT_THAT(fixture_.at(150, 100), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture_.at(80, 100), IsRgb(80, 148, 184));
}

TEST_F(PanelShadowTest, IsShownAndHiddenWithThePanel) {
    EXPECT_TRUE(shadow_->isVisible());
    panel_.hide();
    EXPECT_FALSE(shadow_->isVisible());
    panel_.show();
    EXPECT_TRUE(shadow_->isVisible());
}

TEST_F(PanelShadowTest, FollowsThePanel) {
    panel_.setGeometry(100, 70, 50, 40);
    EXPECT_EQ(shadow_->geometry(), QRect(68, 48, 114, 104));
}

TEST_F(PanelShadowTest, MouseEventsPassThrough) {
    EXPECT_EQ(fixture_.window().childAt(QPoint(60, 110)), nullptr);
}

TEST_F(PanelShadowTest, StaysBelowAPanelThatIsRaised) {
    panel_.lower();
    panel_.raise();
    EXPECT_THAT(fixture_.at(150, 100), IsRgb(255, 255, 255));
}

}  // namespace
}  // namespace tarvin
