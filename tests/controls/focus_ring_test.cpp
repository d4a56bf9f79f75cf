#include "controls/focus_ring.h"

#include "controls/button_hover_simple.h"
#include "controls/control_fixture.h"
#include "controls/hover_button.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

constexpr QRect focusRingGeometry(20, 20, 100, 36);

TEST(FocusRing, TheKeyboardShowsIt) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    EXPECT_FALSE(button.showsFocusRing());
    button.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(button.showsFocusRing());
    button.clearFocus();
    EXPECT_FALSE(button.showsFocusRing());
}

TEST(FocusRing, TheMouseDoesNotShowIt) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {},
                      focusRingGeometry.center());
    ASSERT_TRUE(button.hasFocus());
    EXPECT_FALSE(button.showsFocusRing());
}

TEST(FocusRing, AFocusMovedByTheProgramIsShownIfTheKeyboardWasUsedLast) {
    ControlFixture fixture;
    auto& first = fixture.add<HoverButton>(focusRingGeometry);
    auto& second = fixture.add<HoverButton>(QRect(20, 80, 100, 36));
    second.setFocus(Qt::OtherFocusReason);
    EXPECT_FALSE(second.showsFocusRing());
    QTest::keyClick(fixture.window().windowHandle(), Qt::Key_Tab);
    EXPECT_TRUE(first.showsFocusRing());
    second.setFocus(Qt::OtherFocusReason);
    EXPECT_TRUE(second.showsFocusRing());
    EXPECT_FALSE(first.showsFocusRing());
}

TEST(FocusRing, IsTwoWideWithAGapOfTwo) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    button.setFocus(Qt::TabFocusReason);
    EXPECT_THAT(fixture.at(15.5, 30), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(16, 30), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture.at(17.5, 30), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture.at(18, 30), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(19.5, 30), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(123.5, 59.5), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture.at(124, 59.5), IsRgb(243, 246, 248));
}

TEST(FocusRing, IsWhiteOnTheBlueBars) {
    ControlFixture fixture(look::topBar);
    auto& button =
        fixture.add<HoverButton>(focusRingGeometry, HoverButton::Kind::outline, QString());
    button.setFocus(Qt::TabFocusReason);
    EXPECT_THAT(fixture.at(16, 30), IsRgb(255, 255, 255));
}

TEST(FocusRing, InACornerIsInsideTheControl) {
    ControlFixture fixture(look::topBar);
    auto& button = fixture.add<ButtonHoverSimple>(QRect(0, 0, 45, 45));
    button.setFocus(Qt::TabFocusReason);
    EXPECT_THAT(fixture.at(1.5, 20), IsRgb(31, 100, 134));
    EXPECT_THAT(fixture.at(2, 20), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(3.5, 20), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(4, 20), IsRgb(31, 100, 134));
}

TEST(FocusRing, MovesWithItsControl) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    button.setFocus(Qt::TabFocusReason);
    auto* ring = fixture.window().findChild<FocusRing*>();
    ASSERT_NE(ring, nullptr);
    button.setGeometry(50, 60, 80, 20);
    EXPECT_EQ(ring->geometry(), QRect(46, 56, 88, 28));
    button.hide();
    EXPECT_FALSE(ring->isVisible());
}

TEST(FocusRing, TakesNeitherMouseNorFocus) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    button.setFocus(Qt::TabFocusReason);
    auto* ring = fixture.window().findChild<FocusRing*>();
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(ring->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(fixture.window().childAt(focusRingGeometry.center()), &button);
}

TEST(FocusRing, IsHiddenWithItsControl) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    button.setFocus(Qt::TabFocusReason);
    delete &button;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(fixture.window().findChild<FocusRing*>(), nullptr);
}

TEST(FocusRing, MovesToANewParentWithItsControl) {
    ControlFixture fixture;
    auto& panel = fixture.add<QWidget>(QRect(100, 100, 150, 100));
    auto& button = fixture.add<HoverButton>(focusRingGeometry);
    button.setFocus(Qt::TabFocusReason);
    auto* ring = fixture.window().findChild<FocusRing*>();
    ASSERT_NE(ring, nullptr);
    button.setParent(&panel);
    EXPECT_EQ(ring->parentWidget(), &panel);
}

}  // namespace
}  // namespace tarvin
