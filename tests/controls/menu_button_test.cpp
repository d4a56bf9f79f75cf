#include "controls/menu_button.h"

#include "controls/control_fixture.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

namespace tarvin {
namespace {

class MenuButtonTest : public testing::Test {
 protected:
    MenuButtonTest()
        : button(fixture.add<MenuButton>(QRect(20, 20, 29, 29), QStringLiteral("ui/more"), &menu)) {
        menu.addAction(QStringLiteral("Help"));
    }

    QAccessibleActionInterface* actions() {
        return QAccessible::queryAccessibleInterface(&button)->actionInterface();
    }

    QMenu menu;
    ControlFixture fixture{look::topBar};
    MenuButton& button;
};

TEST_F(MenuButtonTest, LooksPressedWhileItsMenuIsOpen) {
    ASSERT_TRUE(fixture.isShownAt(22, 22, QColor(31, 100, 134)));
    menu.popup(fixture.window().mapToGlobal(QPoint(150, 100)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu, 20'000));
    EXPECT_TRUE(button.isOpen());
    EXPECT_TRUE(fixture.isShownAt(22, 22, QColor(71, 128, 156)));
    menu.close();
    EXPECT_FALSE(button.isOpen());
    EXPECT_TRUE(fixture.isShownAt(22, 22, QColor(31, 100, 134)));
}

TEST_F(MenuButtonTest, AssistiveTechnologyPressesAndFocusesIt) {
    ASSERT_NE(actions(), nullptr);
    const QString& press = QAccessibleActionInterface::pressAction();
    const QString& focus = QAccessibleActionInterface::setFocusAction();
    EXPECT_EQ(actions()->actionNames(), (QStringList{press, focus}));
    const QSignalSpy clicks(&button, &QAbstractButton::clicked);
    actions()->doAction(press);
    EXPECT_EQ(clicks.size(), 1);
    ASSERT_FALSE(button.hasFocus());
    actions()->doAction(focus);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(clicks.size(), 1);
}

}  // namespace
}  // namespace tarvin
