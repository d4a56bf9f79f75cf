#include "controls/spinner.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

constexpr QRect spinnerGeometry(20, 20, 44, 44);

TEST(Spinner, IsATealQuarterOnAPaleRing) {
    ControlFixture bench;
    bench.add<Spinner>(spinnerGeometry);
    // On the ring, 18 from the middle (42, 42), to each side; the quarter begins at the top and
    // goes right.
    EXPECT_THAT(bench.at(54.7, 29.3), IsRgb(0, 155, 178));
    EXPECT_THAT(bench.at(42, 60), IsRgb(207, 237, 241));
    EXPECT_THAT(bench.at(24, 42), IsRgb(207, 237, 241));
    EXPECT_THAT(bench.at(42, 42), IsRgb(243, 246, 248));
}

TEST(Spinner, TurnsClockwise) {
    ControlFixture bench;
    auto& spinner = bench.add<Spinner>(spinnerGeometry);
    spinner.clock().setPhase(0.25);
    EXPECT_THAT(bench.at(54.7, 54.7), IsRgb(0, 155, 178));
    EXPECT_THAT(bench.at(54.7, 29.3), IsRgb(207, 237, 241));
}

TEST(Spinner, TurnsOnceInNineTenthsOfASecond) {
    EXPECT_EQ(Spinner().clock().duration(), 900);
}

TEST(Spinner, StartsAndStops) {
    ControlFixture bench;
    auto& spinner = bench.add<Spinner>(spinnerGeometry);
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
    ControlFixture bench;
    auto& spinner = bench.add<Spinner>(spinnerGeometry);
    spinner.hide();
    spinner.startAnimation();
    EXPECT_FALSE(spinner.clock().isRunning());
    spinner.show();
    EXPECT_TRUE(spinner.clock().isRunning());
}

}  // namespace
}  // namespace tarvin
