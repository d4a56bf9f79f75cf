#include "controller/product_fixture.h"
#include "controller/rows.h"
#include "controls/hover_button.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"

namespace tarvin {
namespace {

/// The context menu of the location list: three folders and a drive.
class LocationMenu : public ProductFixture {
 protected:
    void SetUp() override {
        launch();
        click("mainScanButtonFolder");
        ASSERT_EQ(states(), Rows({false, false, false, false}));
    }

    void open(int row) { openMenu(table().viewport(), middleOf(row), locations().tableMenu); }
    void choose(QAction* item) { ProductFixture::choose(locations().tableMenu, item); }

    void check(int row) {
        const QModelIndex box = table().model()->index(row, LocationTable::buttonCell);
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, table().visualRect(box).center());
    }

    using Titles = std::vector<std::string>;
    /// The titles of the visible items.
    [[nodiscard]] Titles items() {
        Titles titles;
        for (const QAction* item : locations().tableMenu->actions()) {
            if (item->isVisible() && !item->isSeparator()) {
                titles.push_back(item->text().toStdString());
            }
        }
        return titles;
    }

    [[nodiscard]] QPoint middleOf(int row) {
        return table().visualRect(table().model()->index(row, 0)).center();
    }

    using Rows = std::vector<bool>;
    [[nodiscard]] Rows states() { return statesOf(delegate->locations().list()); }
    [[nodiscard]] LocationScreen& locations() { return *window().locations; }
    [[nodiscard]] LocationTable& table() { return *locations().tableExact; }
};

TEST_F(LocationMenu, OffersToMarkAllAndToUnmarkAllAsTheirButtonsDo) {
    check(1);
    open(0);
    EXPECT_EQ(items(), (Titles{"Mark", "Remove from List", "Mark All", "Unmark All"}));
    locations().tableMenu->close();
    click("markAllExactBtn");
    ASSERT_FALSE(locations().markAllExactBtn->isEnabled());
    open(0);
    EXPECT_EQ(items(), (Titles{"Unmark", "Remove from List", "Unmark All"}));
    locations().tableMenu->close();
    click("unmarkAllExactBtn");
    ASSERT_FALSE(locations().unmarkAllExactBtn->isEnabled());
    open(3);
    EXPECT_EQ(items(), (Titles{"Mark", "Remove from List", "Mark All"}));
    locations().tableMenu->close();
}

TEST_F(LocationMenu, MarksAllAndUnmarksAll) {
    check(1);
    open(2);
    choose(locations().markAllMenu);
    EXPECT_EQ(states(), Rows({true, true, true, true}));
    EXPECT_FALSE(locations().markAllExactBtn->isEnabled());
    EXPECT_TRUE(locations().findDuplicateExact->isEnabled());
    open(2);
    choose(locations().unMarkAllMenu);
    EXPECT_EQ(states(), Rows({false, false, false, false}));
    EXPECT_TRUE(locations().markAllExactBtn->isEnabled());
    EXPECT_FALSE(locations().unmarkAllExactBtn->isEnabled());
    EXPECT_FALSE(locations().findDuplicateExact->isEnabled());
}

TEST_F(LocationMenu, MarksAndUnmarksTheRowAndSelectsItAlone) {
    open(2);
    choose(locations().markMenuTable);
    EXPECT_EQ(states(), Rows({false, false, true, false}));
    EXPECT_TRUE(locations().findDuplicateExact->isEnabled());
    EXPECT_TRUE(locations().removeFromListExactBtn->isEnabled());
    table().selectRow(0);
    open(2);
    choose(locations().markMenuTable);
    EXPECT_EQ(states(), Rows({false, false, false, false}));
    EXPECT_FALSE(locations().findDuplicateExact->isEnabled());
    const QModelIndexList selected = table().selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.front().row(), 2);
}

TEST_F(LocationMenu, RemovesTheRow) {
    std::vector<std::string> before = namesOf(delegate->locations().list());
    open(1);
    choose(locations().removeFromListMenu);
    before.erase(before.begin() + 1);
    EXPECT_EQ(namesOf(delegate->locations().list()), before);
}

TEST_F(LocationMenu, HasNoItemsWhereNoRowIs) {
    ASSERT_EQ(locations().clickedRow(), -1);
    delegate->locations().menuNeedsUpdate();
    EXPECT_EQ(items(), Titles());
    check(1);
    open(1);
    EXPECT_EQ(items().size(), 4U);
    locations().tableMenu->close();
}

TEST_F(LocationMenu, DoesNotOpenBelowTheRows) {
    const QPoint below(40, table().viewport()->height() - 3);
    ASSERT_FALSE(table().indexAt(below).isValid());
    QTest::mouseClick(window().windowHandle(), Qt::RightButton, {},
                      table().viewport()->mapTo(&window(), below));
    QCoreApplication::processEvents();
    EXPECT_FALSE(locations().tableMenu->isVisible());
}

}  // namespace
}  // namespace tarvin
