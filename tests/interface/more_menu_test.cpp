#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "interface/home_screen.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/shown_window.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAction>
#include <QImage>
#include <QMenu>
#include <QSignalSpy>

namespace tarvin {

namespace {

class MoreMenuTest : public ShownWindow {
 protected:
    [[nodiscard]] bool opens() {
        return QTest::qWaitFor([this] { return window.moreMenu->isVisible(); }, 20000);
    }

    /// The geometry of the menu in the content of the window.
    [[nodiscard]] QRect menuGeometry() const {
        return {window.mapFromGlobal(window.moreMenu->pos()), window.moreMenu->size()};
    }

    const QSignalSpy chosen{window.putBackItem, &QAction::triggered};
};

TEST_F(MoreMenuTest, OpensBelowItsButton) {
    EXPECT_EQ(geometryOf(window.buttonMore), QRect(895, 8, 29, 29));
    // The screen of the offscreen platform is narrower than the window.
    window.move(-500, 0);
    QTest::mouseClick(window.buttonMore, Qt::LeftButton);
    ASSERT_TRUE(opens());
    EXPECT_EQ(menuGeometry().right() + 1, 924);
    EXPECT_EQ(menuGeometry().top(), 41);
    EXPECT_GE(menuGeometry().width(), 232);
    EXPECT_TRUE(window.buttonMore->isOpen());
    QTest::keyClick(window.moreMenu, Qt::Key_Escape);
    EXPECT_FALSE(window.moreMenu->isVisible());
    EXPECT_FALSE(window.buttonMore->isOpen());
}

TEST_F(MoreMenuTest, EscapeClosesItAndLeavesTheFocusOnTheButtonThatTheMousePressed) {
    window.selectTabViewItem(QStringLiteral("4"));
    window.results->resultTable->setFocus();
    QTest::mouseClick(window.buttonMore, Qt::LeftButton);
    ASSERT_TRUE(opens());
    QTest::keyClick(window.moreMenu, Qt::Key_Escape);
    EXPECT_FALSE(window.moreMenu->isVisible());
    EXPECT_EQ(window.focusWidget(), window.buttonMore);
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(MoreMenuTest, FollowsTheRightEdge) {
    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(window.buttonMore), QRect(895 + 384, 8, 29, 29));
}

TEST_F(MoreMenuTest, HasItsItems) {
    EXPECT_EQ(window.moreMenu->actions(),
              (QList<QAction*>{window.markByRuleItem, window.manageExceptionsItem,
                               window.exportResultsItem, window.resultItemsEnd, window.putBackItem,
                               window.locationItemsBegin, window.skipHiddenItem,
                               window.rememberScansItem, window.backgroundItem}));
    EXPECT_EQ(window.manageExceptionsItem->text(), QStringLiteral("Manage Exceptions…"));
    EXPECT_TRUE(window.manageExceptionsItem->isEnabled());
    EXPECT_TRUE(window.manageExceptionsItem->shortcut().isEmpty());
    EXPECT_EQ(window.markByRuleItem->text(), QStringLiteral("Mark by Rule…"));
    EXPECT_EQ(window.exportResultsItem->text(), QStringLiteral("Export Results…"));
    EXPECT_TRUE(window.exportResultsItem->shortcut().isEmpty());
    EXPECT_EQ(window.putBackItem->text(), QStringLiteral("Put Back Last Clean-up…"));
    EXPECT_TRUE(window.putBackItem->isEnabled());
    // The item shows no key.
    EXPECT_TRUE(window.putBackItem->shortcut().isEmpty());
}

TEST_F(MoreMenuTest, MarkByRuleIsOnTheResultScreenOnly) {
    for (const char* screen : {"1", "2", "5", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        EXPECT_EQ(window.markByRuleItem->isVisible(), std::string(screen) == "4") << screen;
    }
}

TEST_F(MoreMenuTest, ResultsAreExportedOnlyOnTheirScreen) {
    const QSignalSpy exported(window.exportResultsItem, &QAction::triggered);
    for (const char* screen : {"1", "2", "5"}) {
        window.selectTabViewItem(QLatin1String(screen));
        EXPECT_FALSE(window.exportResultsItem->isVisible()) << screen;
        EXPECT_FALSE(window.resultItemsEnd->isVisible()) << screen;
        QTest::keyClick(window.focusWidget(), Qt::Key_E, Qt::ControlModifier);
    }
    EXPECT_EQ(exported.size(), 0);
    window.selectTabViewItem(QStringLiteral("4"));
    EXPECT_TRUE(window.exportResultsItem->isVisible());
    EXPECT_TRUE(window.resultItemsEnd->isVisible());
    QTest::keyClick(window.focusWidget(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(exported.size(), 1);
}

TEST_F(MoreMenuTest, HasChoicesOnTheScreenOfTheLocationsOnly) {
    EXPECT_EQ(window.skipHiddenItem->text(), QStringLiteral("Skip Hidden Files and Folders"));
    EXPECT_EQ(window.rememberScansItem->text(), QStringLiteral("Remember Scans"));
    EXPECT_EQ(window.backgroundItem->text(), QStringLiteral("Scan in the Background"));
    for (const QAction* const choice :
         {window.skipHiddenItem, window.rememberScansItem, window.backgroundItem}) {
        EXPECT_TRUE(choice->isCheckable());
        EXPECT_FALSE(choice->isChecked());
    }
    for (const char* screen : {"1", "2", "5", "4", "2"}) {
        window.selectTabViewItem(QLatin1String(screen));
        const bool isOnLocations = std::string(screen) == "2";
        EXPECT_EQ(window.skipHiddenItem->isVisible(), isOnLocations) << screen;
        EXPECT_EQ(window.rememberScansItem->isVisible(), isOnLocations) << screen;
        EXPECT_EQ(window.backgroundItem->isVisible(), isOnLocations) << screen;
        EXPECT_EQ(window.locationItemsBegin->isVisible(), isOnLocations) << screen;
    }
}

TEST_F(MoreMenuTest, ShowsACheckMarkBesideACheckedChoice) {
    window.selectTabViewItem(QStringLiteral("2"));
    const auto inkOfItem = [this] {
        const QRect item = window.moreMenu->actionGeometry(window.skipHiddenItem);
        const QImage image =
            window.moreMenu->grab(item).toImage().convertToFormat(QImage::Format_RGB32);
        int dark = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
            }
        }
        return dark;
    };
    // The items have their positions once the menu has been shown.
    window.buttonMore->click();
    ASSERT_TRUE(opens());
    const int without = inkOfItem();
    EXPECT_GT(without, 0);
    window.skipHiddenItem->setChecked(true);
    // Of 18 x 18 pixels; a missing image would add none.
    EXPECT_GT(inkOfItem(), without + 10);
}

TEST_F(MoreMenuTest, OpensByEveryKeyOnItsButton) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Down}) {
        window.buttonMore->setFocus();
        QTest::keyClick(window.buttonMore, key);
        ASSERT_TRUE(opens()) << key;
        QTest::keyClick(window.moreMenu, Qt::Key_Escape);
        EXPECT_EQ(window.focusWidget(), window.buttonMore);
    }
}

TEST_F(MoreMenuTest, AHeldKeyOnItsButtonOpensItOnce) {
    const QSignalSpy clicks(window.buttonMore, &QAbstractButton::clicked);
    for (const int key : {Qt::Key_Down, Qt::Key_Return}) {
        hold(*window.buttonMore, key);
        window.moreMenu->close();
    }
    EXPECT_EQ(clicks.size(), 2);
}

TEST_F(MoreMenuTest, TheListGetsTheFocusWhenItIsDisabledWithHelp) {
    const QVector<QPair<const char*, QWidget*>> lists = {{"2", window.locations->tableExact},
                                                         {"4", window.results->resultTable}};
    for (const auto& [screen, list] : lists) {
        for (QWidget* button : QVector<QWidget*>{window.buttonMore, window.buttonHelpManual}) {
            window.selectTabViewItem(QLatin1String(screen));
            button->setFocus();
            window.buttonHelpManual->setEnabled(false);
            EXPECT_EQ(window.focusWidget(), list) << screen;
            window.buttonHelpManual->setEnabled(true);
        }
    }
}

TEST_F(MoreMenuTest, F10OpensItAndLeavesTheFocusOnTheButton) {
    for (const char* screen : {"1", "2", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        QTest::keyClick(window.focusWidget(), Qt::Key_F10);
        ASSERT_TRUE(opens()) << screen;
        QTest::keyClick(window.moreMenu, Qt::Key_Escape);
        EXPECT_EQ(window.focusWidget(), window.buttonMore);
    }
}

TEST_F(MoreMenuTest, CtrlZPutsBackOnEveryScreenButTheProgress) {
    for (const char* screen : {"1", "2", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        QTest::keyClick(window.focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(chosen.size(), 3);
    window.buttonHelpManual->setEnabled(false);
    window.selectTabViewItem(QStringLiteral("5"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_F10);
    EXPECT_EQ(chosen.size(), 3);
    EXPECT_FALSE(window.moreMenu->isVisible());
}

TEST_F(MoreMenuTest, CtrlShiftEManagesExceptionsOnEveryScreenButTheProgress) {
    const QSignalSpy managed(window.manageExceptionsItem, &QAction::triggered);
    for (const char* screen : {"1", "2", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        QTest::keyClick(window.focusWidget(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    }
    EXPECT_EQ(managed.size(), 3);
    window.buttonHelpManual->setEnabled(false);
    window.selectTabViewItem(QStringLiteral("5"));
    QTest::keyClick(window.focusWidget(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(managed.size(), 3);
}

TEST_F(MoreMenuTest, IsDisabledWheneverHelpIs) {
    window.buttonHelpManual->setEnabled(false);
    EXPECT_FALSE(window.buttonMore->isEnabled());
    EXPECT_EQ(window.buttonMore->disabledOpacity(), 0.45);
    window.buttonHelpManual->setEnabled(true);
    EXPECT_TRUE(window.buttonMore->isEnabled());
}

TEST_F(MoreMenuTest, ItsKeysAreDisabledWhileAPanelIsShown) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.showAbout();
    QTest::keyClick(window.focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_F10);
    EXPECT_EQ(chosen.size(), 0);
    EXPECT_FALSE(window.moreMenu->isVisible());
}

TEST_F(MoreMenuTest, IsAButtonWithAMenuForAssistiveTechnology) {
    EXPECT_EQ(window.buttonMore->toolTip(), QStringLiteral("More"));
    QAccessibleInterface* button = QAccessible::queryAccessibleInterface(window.buttonMore);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(QAccessible::Name), QStringLiteral("More"));
    EXPECT_EQ(button->role(), QAccessible::ButtonMenu);
    EXPECT_TRUE(button->state().hasPopup);
    EXPECT_TRUE(button->state().collapsed);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(opens());
    EXPECT_TRUE(button->state().expanded);
    window.moreMenu->close();
}

TEST_F(MoreMenuTest, NoTitleIsBelowTheButton) {
    for (const char* name :
         {"homeScreenTitle", "locationScreenTitle", "progressTypeText", "resultScreenTitle"}) {
        auto* title = control<ElidedLabel>(name);
        EXPECT_EQ(title->geometry(), QRect(51, 12, 832, 21)) << name;
        title->setText(QString(300, QLatin1Char('m')));
        EXPECT_TRUE(title->shownText().endsWith(QChar(0x2026))) << name;
    }
}

}  // namespace

}  // namespace tarvin
