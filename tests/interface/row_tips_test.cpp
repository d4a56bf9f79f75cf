#include "interface/folder_list.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/result_screen.h"
#include "interface/rule_panel.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"

#include <QToolTip>

namespace tarvin {

namespace {

/// The tool tips of the current row by Ctrl+F1.
class RowTipsTest : public ShownWindow {
 protected:
    ~RowTipsTest() override {
        window.results->OView2->setModel(nullptr);
        window.results->resultTable->setModel(nullptr);
        window.locations->tableExact->setModel(nullptr);
        window.keptWindow->table->setModel(nullptr);
        window.markByRuleWindow->protectedList->setModel(nullptr);
        QToolTip::hideText();
    }

    /// The list of a panel, with one short and one long text in each row.
    ListTable& showKept(const QStringList& longTexts) {
        for (const QString& text : longTexts) {
            kept.appendRow({new QStandardItem(QStringLiteral("short")), new QStandardItem(text),
                            new QStandardItem(text + QLatin1Char('!'))});
        }
        ListTable& table = *window.keptWindow->table;
        table.setModel(&kept);
        window.showOver(window.keptWindow, ListPanel::designGeometry);
        QCoreApplication::sendPostedEvents();
        table.setFocus();
        table.setCurrentIndex(kept.index(0, 0));
        return table;
    }

    static void press(QWidget& list) { QTest::keyClick(&list, Qt::Key_F1, Qt::ControlModifier); }
    [[nodiscard]] static bool disappears() {
        return QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 20000);
    }
    static QString longText(char character) { return QString(60, QLatin1Char(character)); }

    QStandardItemModel kept;
    DrawnResult result{false};
    SomeLocations locations;
    QStandardItemModel folders;
};

TEST_F(RowTipsTest, ShowWhatIsShortenedInEveryColumn) {
    ListTable& table = showKept({longText('m'), longText('w')});
    press(table);
    ASSERT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), longText('m') + QLatin1Char('\n') + longText('m') + '!');
}

TEST_F(RowTipsTest, EscapeMarkupInEveryLine) {
    ListTable& table = showKept({QStringLiteral("<b>a & b</b>") + longText('m')});
    kept.item(0, 1)->setText(QStringLiteral("a & b") + longText('m'));
    press(table);
    EXPECT_EQ(QToolTip::text().toStdString(),
              "a &amp; b" + longText('m').toStdString() +
                  "<br><span style=\"white-space:pre\">&lt;b&gt;a &amp; b&lt;/b&gt;" +
                  longText('m').toStdString() + "!</span>");
}

TEST_F(RowTipsTest, DisappearWhenTheKeyIsPressedAgain) {
    ListTable& table = showKept({longText('m')});
    press(table);
    ASSERT_TRUE(QToolTip::isVisible());
    press(table);
    EXPECT_TRUE(disappears());
}

TEST_F(RowTipsTest, DisappearWithTheirRow) {
    ListTable& table = showKept({longText('m'), longText('w')});
    press(table);
    ASSERT_TRUE(QToolTip::isVisible());
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_TRUE(disappears());
    press(table);
    EXPECT_TRUE(QToolTip::text().startsWith(longText('w')));
}

TEST_F(RowTipsTest, ThereAreNoneWithoutAShortenedText) {
    ListTable& table = showKept({QStringLiteral("fits")});
    press(table);
    EXPECT_FALSE(QToolTip::isVisible());
    table.setCurrentIndex({});
    press(table);
    EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(RowTipsTest, ARowOutOfViewIsScrolledIntoView) {
    QStringList texts;
    for (int row = 0; row < 50; ++row) {
        texts.push_back(QString::number(row) + longText('m'));
    }
    ListTable& table = showKept(texts);
    table.setCurrentIndex(kept.index(49, 0));
    table.scrollToTop();
    press(table);
    EXPECT_TRUE(QToolTip::text().startsWith(texts.back()));
    EXPECT_TRUE(table.viewport()->rect().contains(table.visualRect(kept.index(49, 0)).center()));
}

TEST_F(RowTipsTest, OfTheFilesOfASet) {
    result.files.item(1, ResultTable::fileLocation)->setText(longText('m'));
    ResultTable& table = *window.results->resultTable;
    table.setModel(&result.files);
    window.selectTabViewItem(QStringLiteral("4"));
    table.setFocus();
    table.selectFile(1);
    press(table);
    EXPECT_EQ(QToolTip::text(), longText('m'));
}

TEST_F(RowTipsTest, OfASet) {
    ResultTreeView& tree = *window.results->OView2;
    tree.setModel(&result.sets);
    tree.expandAll();
    result.sets.setData(result.sets.setAt(0, 1).siblingAtColumn(ResultTreeView::name),
                        QStringLiteral("3 files, 7.1 MB each"), ResultTreeView::detailsRole);
    window.selectTabViewItem(QStringLiteral("4"));
    tree.setFocus();
    tree.selectSet(result.sets.setAt(0, 1));
    press(tree);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("3 files, 7.1 MB each"));
}

TEST_F(RowTipsTest, OfAFolderOfARule) {
    auto* folder = new QStandardItem(QStringLiteral("/a"));
    folder->setToolTip(QStringLiteral("/a (not there now)"));
    folders.appendRow(folder);
    FolderList& list = *window.markByRuleWindow->protectedList;
    list.setModel(&folders);
    window.showOver(window.markByRuleWindow, RulePanel::designGeometry);
    QCoreApplication::sendPostedEvents();
    list.setFocus();
    list.setCurrentIndex(folders.index(0, 0));
    press(list);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("/a (not there now)"));
}

TEST_F(RowTipsTest, OfALocation) {
    locations.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), true);
    locations.item(0)->setToolTip(QStringLiteral("/home/me/Pictures"));
    LocationTable& table = *window.locations->tableExact;
    table.setModel(&locations);
    window.selectTabViewItem(QStringLiteral("2"));
    table.setFocus();
    table.setCurrentIndex(locations.index(0, 0));
    press(table);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("/home/me/Pictures"));
}

}  // namespace

}  // namespace tarvin
