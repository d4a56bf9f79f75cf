#include "interface/rule_panel.h"

#include "controls/control_group.h"
#include "controls/elided_label.h"
#include "controls/glyph_button.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/radio_button.h"
#include "interface/folder_list.h"
#include "interface/shown_window.h"
#include "support/on_screen.h"

#include <QLabel>
#include <QSignalSpy>
#include <cstdlib>

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

/// The folders are called by a full block, so that a pixel has the colour of the text.
class RuleListsTest : public RulePanelTest {
 protected:
    RuleListsTest() {
        for (int row = 0; row < folders.rowCount(); ++row) {
            folders.item(row)->setText(QString(8, QChar(0x2588)));
        }
        panel.ruleFolder->setChecked(true);
        QCoreApplication::sendPostedEvents();
    }

    /// The colour of the text of a row.
    [[nodiscard]] QColor textOf(const QAbstractItemView& list, int row) const {
        const QRect area = list.visualRect(folders.index(row, 0));
        return onScreen(*list.viewport()).pixelColor(90, area.center().y());
    }
    /// The colour of a row at its left edge.
    [[nodiscard]] QColor backgroundOf(const QAbstractItemView& list, int row) const {
        const QRect area = list.visualRect(folders.index(row, 0));
        return onScreen(*list.viewport()).pixelColor(4, area.center().y());
    }
    /// Whether the background of a row gets a colour.
    [[nodiscard]] bool becomes(const QAbstractItemView& list, int row, const QColor& color) const {
        return QTest::qWaitFor([&] { return backgroundOf(list, row) == color; }, 20000);
    }
    [[nodiscard]] bool textBecomes(const QAbstractItemView& list, int row,
                                   const QColor& color) const {
        return QTest::qWaitFor([&] { return isNear(textOf(list, row), color); }, 20000);
    }
    static bool isNear(const QColor& seen, const QColor& wanted) {
        return std::abs(seen.red() - wanted.red()) <= 2 &&
               std::abs(seen.green() - wanted.green()) <= 2 &&
               std::abs(seen.blue() - wanted.blue()) <= 2;
    }
    /// A colour at the opacity of what is disabled, 0.45, on white.
    static QColor disabled(const QColor& color) {
        const auto mix = [](int channel) { return qRound(channel * 0.45 + 255 * 0.55); };
        return {mix(color.red()), mix(color.green()), mix(color.blue())};
    }
};

TEST_F(RuleListsTest, AFolderThatIsGoneIsMuted) {
    folders.item(1)->setData(true, FolderList::goneRole);
    EXPECT_TRUE(textBecomes(*panel.preferredList, 1, look::muted));
    EXPECT_EQ(textOf(*panel.preferredList, 0), look::ink);
    folders.item(1)->setData(false, FolderList::goneRole);
    EXPECT_TRUE(textBecomes(*panel.preferredList, 1, look::ink));
}

TEST_F(RuleListsTest, ADisabledListIsPaler) {
    folders.item(1)->setData(true, FolderList::goneRole);
    panel.preferredList->setEnabled(false);
    EXPECT_TRUE(textBecomes(*panel.preferredList, 0, disabled(look::ink)));
    EXPECT_TRUE(textBecomes(*panel.preferredList, 1, disabled(look::muted)));
    panel.preferredList->setEnabled(true);
    EXPECT_TRUE(textBecomes(*panel.preferredList, 0, look::ink));
}

TEST_F(RuleListsTest, TheTextOfAnEmptyListIsMutedAndPalerIfDisabled) {
    FolderList& list = *panel.protectedList;
    list.setEmptyText(QString(8, QChar(0x2588)));
    const auto color = [&] { return onScreen(*list.viewport()).pixelColor(40, 13); };
    const auto becomesColor = [&](const QColor& wanted) {
        return QTest::qWaitFor([&] { return isNear(color(), wanted); }, 20000);
    };
    EXPECT_TRUE(becomesColor(look::muted));
    list.setEnabled(false);
    EXPECT_TRUE(becomesColor(disabled(look::muted)));
    // Not behind the rows of a list that has some.
    folders.item(0)->setText(QString());
    list.setModel(&folders);
    EXPECT_TRUE(becomesColor(look::surface));
}

TEST_F(RuleListsTest, TheRowBelowThePointerIsTinted) {
    FolderList& list = *panel.preferredList;
    const auto pointAt = [&](const QWidget& widget, const QPoint& point) {
        QTest::mouseMove(window.windowHandle(), widget.mapTo(&window, point));
    };
    // Since the rows were painted.
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.viewport()->hasMouseTracking(); }, 20000));
    pointAt(*list.viewport(), list.visualRect(folders.index(1, 0)).center());
    EXPECT_TRUE(becomes(list, 1, look::rowHover));
    EXPECT_EQ(backgroundOf(list, 0), look::surface);
    pointAt(*list.viewport(), {60, 90});  // below the rows
    EXPECT_TRUE(becomes(list, 1, look::surface));
    pointAt(*list.viewport(), list.visualRect(folders.index(0, 0)).center());
    EXPECT_TRUE(becomes(list, 0, look::rowHover));
    pointAt(*panel.preferredAdd, QPoint(5, 5));
    EXPECT_TRUE(becomes(list, 0, look::surface));
}

}  // namespace

}  // namespace tarvin
