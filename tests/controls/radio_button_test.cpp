#include "controls/radio_button.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

namespace tarvin {
namespace {

class RadioButtonTest : public testing::Test {
 protected:
    ControlFixture fixture;
    RadioButton& one = fixture.add<RadioButton>(QRect(20, 20, 200, 24), QStringLiteral("Newest"));
    RadioButton& two = fixture.add<RadioButton>(QRect(20, 44, 200, 24), QStringLiteral("Oldest"));
};

TEST_F(RadioButtonTest, TheChosenOneHasADotAndTheOtherNone) {
    one.setChecked(true);
    EXPECT_THAT(fixture.at(33, 32), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(33, 56), IsRgb(255, 255, 255));
    two.setChecked(true);
    EXPECT_FALSE(one.isChecked());
    EXPECT_THAT(fixture.at(33, 32), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture.at(33, 56), IsRgb(14, 116, 138));
}

TEST_F(RadioButtonTest, AClickOnCircleOrLabelChooses) {
    QTest::mouseClick(&two, Qt::LeftButton, {}, QPoint(8, 12));
    EXPECT_TRUE(two.isChecked());
    QTest::mouseClick(&one, Qt::LeftButton, {}, QPoint(40, 12));
    EXPECT_TRUE(one.isChecked());
    // Beside the label there is nothing to click.
    QTest::mouseClick(&two, Qt::LeftButton, {}, QPoint(190, 12));
    EXPECT_FALSE(two.isChecked());
}

TEST_F(RadioButtonTest, ArrowKeysChooseTheNext) {
    one.setChecked(true);
    one.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&one, Qt::Key_Down);
    EXPECT_TRUE(two.isChecked());
    EXPECT_TRUE(two.hasFocus());
    QTest::keyClick(&two, Qt::Key_Up);
    EXPECT_TRUE(one.isChecked());
}

TEST_F(RadioButtonTest, TheRingGoesAroundCircleAndLabel) {
    one.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(one.showsFocusRing());
    EXPECT_THAT(fixture.at(20, 32), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture.at(20 + one.sizeHint().width() - 1, 32), IsRgb(10, 58, 82));
    two.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(one.showsFocusRing());
}

TEST_F(RadioButtonTest, AssistiveTechnologySeesARadioButton) {
    const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&one);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::RadioButton);
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("Newest"));
}

}  // namespace
}  // namespace tarvin
