#include "controls/spinner.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

constexpr QRect spinnerGeometry(20, 20, 44, 44);

TEST(Spinner, IsATealQuarterOnAPaleRing) {
    ControlFixture fixture;
    fixture.add<Spinner>(spinnerGeometry);
    // On the ring, 18 from the middle (42, 42), to each side; the quarter begins at the top and
    // goes right.
    EXPECT_THAT(fixture.at(54.7, 29.3), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(42, 60), IsRgb(207, 237, 241));
    EXPECT_THAT(fixture.at(24, 42), IsRgb(207, 237, 241));
    EXPECT_THAT(fixture.at(42, 42), IsRgb(243, 246, 248));
}

TEST(Spinner, TurnsClockwise) {
    ControlFixture fixture;
    auto& spinner = fixture.add<Spinner>(spinnerGeometry);
    spinner.clock().setPhase(0.25);
    EXPECT_THAT(fixture.at(54.7, 54.7), IsRgb(0, 155, 178));
    EXPECT_THAT(fixture.at(54.7, 29.3), IsRgb(207, 237, 241));
}

TEST(Spinner, TurnsOnceInNineTenthsOfASecond) {
    EXPECT_EQ(Spinner().clock().duration(), 900);
}

TEST(Spinner, StartsAndStops) {
    ControlFixture fixture;
    auto& spinner = fixture.add<Spinner>(spinnerGeometry);
    EXPECT_FALSE(spinner.isAnimating());
    spinner.startAnimation();
    EXPECT_TRUE(spinner.isAnimating());
    const double before = spinner.clock().phase();
    EXPECT_TRUE(QTest::qWaitFor([&] { return spinner.clock().phase() != before; }, 5000));
    spinner.stopAnimation();
    EXPECT_FALSE(spinner.isAnimating());
    EXPECT_FALSE(spinner.clock().isRunning());
}

TEST(Spinner, AHiddenOneDoesNotAnimate) {
    ControlFixture fixture;
    auto& spinner = fixture.add<Spinner>(spinnerGeometry);
    spinner.hide();
    spinner.startAnimation();
    EXPECT_FALSE(spinner.clock().isRunning());
    spinner.show();
    EXPECT_TRUE(spinner.clock().isRunning());
}

}  // namespace
}  // namespace tarvin
