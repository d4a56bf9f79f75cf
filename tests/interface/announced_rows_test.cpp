#include "interface/announced_rows.h"

#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"

namespace tarvin {

namespace {

class AnnouncedRowsTest : public ShownWindow {
 protected:
    AnnouncedRowsTest() {
        window.selectTabViewItem(QStringLiteral("4"));
        tree.setModel(&sets);
        tree.expandAll();
        table.setModel(&files);
        // What the model says while the box of the keyboard turns.
        QObject::connect(&tree, &ResultTreeView::checkBoxClicked, &tree,
                         [this](const QModelIndex& box) { noteTurn(tree, box); });
        QObject::connect(&table, &ResultTable::tableCheckBoxClicked, &table, [this](int row) {
            noteTurn(table, files.index(row, ResultTable::ButtonCell));
        });
    }
    ~AnnouncedRowsTest() override {
        tree.setModel(nullptr);
        table.setModel(nullptr);
    }

    void noteTurn(const QAbstractItemView& list, const QModelIndex& box) {
        heard += holdFocusedBox(list, box, box) ? 1 : 0;
    }

    DrawnResult result{true};
    SomeSets& sets = result.sets;
    SomeFiles& files = result.files;
    ResultTreeView& tree = *window.results->OView2;
    ResultTable& table = *window.results->resultTable;
    int heard = 0;
};

TEST_F(AnnouncedRowsTest, SpaceInTheTreeTurnsTheBoxOfTheKeyboard) {
    tree.setFocus();
    tree.selectionModel()->setCurrentIndex(sets.setAt(0, 1).siblingAtColumn(ResultTreeView::name),
                                           QItemSelectionModel::NoUpdate);
    QTest::keyClick(&tree, Qt::Key_Space);
    EXPECT_EQ(heard, 1);
}

TEST_F(AnnouncedRowsTest, SpaceInTheListTurnsTheBoxOfTheKeyboard) {
    table.setFocus();
    table.selectRow(0);
    ASSERT_EQ(table.currentIndex().column(), ResultTable::nameText);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(table.selectionModel()->selectedRows().size(), 1);
}

TEST_F(AnnouncedRowsTest, ARangeHoldsTheBoxInside) {
    tree.setFocus();
    tree.selectSet(sets.setAt(0, 1));
    const auto inColumn = [this](int set, int column) {
        return sets.setAt(0, set).siblingAtColumn(column);
    };
    EXPECT_TRUE(holdFocusedBox(tree, inColumn(0, 0), inColumn(2, 1)));
    EXPECT_FALSE(holdFocusedBox(tree, inColumn(0, 0), inColumn(0, 1)));
    EXPECT_FALSE(holdFocusedBox(tree, inColumn(2, 0), inColumn(2, 1)));
    EXPECT_FALSE(holdFocusedBox(tree, inColumn(0, 1), inColumn(2, 1)));
    // Rows of the same numbers below something else.
    EXPECT_FALSE(holdFocusedBox(tree, sets.extensionAt(0), sets.extensionAt(2)));
}

TEST_F(AnnouncedRowsTest, NothingIsHeldWithoutTheKeyboardOrABox) {
    tree.selectSet(sets.setAt(0, 1));
    EXPECT_FALSE(holdFocusedBox(tree, sets.setAt(0, 0), sets.setAt(0, 2)));
    tree.setFocus();
    tree.selectionModel()->setCurrentIndex(sets.setAt(0, 1).siblingAtColumn(ResultTreeView::name),
                                           QItemSelectionModel::NoUpdate);
    EXPECT_FALSE(holdFocusedBox(tree, sets.setAt(0, 0), sets.setAt(0, 2).siblingAtColumn(1)));
    tree.setCurrentIndex({});
    EXPECT_FALSE(holdFocusedBox(tree, sets.setAt(0, 0), sets.setAt(0, 2)));
}

}  // namespace

}  // namespace tarvin
