#include "controls/pop_up_button.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace tarvin {
namespace {

constexpr QRect popUpButtonGeometry(20, 20, 132, 32);

class PopUpButtonTest : public testing::Test {
 protected:
    PopUpButtonTest() : button(fixture.add<PopUpButton>(popUpButtonGeometry)) {
        button.addTagged(QStringLiteral("Size"), 1);
        button.addTagged(QStringLiteral("Name"), 2);
        button.addTagged(QStringLiteral("Dimension"), 5);
    }

    ControlFixture fixture;
    PopUpButton& button;
};

TEST_F(PopUpButtonTest, ShowsTheFirstItemAtFirst) {
    EXPECT_EQ(button.currentText(), QStringLiteral("Size"));
    EXPECT_EQ(button.selectedTag(), 1);
}

TEST_F(PopUpButtonTest, SelectingByTagEmitsNoSignal) {
    const QSignalSpy chosen(&button, &QComboBox::activated);
    button.selectItemWithTag(5);
    EXPECT_EQ(button.currentText(), QStringLiteral("Dimension"));
    EXPECT_EQ(button.selectedTag(), 5);
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(PopUpButtonTest, AnUnknownTagChangesNothing) {
    button.selectItemWithTag(2);
    button.selectItemWithTag(4);
    EXPECT_EQ(button.selectedTag(), 2);
}

TEST_F(PopUpButtonTest, ReportsEachChoiceAlsoOfTheSameItem) {
    const QSignalSpy chosen(&button, &QComboBox::activated);
    for (const int row : {1, 1}) {
        button.showPopup();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(button.view()->window(), 20000));
        button.view()->setCurrentIndex(button.model()->index(row, 0));
        QTest::keyClick(button.view(), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !button.view()->isVisible(); }, 20000));
    }
    EXPECT_EQ(chosen.size(), 2);
    EXPECT_EQ(button.selectedTag(), 2);
}

TEST_F(PopUpButtonTest, TheArrowKeysChoose) {
    const QSignalSpy chosen(&button, &QComboBox::activated);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Down);
    EXPECT_EQ(button.selectedTag(), 2);
    EXPECT_EQ(chosen.size(), 1);
}

TEST_F(PopUpButtonTest, TheWheelChoosesNothing) {
    button.setFocus();
    QWheelEvent turn({10, 10}, button.mapToGlobal(QPointF(10, 10)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&button, &turn);
    EXPECT_EQ(button.selectedTag(), 1);
    EXPECT_FALSE(turn.isAccepted());
}

TEST_F(PopUpButtonTest, LooksLikeAQuietButton) {
    EXPECT_THAT(fixture.at(20, 36), IsRgb(107, 124, 135));
    EXPECT_THAT(fixture.at(22, 22), IsRgb(255, 255, 255));
    EXPECT_TRUE(fixture.holds(popUpButtonGeometry, QColor(20, 36, 46)));

    button.setEnabled(false);
    EXPECT_THAT(fixture.at(20, 36), IsRgb(197, 207, 213));
    EXPECT_THAT(fixture.at(22, 22), IsRgb(243, 246, 248));
    EXPECT_FALSE(fixture.holds(popUpButtonGeometry, QColor(20, 36, 46)));
}

TEST_F(PopUpButtonTest, HoveringMakesItFainter) {
    fixture.movePointerTo(button);
    // 0.7 of the outline over the page: the white background does not show through.
    EXPECT_THAT(fixture.at(20, 36), IsRgb(148, 161, 169));
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    fixture.movePointerAway();
    EXPECT_THAT(fixture.at(20, 36), IsRgb(107, 124, 135));
}

TEST_F(PopUpButtonTest, ItsClosedListUpdatesItsHoverState) {
    fixture.movePointerTo(button);
    const UntoldPointer untold;
    button.showPopup();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(button.view()->window(), 20000));
    fixture.loseThePointer();
    button.view()->setCurrentIndex(button.model()->index(1, 0));
    QTest::keyClick(button.view(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !button.view()->isVisible(); }, 20000));
    QCoreApplication::processEvents();
    EXPECT_THAT(fixture.at(20, 36), IsRgb(107, 124, 135));
    EXPECT_TRUE(fixture.holds(popUpButtonGeometry, QColor(20, 36, 46)));
}

TEST_F(PopUpButtonTest, AClosedMenuRepaintsIt) {
    QMenu menu;
    menu.addAction(QStringLiteral("Ascending"));
    fixture.movePointerTo(button);
    ASSERT_TRUE(fixture.isShownAt(20, 36, QColor(148, 161, 169)));
    const UntoldPointer untold;
    menu.popup(fixture.window().mapToGlobal(QPoint(150, 100)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu, 20000));
    fixture.loseThePointer();
    menu.close();
    EXPECT_TRUE(fixture.isShownAt(20, 36, QColor(107, 124, 135)));
}

TEST_F(PopUpButtonTest, EnablingUpdatesItsHoverState) {
    fixture.movePointerTo(button);
    fixture.loseThePointer();
    button.setEnabled(false);
    button.setEnabled(true);
    EXPECT_THAT(fixture.at(20, 36), IsRgb(107, 124, 135));
    fixture.movePointerTo(button);
    EXPECT_THAT(fixture.at(20, 36), IsRgb(148, 161, 169));
}

TEST_F(PopUpButtonTest, TheFocusRingSurroundsIt) {
    EXPECT_FALSE(button.showsFocusRing());
    button.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(button.showsFocusRing());
    EXPECT_THAT(fixture.at(16, 36), IsRgb(10, 58, 82));
    button.clearFocus();
    EXPECT_FALSE(button.showsFocusRing());
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(button.showsFocusRing());
}

TEST_F(PopUpButtonTest, IsWideEnoughForEachItem) {
    const int before = button.sizeHint().width();
    button.addTagged(QString(60, QLatin1Char('m')), 6);
    EXPECT_GT(button.sizeHint().width(), before + 60);
    EXPECT_EQ(button.sizeHint().height(), 32);
    EXPECT_EQ(button.minimumSizeHint(), button.sizeHint());
}

TEST_F(PopUpButtonTest, AssistiveTechnologyFindsItsNameAndItem) {
    button.setAccessibleName(QStringLiteral("Sort by"));
    button.selectItemWithTag(2);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::ComboBox);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("Sort by"));
    EXPECT_EQ(told->text(QAccessible::Value), QStringLiteral("Name"));
    EXPECT_TRUE(told->state().collapsed);
}

TEST_F(PopUpButtonTest, AssistiveTechnologyOpensAndClosesIt) {
    QAccessibleActionInterface* actions =
        QAccessible::queryAccessibleInterface(&button)->actionInterface();
    ASSERT_NE(actions, nullptr);
    const QString& open = QAccessibleActionInterface::showMenuAction();
    EXPECT_EQ(actions->actionNames(),
              (QStringList{open, QAccessibleActionInterface::setFocusAction()}));
    actions->doAction(open);
    EXPECT_TRUE(button.view()->isVisible());
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&button)->state().expanded);
    actions->doAction(open);
    EXPECT_FALSE(button.view()->isVisible());

    button.setEnabled(false);
    actions->doAction(open);
    EXPECT_FALSE(button.view()->isVisible());
}

}  // namespace
}  // namespace tarvin
