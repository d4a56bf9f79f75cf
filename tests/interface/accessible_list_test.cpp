#include "interface/accessible_list.h"

#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/window_covers.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

namespace tarvin {

namespace {

/// The three lists as seen by assistive technology.
class AccessibleListTest : public ShownWindow {
 protected:
    AccessibleListTest() {
        rows.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), false);
        rows.add(QStringLiteral("/home/me/Music"), QStringLiteral("folder.png"), true);
        locations.setModel(&rows);
        window.selectTabViewItem(QStringLiteral("4"));
        tree.setModel(&result.sets);
        tree.expandAll();
        table.setModel(&result.files);
        QCoreApplication::processEvents();
    }
    ~AccessibleListTest() override {
        tree.setModel(nullptr);
        table.setModel(nullptr);
        locations.setModel(nullptr);
    }

    static QAccessibleInterface* cell(QAbstractItemView& list, int row, int column) {
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&list);
        QAccessibleInterface* found = told->tableInterface()->cellAt(row, column);
        EXPECT_NE(found, nullptr) << row << ' ' << column;
        return found;
    }
    static void toggle(QAccessibleInterface* box) {
        ASSERT_NE(box, nullptr);
        ASSERT_NE(box->actionInterface(), nullptr);
        EXPECT_TRUE(box->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::toggleAction()));
        box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    }

    /// Checks that each child has the number of Qt's events and the list as its parent.
    static void expectOrder(QAbstractItemView& list) {
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&list);
        ASSERT_GT(told->childCount(), 0);
        for (int number = 0; number < told->childCount(); ++number) {
            QAccessibleInterface* child = told->child(number);
            ASSERT_NE(child, nullptr) << number;
            EXPECT_TRUE(child->isValid()) << number;
            EXPECT_EQ(told->indexOfChild(child), number);
            EXPECT_EQ(child->parent(), told) << number;
            EXPECT_EQ(child->window(), list.window()->windowHandle()) << number;
        }
        EXPECT_EQ(told->child(told->childCount()), nullptr);
        EXPECT_EQ(told->child(-1), nullptr);
    }

    DrawnResult result{true};
    SomeLocations rows;
    ResultTreeView& tree = *window.results->OView2;
    ResultTable& table = *window.results->resultTable;
    LocationTable& locations = *window.locations->tableExact;
};

TEST_F(AccessibleListTest, ToggleOnABoxOfTheTreeIsAClickOnIt) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    toggle(cell(tree, 2, ResultTreeView::check));
    toggle(cell(tree, 0, ResultTreeView::check));
    ASSERT_EQ(clicked.size(), 2);
    EXPECT_EQ(clicked[0].front().toModelIndex(), result.sets.setAt(0, 1));
    EXPECT_EQ(clicked[1].front().toModelIndex(), result.sets.extensionAt(0));
    EXPECT_FALSE(tree.selectedSet().isValid());
}

TEST_F(AccessibleListTest, ToggleOnABoxOfTheFilesIsAClickOnIt) {
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    toggle(cell(table, 3, ResultTable::ButtonCell));
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked.front().front().toInt(), 3);
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(AccessibleListTest, ToggleOnABoxOfTheLocationsTogglesIt) {
    window.selectTabViewItem(QStringLiteral("2"));
    toggle(cell(locations, 0, LocationTable::buttonCell));
    EXPECT_TRUE(rows.isChecked(0));
    toggle(cell(locations, 1, LocationTable::buttonCell));
    EXPECT_FALSE(rows.isChecked(1));
}

TEST_F(AccessibleListTest, OnlyBoxesCanBeToggled) {
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    for (const int column : {ResultTable::nameText, ResultTable::fileLocation}) {
        QAccessibleActionInterface* actions = cell(table, 0, column)->actionInterface();
        EXPECT_EQ(actions->actionNames(),
                  QStringList(QAccessibleActionInterface::setFocusAction()));
        actions->doAction(QAccessibleActionInterface::toggleAction());
    }
    EXPECT_EQ(clicked.size(), 0);
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(AccessibleListTest, NothingIsToggledUnderAPanel) {
    const QSignalSpy inTree(&tree, &ResultTreeView::checkBoxClicked);
    const QSignalSpy inTable(&table, &ResultTable::tableCheckBoxClicked);
    QWidget panel(&window);
    window.showOver(&panel, {250, 200});
    toggle(cell(tree, 1, ResultTreeView::check));
    toggle(cell(table, 1, ResultTable::ButtonCell));
    toggle(cell(locations, 0, LocationTable::buttonCell));
    EXPECT_EQ(inTree.size(), 0);
    EXPECT_EQ(inTable.size(), 0);
    EXPECT_FALSE(rows.isChecked(0));
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&table)->tableInterface()->selectRow(1));
    window.covers().removeAll();
    toggle(cell(tree, 1, ResultTreeView::check));
    EXPECT_EQ(inTree.size(), 1);
}

TEST_F(AccessibleListTest, TheCurrentCellHasTheFocus) {
    cell(table, 2, ResultTable::nameText)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(window.focusWidget(), &table);
    EXPECT_EQ(table.currentIndex().row(), 2);
    EXPECT_EQ(table.selectedRow(), -1);
    EXPECT_TRUE(cell(table, 2, ResultTable::nameText)->state().focused);
    EXPECT_FALSE(cell(table, 1, ResultTable::nameText)->state().focused);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&table)->focusChild(),
              cell(table, 2, ResultTable::nameText));
}

TEST_F(AccessibleListTest, ARowIsSelectedAsByAClick) {
    QAccessibleTableInterface* files =
        QAccessible::queryAccessibleInterface(&table)->tableInterface();
    EXPECT_TRUE(files->selectRow(3));
    EXPECT_EQ(table.selectedRow(), 3);
    EXPECT_EQ(files->selectedRows(), QList<int>{3});
    EXPECT_TRUE(files->isRowSelected(3));
    EXPECT_FALSE(files->isRowSelected(2));
    EXPECT_EQ(files->selectedCells().size(), 4);
    EXPECT_TRUE(cell(table, 3, ResultTable::ButtonCell)->state().selected);
    EXPECT_FALSE(files->unselectRow(3));
    EXPECT_FALSE(files->selectRow(99));
    EXPECT_EQ(table.selectedRow(), 3);

    QAccessibleTableInterface* sets =
        QAccessible::queryAccessibleInterface(&tree)->tableInterface();
    EXPECT_TRUE(sets->selectRow(2));
    EXPECT_EQ(tree.selectedSet(), result.sets.setAt(0, 1));
}

TEST_F(AccessibleListTest, ChildrenStandInTheOrderOfQtsEvents) {
    expectOrder(tree);
    expectOrder(table);
    expectOrder(locations);
    // The first row of children are column titles; a table also has row headers in the first
    // column.
    QAccessibleInterface* sets = QAccessible::queryAccessibleInterface(&tree);
    EXPECT_EQ(sets->childCount(), 18 * 2);
    EXPECT_EQ(sets->child(3 * 2), cell(tree, 2, 0));
    QAccessibleInterface* files = QAccessible::queryAccessibleInterface(&table);
    EXPECT_EQ(files->childCount(), 6 * 5);
    EXPECT_EQ(files->child(3 * 5 + 1), cell(table, 2, 0));
}

TEST_F(AccessibleListTest, TitlesStandOverTheirColumns) {
    QAccessibleInterface* box = cell(table, 2, ResultTable::ButtonCell);
    const QList<QAccessibleInterface*> titles = box->tableCellInterface()->columnHeaderCells();
    ASSERT_EQ(titles.size(), 1);
    EXPECT_EQ(titles.front()->text(QAccessible::Name), QStringLiteral("Mark"));
    EXPECT_EQ(titles.front()->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(titles.front()->rect().left(), box->rect().left());
    EXPECT_EQ(titles.front()->rect().width(), box->rect().width());
    EXPECT_EQ(box->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(box->tableCellInterface()->columnIndex(), 3);
}

TEST_F(AccessibleListTest, CellsLieWhereTheyAreSeen) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&tree);
    QAccessibleInterface* box = cell(tree, 4, ResultTreeView::check);
    const QRect reach = tree.visualRect(result.sets.extensionAt(1));
    EXPECT_EQ(box->rect(), QRect(tree.viewport()->mapToGlobal(reach.topLeft()), reach.size()));
    const QPoint middle = box->rect().center();
    EXPECT_EQ(told->childAt(middle.x(), middle.y()), box);
    const QPoint beside = table.mapToGlobal(QPoint(5, 5));
    EXPECT_EQ(told->childAt(beside.x(), beside.y()), nullptr);
    EXPECT_FALSE(box->state().offscreen);
    EXPECT_TRUE(cell(tree, 16, ResultTreeView::check)->state().offscreen);
}

TEST_F(AccessibleListTest, TheTreeCountsTheRowsThatAreShown) {
    QAccessibleTableInterface* sets =
        QAccessible::queryAccessibleInterface(&tree)->tableInterface();
    EXPECT_EQ(sets->rowCount(), 17);
    EXPECT_TRUE(cell(tree, 0, 0)->state().expanded);
    tree.collapse(result.sets.extensionAt(0));
    EXPECT_EQ(sets->rowCount(), 14);
    EXPECT_TRUE(cell(tree, 0, 0)->state().collapsed);
    EXPECT_EQ(cell(tree, 1, ResultTreeView::name)->text(QAccessible::Name), QStringLiteral("png"));
    EXPECT_EQ(AccessibleList::of(tree)->cellOf(result.sets.setAt(0, 1)), nullptr);
    // The same rows at any scroll position.
    tree.verticalScrollBar()->setValue(tree.verticalScrollBar()->maximum());
    ASSERT_GT(tree.verticalScrollBar()->value(), 0);
    EXPECT_EQ(sets->rowCount(), 14);
    EXPECT_EQ(cell(tree, 1, ResultTreeView::name)->text(QAccessible::Name), QStringLiteral("png"));
    EXPECT_EQ(cell(tree, 13, ResultTreeView::name)->text(QAccessible::Name),
              QStringLiteral("Set(2)"));
    EXPECT_EQ(sets->cellAt(14, 0), nullptr);
    EXPECT_EQ(sets->cellAt(-1, 0), nullptr);
    while (result.sets.rowCount() > 0) {
        result.sets.removeRow(0);
    }
    EXPECT_EQ(sets->rowCount(), 0);
}

TEST_F(AccessibleListTest, CellsOfRemovedRowsAreInvalid) {
    QAccessibleInterface* last = cell(table, 4, ResultTable::nameText);
    QAccessibleInterface* second = cell(table, 1, ResultTable::nameText);
    const QAccessible::Id id = QAccessible::uniqueId(last);
    result.files.removeRow(4);
    EXPECT_TRUE(second->isValid());
    EXPECT_EQ(cell(table, 1, ResultTable::nameText), second);
    QAccessibleInterface* gone = QAccessible::accessibleInterface(id);
    EXPECT_TRUE(gone == nullptr || !gone->isValid());
    // After a row has moved up, its position has another cell.
    result.files.removeRow(0);
    EXPECT_EQ(cell(table, 1, ResultTable::nameText)->text(QAccessible::Name),
              QStringLiteral("IMG_2041.jpg"));
    EXPECT_EQ(cell(table, 0, ResultTable::nameText)->text(QAccessible::Name),
              QStringLiteral("IMG_2041 copy.jpg"));
}

TEST_F(AccessibleListTest, AnotherModelDeletesTheCellsOfBefore) {
    QAccessibleTableInterface* told =
        QAccessible::queryAccessibleInterface(&table)->tableInterface();
    QAccessibleInterface* box = cell(table, 1, ResultTable::ButtonCell);
    const QAccessible::Id first = QAccessible::uniqueId(box);
    const QAccessible::Id title =
        QAccessible::uniqueId(box->tableCellInterface()->columnHeaderCells().front());
    QAccessibleTableModelChangeEvent marked(&table, QAccessibleTableModelChangeEvent::DataChanged);
    told->modelChange(&marked);
    EXPECT_EQ(QAccessible::accessibleInterface(first), box);
    QAccessibleTableModelChangeEvent reset(&table, QAccessibleTableModelChangeEvent::ModelReset);
    told->modelChange(&reset);
    EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(title), nullptr);
}

TEST_F(AccessibleListTest, RowsOfTheTreeAreTreeItemsAndThoseOfTablesCells) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&tree)->role(), QAccessible::Tree);
    EXPECT_EQ(cell(tree, 0, ResultTreeView::name)->role(), QAccessible::TreeItem);
    EXPECT_EQ(cell(tree, 1, ResultTreeView::check)->role(), QAccessible::TreeItem);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&table)->role(), QAccessible::Table);
    EXPECT_EQ(cell(table, 0, ResultTable::nameText)->role(), QAccessible::Cell);
    EXPECT_EQ(cell(locations, 0, LocationTable::mainCell)->role(), QAccessible::Cell);
}

TEST_F(AccessibleListTest, MixedMarksAreDescribed) {
    EXPECT_TRUE(cell(tree, 1, ResultTreeView::check)->state().checkStateMixed);
    EXPECT_FALSE(cell(tree, 1, ResultTreeView::check)->state().checked);
    EXPECT_TRUE(cell(tree, 2, ResultTreeView::check)->state().checked);
    EXPECT_FALSE(cell(tree, 2, ResultTreeView::name)->state().checkable);
}

TEST_F(AccessibleListTest, AListWithoutAModelIsEmpty) {
    table.setModel(nullptr);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&table);
    EXPECT_EQ(told->childCount(), 0);
    EXPECT_EQ(told->tableInterface()->rowCount(), 0);
    EXPECT_EQ(told->tableInterface()->columnDescription(0), QString());
    EXPECT_EQ(told->focusChild(), nullptr);
}

}  // namespace

}  // namespace tarvin
