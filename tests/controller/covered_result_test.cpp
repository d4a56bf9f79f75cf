#include "controller/deletion_fixture.h"
#include "controls/pop_up_button.h"
#include "controls/tab_button.h"
#include "controls/toggle_button.h"
#include "interface/result_panels.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QMenu>

namespace tarvin {
namespace {

/// A result under a panel, and actions without mouse or keyboard, as by assistive technology.
class CoveredResult : public DeletionFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    /// Presses every button of the bar and the screen.
    void pressEverything() {
        int pressed = 0;
        for (const char* area : {"topBar", "resultScreen"}) {
            for (auto* button : control(area)->findChildren<QAbstractButton*>()) {
                button->click();
                ++pressed;
            }
        }
        EXPECT_GT(pressed, 15);
        QAccessibleInterface* popUp =
            QAccessible::queryAccessibleInterface(window().results->sortPopupBtn);
        popUp->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    }

    /// The screen is unchanged.
    void expectUntouched(const char* marked) {
        EXPECT_EQ(screen(), QStringLiteral("4"));
        EXPECT_FALSE(isEnabled("allButton"));
        EXPECT_TRUE(isEnabled("imageButton"));
        EXPECT_EQ(textOf("selectedCount"), marked);
        EXPECT_TRUE(window().results->sortBtn->isChecked());
        EXPECT_TRUE(window().results->asscendingBtn->isChecked());
        EXPECT_FALSE(window().results->sortPopupBtn->view()->isVisible());
        EXPECT_FALSE(window().helpMenu->isVisible());
        EXPECT_EQ(covers(), 1);
        EXPECT_EQ(alerts.shown.size(), 0U);
    }
};

TEST_F(CoveredResult, IsLeftAloneDuringADeletion) {
    click("markAll");
    deleteAndHoldAt("a2.jpg");
    pressEverything();
    expectUntouched("Marked Duplicate Files: 4");
    EXPECT_TRUE(delegate->deletion().isRunning());
    EXPECT_FALSE(window().exceptionWindow->isVisible());
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
}

TEST_F(CoveredResult, KeepsItsSelectionDuringADeletion) {
    select(0, 1);
    click("markAll");
    deleteAndHoldAt("a2.jpg");
    QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(&outline());
    ASSERT_NE(rows, nullptr);
    ASSERT_NE(rows->tableInterface(), nullptr);
    EXPECT_FALSE(rows->tableInterface()->selectRow(1));
    EXPECT_EQ(outline().selectedSet(), tree().indexOfSet(0, 1));
    Q_EMIT outline().checkBoxClicked(tree().indexOfSet(0, 0));
    Q_EMIT table().tableCheckBoxClicked(0);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    barrier.open();
    ASSERT_TRUE(reported());
    click("scanInforOKBtn");
    select(0, 0);
    EXPECT_EQ(outline().selectedSet(), tree().indexOfSet(0, 0));
}

TEST_F(CoveredResult, IsLeftAloneUnderTheQuestionOfExceptions) {
    click("markAll");
    click("addEceptionBtn");
    pressEverything();
    expectUntouched("Marked Duplicate Files: 4");
    EXPECT_TRUE(window().exceptionWindow->isVisible());
    EXPECT_FALSE(delegate->deletion().isRunning());
}

TEST_F(CoveredResult, ActsAgainOnceThePanelIsGone) {
    click("markAll");
    click("addEceptionBtn");
    click("excCancelBtn");
    window().results->unMarkAll->click();
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    window().results->asscendingBtn->click();
    EXPECT_FALSE(window().results->asscendingBtn->isChecked());
    QAccessible::queryAccessibleInterface(window().results->sortPopupBtn)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(window().results->sortPopupBtn->view()->isVisible());
    window().results->sortPopupBtn->hidePopup();
    window().results->imageButton->click();
    EXPECT_FALSE(isEnabled("imageButton"));
}

}  // namespace
}  // namespace tarvin
