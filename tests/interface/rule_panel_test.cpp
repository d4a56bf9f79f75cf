#include "interface/rule_panel.h"

#include "controls/elided_label.h"
#include "controls/glyph_button.h"
#include "controls/hover_button.h"
#include "controls/radio_button.h"
#include "interface/folder_list.h"
#include "interface/shown_window.h"

#include <QLabel>
#include <QSignalSpy>

namespace tarvin {

namespace {

class RulePanelTest : public ShownWindow {
 protected:
    RulePanelTest() {
        for (const char* path : {"/home/anna/Pictures", "/home/anna/Documents"}) {
            folders.appendRow(new QStandardItem(QLatin1String(path)));
        }
        panel.preferredList->setModel(&folders);
        panel.protectedList->setModel(&none);
        window.showOver(&panel, RulePanel::designGeometry);
        QCoreApplication::sendPostedEvents();
    }
    ~RulePanelTest() override {
        panel.preferredList->setModel(nullptr);
        panel.protectedList->setModel(nullptr);
    }

    QStandardItemModel folders;
    QStandardItemModel none;
    RulePanel& panel = *window.markByRuleWindow;
};

TEST_F(RulePanelTest, HasTheGeometryOfTheDesign) {
    EXPECT_EQ(geometryOf(&panel), QRect(112, 97, 792, 412));
    EXPECT_EQ(geometryOf(control("ruleHeading")), QRect(136, 153, 410, 18));
    // The circle is 4 to the right of the left edge.
    EXPECT_EQ(geometryOf(panel.ruleFirst), QRect(132, 173, 414, 24));
    EXPECT_EQ(geometryOf(panel.ruleFolder), QRect(132, 293, 414, 24));
    EXPECT_EQ(geometryOf(control("preferredListFrame")), QRect(162, 323, 262, 106));
    EXPECT_EQ(geometryOf(panel.preferredAdd), QRect(432, 323, 120, 32));
    EXPECT_EQ(geometryOf(panel.preferredRemove), QRect(432, 360, 120, 32));
    EXPECT_EQ(geometryOf(panel.preferredUp), QRect(432, 397, 56, 32));
    EXPECT_EQ(geometryOf(panel.preferredDown), QRect(496, 397, 56, 32));
    EXPECT_EQ(geometryOf(control("ruleDivider")), QRect(576, 155, 1, 274));
    EXPECT_EQ(geometryOf(control("protectedHeading")), QRect(600, 153, 280, 18));
    EXPECT_EQ(geometryOf(control("protectedListFrame")), QRect(600, 179, 280, 210));
    EXPECT_EQ(geometryOf(panel.protectedAdd), QRect(600, 397, 92, 32));
    EXPECT_EQ(geometryOf(panel.protectedRemove), QRect(700, 397, 92, 32));
    EXPECT_EQ(geometryOf(panel.ruleOutcome), QRect(136, 459, 490, 19));
    EXPECT_EQ(geometryOf(panel.ruleBlocked), QRect(136, 478, 490, 19));
    EXPECT_EQ(geometryOf(panel.ruleCancel), QRect(664, 461, 104, 34));
    EXPECT_EQ(geometryOf(panel.ruleMark), QRect(776, 461, 104, 34));
    EXPECT_EQ(panel.preferredList->visualRect(folders.index(1, 0)).height(), 26);
    resizeTo({1216, 631});
    EXPECT_EQ(geometryOf(&panel), QRect(212, 147, 792, 412));
}

TEST_F(RulePanelTest, HasItsTexts) {
    EXPECT_EQ(panel.header->text(), QStringLiteral("Mark by Rule"));
    QStringList rules;
    for (const RadioButton* rule : panel.rules()) {
        rules.push_back(rule->text());
    }
    EXPECT_EQ(rules.join(QLatin1Char('|')).toStdString(),
              "The first found|The newest|The oldest|The shortest path|The longest path|"
              "The copy in a preferred folder");
    EXPECT_EQ(control<QLabel>("ruleHeading")->text(), QStringLiteral("Keep in each set:"));
    EXPECT_EQ(control<QLabel>("protectedHeading")->text(), QStringLiteral("Never mark files in:"));
    EXPECT_EQ(panel.preferredAdd->text(), QStringLiteral("Add…"));
    EXPECT_EQ(panel.preferredRemove->text(), QStringLiteral("Remove"));
    EXPECT_EQ(panel.protectedAdd->text(), QStringLiteral("Add…"));
    EXPECT_EQ(panel.protectedRemove->text(), QStringLiteral("Remove"));
    EXPECT_EQ(panel.ruleCancel->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(panel.ruleMark->text(), QStringLiteral("Mark"));
    EXPECT_EQ(panel.preferredList->emptyText(),
              QStringLiteral("Add the folders whose copies stay."));
    EXPECT_EQ(panel.protectedList->emptyText(), QStringLiteral("No folders"));
    EXPECT_EQ(panel.preferredUp->toolTip(), QStringLiteral("Move Up"));
    EXPECT_EQ(panel.preferredDown->toolTip(), QStringLiteral("Move Down"));
    EXPECT_EQ(panel.ruleMark->fill(), QColor(14, 116, 138));
}

TEST_F(RulePanelTest, HasItsAccessibleNames) {
    QStringList names;
    for (const QWidget* widget :
         QVector<QWidget*>{panel.ruleGroup, panel.preferredList, panel.protectedList,
                           panel.preferredAdd, panel.preferredRemove, panel.preferredUp,
                           panel.preferredDown, panel.protectedAdd, panel.protectedRemove}) {
        names.push_back(widget->accessibleName());
    }
    EXPECT_EQ(names.join(QLatin1Char('|')).toStdString(),
              "Keep in each set|Preferred folders|Never mark files in|Add preferred folder|"
              "Remove preferred folder|Move Up|Move Down|Add protected folder|"
              "Remove protected folder");
}

TEST_F(RulePanelTest, TabReachesOnlyTheChosenRule) {
    panel.ruleOldest->setChecked(true);
    panel.keyboard().begin();
    QStringList names;
    for (int stop = 0; stop < 12; ++stop) {
        names.push_back(window.focusWidget()->objectName());
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names.join(QLatin1Char(' ')).toStdString(),
              "ruleOldest preferredList preferredAdd preferredRemove preferredUp preferredDown "
              "protectedList protectedAdd protectedRemove ruleCancel ruleMark ruleOldest");
}

TEST_F(RulePanelTest, ArrowsChooseAndReturnMarks) {
    const QSignalSpy marked(panel.ruleMark, &QAbstractButton::clicked);
    panel.keyboard().begin();
    EXPECT_EQ(window.focusWidget(), panel.ruleFirst);
    QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(panel.ruleNewest->isChecked());
    EXPECT_EQ(window.focusWidget(), panel.ruleNewest);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(marked.size(), 1);
}

TEST_F(RulePanelTest, EscapeCancels) {
    const QSignalSpy cancelled(panel.ruleCancel, &QAbstractButton::clicked);
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    panel.preferredList->setFocus();
    QTest::keyClick(panel.preferredList, Qt::Key_Escape);
    EXPECT_EQ(cancelled.size(), 2);
}

TEST_F(RulePanelTest, KeysInAListRemoveAndMoveButDoNotMark) {
    const QSignalSpy removed(panel.preferredList, &FolderList::removePressed);
    QSignalSpy moved(panel.preferredList, &FolderList::movePressed);
    const QSignalSpy marked(panel.ruleMark, &QAbstractButton::clicked);
    panel.preferredList->setFocus();
    QTest::keyClick(panel.preferredList, Qt::Key_Return);
    QTest::keyClick(panel.preferredList, Qt::Key_Delete);
    QTest::keyClick(panel.preferredList, Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(panel.preferredList, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(marked.size(), 0);
    EXPECT_EQ(removed.size(), 1);
    ASSERT_EQ(moved.size(), 2);
    EXPECT_EQ(moved[0][0].toInt(), -1);
    EXPECT_EQ(moved[1][0].toInt(), 1);
}

}  // namespace

}  // namespace tarvin
