#include "controller/result_fixture.h"
#include "controller/visibility_counter.h"
#include "controls/pop_up_button.h"
#include "controls/spinner.h"
#include "controls/toggle_button.h"

#include <QAbstractItemView>
#include <chrono>

namespace tarvin {
namespace {

class Sorting : public ResultFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        // Dates in another order than the names.
        setDay("b2.jpg", 1);
        setDay("b3.jpg", 2);
        setDay("b1.jpg", 3);
        scanAndReview();
    }

    void setDay(const std::string& name, int day) {
        files.setCreated(folder.pathOf("found/" + name),
                         Timestamp{} + std::chrono::hours(24) * day);
    }

    [[nodiscard]] PopUpButton& popup() { return *window().results->sortPopupBtn; }
    [[nodiscard]] QAbstractButton& sortBtn() { return *window().results->sortBtn; }
    [[nodiscard]] QAbstractButton& asscendingBtn() { return *window().results->asscendingBtn; }
    [[nodiscard]] SortControls& sortControls() { return delegate->views().sortControls(); }

    /// Selects a row of the pop-up's list by keyboard, the current one included.
    void chooseInPopUp(int row) {
        QTest::mouseClick(&popup(), Qt::LeftButton);
        QAbstractItemView& opened = *popup().view();
        ASSERT_TRUE(comesTrue([&opened] { return opened.isVisible(); }));
        QTest::keyClick(&opened, Qt::Key_Home);
        for (int step = 0; step < row; ++step) {
            QTest::keyClick(&opened, Qt::Key_Down);
        }
        QTest::keyClick(&opened, Qt::Key_Return);
        EXPECT_TRUE(comesTrue([&opened] { return !opened.isVisible(); }));
    }

    void chooseInMenu(int tag) {
        QMenu* menu = window().results->sortByMenu;
        openMenu(&popup(), popup().rect().center(), menu);
        choose(menu, menu->actions()[tag]);
    }

    void chooseOrder(int tag) {
        QMenu* menu = window().results->sortingOrderMenu;
        openMenu(&asscendingBtn(), asscendingBtn().rect().center(), menu);
        choose(menu, menu->actions()[tag]);
    }

    /// The positions of b1.jpg, b2.jpg and b3.jpg by date.
    [[nodiscard]] std::vector<std::int64_t> places() {
        std::vector<std::int64_t> places;
        for (const auto& file : setOf(0, 1).files()) {
            places.push_back(file->index());
        }
        return places;
    }

    using Places = std::vector<std::int64_t>;
    const Lines inOrder{"b1.jpg", "b2.jpg", "b3.jpg"};
};

TEST_F(Sorting, BeginsBySize) {
    EXPECT_EQ(popup().selectedTag(), 1);
    EXPECT_EQ(popup().toolTip(), QStringLiteral("Sort by size"));
    EXPECT_EQ(asscendingBtn().toolTip(), QStringLiteral("Ascending"));
}

TEST_F(Sorting, NeverChangesTheOrderOfTheRows) {
    select(0, 1);
    for (int row = 0; row < popup().count(); ++row) {
        chooseInPopUp(row);
        EXPECT_EQ(popup().selectedTag(), row + 1);
        EXPECT_EQ(names(), inOrder);
        EXPECT_FALSE(isCovered());
    }
    click("sortBtn");
    EXPECT_EQ(names(), inOrder);
    click("asscendingBtn");
    EXPECT_EQ(names(), inOrder);
}

TEST_F(Sorting, NumbersTheFilesOfTheSelectedSetByTheirDate) {
    ASSERT_EQ(places(), (Places{0, 1, 2}));
    select(0, 1);
    EXPECT_EQ(places(), (Places{2, 0, 1}));
    EXPECT_TRUE(sortControls().ascending());
    click("sortBtn");
    EXPECT_EQ(places(), (Places{0, 2, 1}));
    EXPECT_FALSE(sortControls().ascending());
    EXPECT_EQ(names(), inOrder);
}

TEST_F(Sorting, TakesItsDirectionFromOneOfTheTwoTogglesAlone) {
    select(0, 1);
    click("asscendingBtn");
    EXPECT_FALSE(asscendingBtn().isChecked());
    EXPECT_EQ(places(), (Places{2, 0, 1}));
    chooseOrder(0);
    EXPECT_TRUE(asscendingBtn().isChecked());
    select(0, 0);
    click("sortBtn");
    select(0, 1);
    EXPECT_EQ(places(), (Places{0, 2, 1}));
}

TEST_F(Sorting, ControlsCoverTheFilesWhileTheyAreNumberedAnew) {
    select(0, 1);
    const VisibilityCounter overlay(window().loadingView);
    chooseInPopUp(1);
    EXPECT_EQ(overlay.shown(), 1);
    click("sortBtn");
    EXPECT_EQ(overlay.shown(), 2);
    click("asscendingBtn");
    EXPECT_EQ(overlay.shown(), 3);
    EXPECT_EQ(overlay.hidden(), 3);
    EXPECT_FALSE(isCovered());
}

TEST_F(Sorting, GoesByTheDateOfCreationWhateverWasChosen) {
    EXPECT_EQ(sortControls().sorting(), "fileCreationDate");
    const std::vector<std::string> keys{"size", "itemTitle", "CreatDate", "ModDate", "Dimension"};
    for (std::size_t tag = 0; tag < keys.size(); ++tag) {
        chooseInMenu(static_cast<int>(tag));
        EXPECT_EQ(sortControls().sorting(), keys[tag]);
        chooseInPopUp(static_cast<int>(tag));
        EXPECT_EQ(sortControls().sorting(), "fileCreationDate");
        chooseInMenu(static_cast<int>(tag));
        select(0, 1);
        EXPECT_EQ(sortControls().sorting(), "fileCreationDate");
        EXPECT_EQ(places(), (Places{2, 0, 1}));
        select(0, 0);
    }
}

TEST_F(Sorting, TogglesSayTheirDirection) {
    for (const char* name : {"sortBtn", "asscendingBtn"}) {
        const QAbstractButton& toggle = *control<QAbstractButton>(name);
        ASSERT_TRUE(toggle.isChecked());
        click(name);
        EXPECT_EQ(toggle.toolTip(), QStringLiteral("Descending")) << name;
        click(name);
        EXPECT_EQ(toggle.toolTip(), QStringLiteral("Ascending")) << name;
    }
}

TEST_F(Sorting, ATogglesDirectionIsNotTheOthers) {
    click("asscendingBtn");
    EXPECT_EQ(asscendingBtn().toolTip(), QStringLiteral("Descending"));
    EXPECT_NE(sortBtn().toolTip(), QStringLiteral("Descending"));
}

TEST_F(Sorting, ThePopUpLeavesWhatTheMenuSaid) {
    chooseInPopUp(1);
    EXPECT_EQ(popup().toolTip(), QStringLiteral("Sort by size"));
    chooseInMenu(3);
    chooseInPopUp(4);
    EXPECT_EQ(popup().toolTip(), QStringLiteral("Sort by modified date"));
    EXPECT_EQ(popup().selectedTag(), 5);
}

TEST_F(Sorting, ByMenuCoversTheFilesUntilAnotherSetIsSelected) {
    const std::vector<const char*> toolTips{"Sort by size", "Sort by name", "Sort by created date",
                                            "Sort by modified date", "Sort by dimension"};
    for (const int tag : {1, 2, 3, 4, 0}) {
        select(0, 1);
        chooseInMenu(tag);
        EXPECT_EQ(popup().toolTip(), QLatin1String(toolTips[static_cast<std::size_t>(tag)]));
        EXPECT_EQ(popup().selectedTag(), tag + 1);
        EXPECT_TRUE(isCovered());
        EXPECT_EQ(names(), inOrder);
        select(0, 0);
        EXPECT_FALSE(isCovered());
    }
}

TEST_F(Sorting, ByMenuAsItIsDoesNothing) {
    chooseInMenu(0);
    EXPECT_FALSE(isCovered());
    EXPECT_EQ(popup().selectedTag(), 1);
    chooseInMenu(1);
    EXPECT_TRUE(isCovered());
    select(0, 1);
    EXPECT_FALSE(isCovered());
    chooseInMenu(1);
    EXPECT_FALSE(isCovered());
    EXPECT_EQ(popup().toolTip(), QStringLiteral("Sort by name"));
}

TEST_F(Sorting, ByAnUnknownItemOnlyCoversTheFiles) {
    sortControls().sortByMenuClicked(7);
    EXPECT_TRUE(isCovered());
    EXPECT_EQ(popup().toolTip(), QStringLiteral("Sort by size"));
    EXPECT_EQ(sortControls().sorting(), "fileCreationDate");
    select(0, 1);
    sortControls().sortingOrderMenuClicked(5);
    EXPECT_TRUE(isCovered());
    EXPECT_TRUE(asscendingBtn().isChecked());
}

TEST_F(Sorting, OrderMenuSaysAscendingForBoth) {
    chooseOrder(0);
    EXPECT_TRUE(asscendingBtn().isChecked());
    EXPECT_FALSE(isCovered());
    asscendingBtn().setToolTip({});
    chooseOrder(1);
    EXPECT_FALSE(asscendingBtn().isChecked());
    EXPECT_EQ(asscendingBtn().toolTip(), QStringLiteral("Ascending"));
    EXPECT_TRUE(isCovered());
    select(0, 1);
    EXPECT_FALSE(isCovered());
    asscendingBtn().setToolTip({});
    chooseOrder(1);
    EXPECT_EQ(asscendingBtn().toolTip(), QString());
    EXPECT_FALSE(isCovered());
    chooseOrder(0);
    EXPECT_TRUE(asscendingBtn().isChecked());
    EXPECT_EQ(asscendingBtn().toolTip(), QStringLiteral("Ascending"));
    EXPECT_TRUE(isCovered());
}

TEST_F(Sorting, KeepsItsControlsWhenThereIsAnotherResult) {
    chooseInMenu(3);
    select(0, 1);
    chooseOrder(1);
    select(0, 0);
    asscendingBtn().setToolTip(QStringLiteral("as it was"));
    scanAgain();
    click("scanInforOKBtn");
    EXPECT_EQ(popup().selectedTag(), 4);
    EXPECT_EQ(popup().toolTip(), QStringLiteral("Sort by modified date"));
    EXPECT_FALSE(asscendingBtn().isChecked());
    EXPECT_EQ(asscendingBtn().toolTip(), QStringLiteral("as it was"));
}

TEST_F(Sorting, TurnsTheSpinnerWhileTheFilesAreCovered) {
    const Spinner& spinner = *window().loadingIndicator;
    EXPECT_FALSE(spinner.isAnimating());
    chooseInMenu(1);
    ASSERT_TRUE(isCovered());
    EXPECT_TRUE(spinner.isAnimating());
    EXPECT_TRUE(spinner.clock().isRunning());
    select(0, 1);
    ASSERT_FALSE(isCovered());
    EXPECT_FALSE(spinner.isAnimating());
    chooseInMenu(2);
    EXPECT_TRUE(spinner.isAnimating());
    click("buttonHomePage");
    EXPECT_FALSE(spinner.isAnimating());
}

}  // namespace
}  // namespace tarvin
