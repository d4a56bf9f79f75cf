#include "controls/toggle_button.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace tarvin {
namespace {

constexpr QRect toggleButtonGeometry(20, 20, 32, 32);

class ToggleButtonTest : public testing::Test {
 protected:
    ToggleButtonTest()
        : toggle(fixture.add<ToggleButton>(toggleButtonGeometry, QStringLiteral("ui/ascending"),
                                           QStringLiteral("ui/descending"))) {}

    ControlFixture fixture;
    ToggleButton& toggle;
};

TEST_F(ToggleButtonTest, OffItIsWhiteWithAThinLine) {
    EXPECT_FALSE(toggle.isChecked());
    EXPECT_THAT(fixture.at(20, 36), IsRgb(107, 124, 135));
    EXPECT_THAT(fixture.at(22, 22), IsRgb(255, 255, 255));
}

TEST_F(ToggleButtonTest, OnItIsTintedWithATealLine) {
    toggle.setChecked(true);
    EXPECT_THAT(fixture.at(20, 36), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(22, 22), IsRgb(230, 244, 247));
}

TEST_F(ToggleButtonTest, TheIconFollowsTheState) {
    EXPECT_EQ(toggle.glyph(), QStringLiteral("ui/descending"));
    const QImage off = fixture.screenshot(toggleButtonGeometry);
    toggle.setChecked(true);
    EXPECT_EQ(toggle.glyph(), QStringLiteral("ui/ascending"));
    // The point of the arrow is below when off and above when on.
    const auto inkIn = [](const QImage& image, int fromRow, int toRow) {
        int dark = 0;
        for (int y = fromRow; y < toRow; ++y) {
            for (int x = image.width() / 4; x < image.width() * 3 / 4; ++x) {
                dark += qGray(image.pixel(x, y)) < 120 ? 1 : 0;
            }
        }
        return dark;
    };
    const QImage on = fixture.screenshot(toggleButtonGeometry);
    const int half = on.height() / 2;
    EXPECT_GT(inkIn(off, half, on.height() - 4), inkIn(off, 4, half));
    EXPECT_LT(inkIn(on, half, on.height() - 4), inkIn(on, 4, half));
}

TEST_F(ToggleButtonTest, AClickTogglesIt) {
    const QSignalSpy clicks(&toggle, &QAbstractButton::clicked);
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_TRUE(toggle.isChecked());
    toggle.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_FALSE(toggle.isChecked());
    EXPECT_EQ(clicks.size(), 2);
}

TEST_F(ToggleButtonTest, DisabledItIsGray) {
    toggle.setChecked(true);
    toggle.setEnabled(false);
    EXPECT_THAT(fixture.at(20, 36), IsRgb(197, 207, 213));
    EXPECT_FALSE(fixture.holds(toggleButtonGeometry, QColor(20, 36, 46)));
}

TEST_F(ToggleButtonTest, IsASquareOf32) {
    EXPECT_EQ(toggle.sizeHint(), QSize(32, 32));
}

}  // namespace
}  // namespace tarvin
