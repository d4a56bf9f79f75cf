#include "controls/progress_bar.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>
#include <limits>

namespace tarvin {
namespace {

constexpr QRect progressBarGeometry(20, 20, 200, 10);
constexpr quint64 maxCount = std::numeric_limits<quint64>::max();

TEST(ProgressBar, IsTealOnALightLine) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(100);
    bar.setDone(62);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(143.5, 29.5), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(144, 25), IsRgb(213, 221, 226));
    EXPECT_THAT(fixture.at(219.5, 25), IsRgb(213, 221, 226));
}

TEST(ProgressBar, AtFirstItIsEmpty) {
    ControlFixture fixture;
    const auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    EXPECT_FALSE(bar.isIndeterminate());
    EXPECT_DOUBLE_EQ(bar.fraction(), 0);
    EXPECT_THAT(fixture.at(20, 20), IsRgb(213, 221, 226));
}

TEST(ProgressBar, IsFullOnlyWhenEverythingIsDone) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(1000000);
    bar.setDone(999999);
    EXPECT_THAT(fixture.at(219.5, 25), IsRgb(213, 221, 226));
    EXPECT_LT(bar.value(), bar.maximum());
    bar.setDone(1000000);
    EXPECT_THAT(fixture.at(219.5, 25), IsRgb(0, 155, 178));
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST(ProgressBar, TakesTheLargestNumbers) {
    ProgressBar bar;
    bar.setTotal(maxCount);
    bar.setDone(maxCount / 2);
    EXPECT_NEAR(bar.fraction(), 0.5, 1e-9);
    bar.setDone(maxCount - 1);
    EXPECT_LT(bar.fraction(), 1.0);
    EXPECT_LT(bar.value(), bar.maximum());
    bar.setDone(maxCount);
    EXPECT_DOUBLE_EQ(bar.fraction(), 1.0);
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST(ProgressBar, ClampsToTheTotal) {
    ProgressBar bar;
    bar.setTotal(3);
    bar.setDone(7);
    EXPECT_DOUBLE_EQ(bar.fraction(), 1.0);
    EXPECT_EQ(bar.done(), 7U);
}

TEST(ProgressBar, ATotalOfZeroShowsNothingDone) {
    ProgressBar bar;
    bar.setDone(5);
    EXPECT_DOUBLE_EQ(bar.fraction(), 0);
}

TEST(ProgressBar, WhileTheTotalIsUnknownASegmentMoves) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setIndeterminate(true);
    EXPECT_TRUE(bar.clock().isRunning());
    EXPECT_EQ(bar.clock().duration(), 1400);
    bar.clock().stop();
    bar.clock().setPhase(0.5);
    // 34 % of the bar, in its middle: from 66 to 134 of 200.
    EXPECT_THAT(fixture.at(84, 25), IsRgb(213, 221, 226));
    EXPECT_THAT(fixture.at(88, 25), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(152, 25), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(156, 25), IsRgb(213, 221, 226));
    bar.clock().setPhase(0);
    EXPECT_FALSE(fixture.holds(progressBarGeometry, QColor(0, 155, 178)));
}

TEST(ProgressBar, TheSegmentMoves) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setIndeterminate(true);
    const double before = bar.clock().phase();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.clock().phase() != before; }, 5000));
}

TEST(ProgressBar, ADeterminateOneDoesNotAnimateAndKeepsItsNumbers) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(10);
    bar.setDone(5);
    bar.setIndeterminate(true);
    EXPECT_EQ(bar.maximum(), 0);
    bar.setIndeterminate(false);
    EXPECT_FALSE(bar.clock().isRunning());
    EXPECT_DOUBLE_EQ(bar.fraction(), 0.5);
    EXPECT_THAT(fixture.at(119.5, 25), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(120, 25), IsRgb(213, 221, 226));
}

TEST(ProgressBar, AHiddenOneDoesNotAnimate) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setIndeterminate(true);
    bar.hide();
    EXPECT_FALSE(bar.clock().isRunning());
    EXPECT_TRUE(bar.clock().isStarted());
    bar.show();
    EXPECT_TRUE(bar.clock().isRunning());
}

TEST(ProgressBar, ASheenMovesOverTheWholeBar) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(100);
    bar.setDone(50);
    bar.setSheen(true);
    EXPECT_TRUE(bar.clock().isRunning());
    bar.clock().stop();
    // The light is 120 wide and begins left of the bar; its middle is on 70, then on 170.
    bar.clock().setPhase(110.0 / 320);
    EXPECT_THAT(fixture.at(70, 25), IsRgb(90, 190, 205));
    EXPECT_THAT(fixture.at(170, 25), IsRgb(213, 221, 226));
    bar.clock().setPhase(210.0 / 320);
    EXPECT_THAT(fixture.at(70, 25), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(170, 25), IsRgb(154, 218, 227));
}

TEST(ProgressBar, ASheenIsSeenWhileNothingIsDone) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(100);
    bar.setSheen(true);
    bar.clock().stop();
    bar.clock().setPhase(0.5);
    EXPECT_THAT(fixture.at(120, 25), IsRgb(154, 218, 227));
}

TEST(ProgressBar, EndingTheSheenRepaints) {
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(100);
    bar.setDone(50);
    bar.setSheen(true);
    bar.clock().stop();
    bar.clock().setPhase(110.0 / 320);
    ASSERT_TRUE(fixture.isShownAt(70, 25, QColor(90, 190, 205)));
    bar.setSheen(false);
    EXPECT_TRUE(fixture.isShownAt(70, 25, QColor(0, 155, 178)));
}

TEST(ProgressBar, TheSheenIsOffWithReducedMotion) {
    setReducedMotion(true);
    ControlFixture fixture;
    auto& bar = fixture.add<ProgressBar>(progressBarGeometry);
    bar.setTotal(100);
    bar.setDone(50);
    bar.setSheen(true);
    EXPECT_FALSE(bar.clock().isRunning());
    bar.clock().setPhase(0.5);
    EXPECT_THAT(fixture.at(70, 25), IsRgb(0, 155, 178));
    setReducedMotion(std::nullopt);
}

TEST(ProgressBar, AssistiveTechnologyReadsItsValue) {
    ProgressBar bar;
    bar.setTotal(4);
    bar.setDone(1);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&bar);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::ProgressBar);
    ASSERT_NE(told->valueInterface(), nullptr);
    EXPECT_EQ(told->valueInterface()->currentValue().toInt(), 2500);
    EXPECT_EQ(told->valueInterface()->maximumValue().toInt(), 10000);
}

TEST(ProgressBar, IsTenHigh) {
    EXPECT_EQ(ProgressBar().sizeHint().height(), 10);
    EXPECT_EQ(ProgressBar().minimumSizeHint().height(), 10);
}

}  // namespace
}  // namespace tarvin
