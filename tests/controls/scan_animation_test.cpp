#include "controls/scan_animation.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QTest>

namespace tarvin {
namespace {

constexpr QRect scanAnimationGeometry(0, 0, 288, 216);

class ScanAnimationTest : public testing::Test {
 protected:
    ~ScanAnimationTest() override { setReducedMotion(std::nullopt); }

    ControlFixture fixture_;
};

TEST_F(ScanAnimationTest, ShowsTheSheetsAndTheLens) {
    fixture_.add<ScanAnimation>(scanAnimationGeometry);
    EXPECT_THAT(fixture_.at(144, 8), IsRgb(230, 244, 247));
    EXPECT_TRUE(fixture_.holds(scanAnimationGeometry, QColor(30, 115, 165)));
    EXPECT_THAT(fixture_.at(40 + 40.9 - 31.8, 70 + 40.9), IsRgb(31, 100, 134));
}

TEST_F(ScanAnimationTest, TheLensMovesOverTheSheetsAndBack) {
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    EXPECT_EQ(animation.clock().duration(), 2400);
    EXPECT_EQ(animation.lensPosition(), QPointF(40, 70));
    animation.clock().setPhase(0.5);
    EXPECT_NEAR(animation.lensPosition().x(), 150, 0.01);
    EXPECT_NEAR(animation.lensPosition().y(), 92, 0.01);
    animation.clock().setPhase(0.25);
    EXPECT_NEAR(animation.lensPosition().x(), 95, 0.01);
    EXPECT_NEAR(animation.lensPosition().y(), 55, 0.01);
    animation.clock().setPhase(0.75);
    EXPECT_NEAR(animation.lensPosition().x(), 95, 0.01);
    EXPECT_NEAR(animation.lensPosition().y(), 107, 0.01);
}

TEST_F(ScanAnimationTest, TheLensNeverLeavesTheImageAndNeverJumps) {
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    QPointF before = animation.lensPosition();
    for (int step = 1; step <= 200; ++step) {
        animation.clock().setPhase(step / 200.0);
        const QPointF now = animation.lensPosition();
        EXPECT_TRUE(QRectF(scanAnimationGeometry).contains(QRectF(now, QSizeF(100, 100)))) << step;
        EXPECT_LT((now - before).manhattanLength(), 6) << step;
        before = now;
    }
}

/// Counts the painted images, and the smoothed ones.
class CountingEngine final : public QPaintEngine {
 public:
    CountingEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice* device) override {
        Q_UNUSED(device)
        return true;
    }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& now) override { Q_UNUSED(now) }
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& part) override {
        EXPECT_EQ(target.size(), part.size());
        EXPECT_FALSE(pixmap.isNull());
        ++drawn;
        smoothed += painter()->testRenderHint(QPainter::SmoothPixmapTransform) ? 1 : 0;
    }
    [[nodiscard]] Type type() const override { return User; }

    int drawn = 0;
    int smoothed = 0;
};

class CountingDevice final : public QPaintDevice {
 public:
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine; }

    mutable CountingEngine engine;

 protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return scanAnimationGeometry.width();
            case PdmHeight:
                return scanAnimationGeometry.height();
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            case PdmDepth:
                return 32;
            default:
                return 1;
        }
    }
};

TEST_F(ScanAnimationTest, NeitherImageIsSmoothed) {
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    CountingDevice device;
    animation.render(&device, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(device.engine.drawn, 2);
    EXPECT_EQ(device.engine.smoothed, 0);
}

TEST_F(ScanAnimationTest, ContinuesFromWhereItWasStopped) {
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    animation.startAnimation();
    EXPECT_TRUE(animation.isAnimating());
    ASSERT_TRUE(QTest::qWaitFor([&] { return animation.clock().phase() > 0; }, 5000));
    animation.stopAnimation();
    EXPECT_FALSE(animation.isAnimating());
    EXPECT_FALSE(animation.clock().isRunning());
    const double stoppedAt = animation.clock().phase();
    EXPECT_GT(stoppedAt, 0);
    animation.startAnimation();
    EXPECT_GE(animation.clock().phase(), stoppedAt);
}

TEST_F(ScanAnimationTest, AFirstStartContinuesFromItsPhase) {
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    animation.clock().setPhase(0.5);
    animation.startAnimation();
    EXPECT_GE(animation.clock().phase(), 0.5);
}

TEST_F(ScanAnimationTest, DoesNotMoveWithReducedMotion) {
    setReducedMotion(true);
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    animation.startAnimation();
    EXPECT_TRUE(animation.isAnimating());
    EXPECT_FALSE(animation.clock().isRunning());
}

TEST_F(ScanAnimationTest, AHiddenOneDoesNotAnimate) {
    auto& animation = fixture_.add<ScanAnimation>(scanAnimationGeometry);
    animation.startAnimation();
    animation.hide();
    EXPECT_FALSE(animation.clock().isRunning());
    EXPECT_TRUE(animation.isAnimating());
    animation.show();
    EXPECT_TRUE(animation.clock().isRunning());
}

TEST_F(ScanAnimationTest, TheProgramsMotionSettingOverridesTheStyles) {
    setReducedMotion(true);
    EXPECT_TRUE(reducedMotion());
    setReducedMotion(false);
    EXPECT_FALSE(reducedMotion());
}

}  // namespace
}  // namespace tarvin
