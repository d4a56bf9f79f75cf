#include "controller/result_fixture.h"
#include "controls/tab_button.h"
#include "controls/windows_like_button.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/result_panels.h"

namespace tarvin {
namespace {

/// The keyboard focus after actions by keyboard.
class KeyboardFocus : public ResultFixture {
 protected:
    [[nodiscard]] std::string holder() {
        const QWidget* focus = window().focusWidget();
        return focus == nullptr ? std::string() : focus->objectName().toStdString();
    }

    /// Focuses a button and presses Space.
    void pressByKey(const char* name) {
        auto* button = control(name);
        button->setFocus(Qt::TabFocusReason);
        ASSERT_EQ(holder(), name);
        QTest::keyClick(window().windowHandle(), Qt::Key_Space);
    }

    void pressSpace() { QTest::keyClick(window().windowHandle(), Qt::Key_Space); }
};

class KeyboardInResults : public KeyboardFocus {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }
};

TEST_F(KeyboardInResults, GoesFromMarkAllToUnmarkAllAndBack) {
    pressByKey("markAll");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_EQ(holder(), "unMarkAll");
    pressSpace();
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(holder(), "markAll");
}

TEST_F(KeyboardInResults, StaysOnMarkAllWhileSomeFilesAreLeft) {
    clickFileBox(0);
    pressByKey("unMarkAll");
    EXPECT_EQ(holder(), "markAll");
    click("markAll");
    EXPECT_EQ(holder(), "unMarkAll");
}

TEST_F(KeyboardInResults, OneSpaceAfterMarkAllMovesNothing) {
    pressByKey("markAll");
    pressSpace();
    EXPECT_FALSE(delegate->deletion().isRunning());
    EXPECT_FALSE(window().informationWindow->isVisible());
    for (const char* name : {"a1.jpg", "a2.jpg", "b1.jpg", "b2.jpg", "b3.jpg", "c2.txt"}) {
        EXPECT_TRUE(isThere(name)) << name;
    }
}

TEST_F(KeyboardInResults, ReturnsToTheListWhenMarksBecomeExceptions) {
    clickFileBox(1);
    pressByKey("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    EXPECT_FALSE(isEnabled("addEceptionBtn"));
    EXPECT_EQ(holder(), "resultTable");
}

TEST_F(KeyboardInResults, ReturnsToTheListWhenExceptionsAreRemoved) {
    clickFileBox(1);
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    pressByKey("removeExceptionBtn");
    alerts.press(0);
    EXPECT_EQ(information()[1], "\nAll exceptions has been removed.");
    click("scanInforOKBtn");
    EXPECT_FALSE(isEnabled("removeExceptionBtn"));
    EXPECT_EQ(holder(), "resultTable");
}

TEST_F(KeyboardInResults, ReturnsToTheListAfterACleanUp) {
    click("markAll");
    pressByKey("finishButton");
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
    EXPECT_EQ(holder(), "scanInforOKBtn");
    click("scanInforOKBtn");
    EXPECT_EQ(holder(), "resultTable");
}

TEST_F(KeyboardInResults, ReturnsToTheListWhenTheSummaryOfATabIsClosed) {
    for (const char* tab : {"imageButton", "documentButton"}) {
        click(tab);
        ASSERT_EQ(holder(), "scanInforOKBtn") << tab;
        pressSpace();
        EXPECT_EQ(holder(), "resultTable") << tab;
    }
    click("videoButton");
    pressSpace();
    EXPECT_EQ(holder(), "resultTable");
}

TEST_F(KeyboardInResults, IsInTheListWhenATabNeedsNoSummary) {
    click("imageButton");
    pressSpace();
    for (const char* tab : {"allButton", "imageButton"}) {
        pressByKey(tab);
        EXPECT_EQ(holder(), "resultTable") << tab;
    }
}

class KeyboardInLocations : public KeyboardFocus {
 protected:
    void SetUp() override {
        folder.makeFolder("one/inside");
        folder.makeFolder("two");
        launch({folder.pathOf("one"), folder.pathOf("two")});
        click("unmarkAllExactBtn");
    }
};

TEST_F(KeyboardInLocations, GoesFromMarkAllToUnmarkAllAndBack) {
    EXPECT_EQ(holder(), "markAllExactBtn");
    pressSpace();
    EXPECT_EQ(holder(), "unmarkAllExactBtn");
    EXPECT_TRUE(isEnabled("removeFromListExactBtn"));
    pressSpace();
    EXPECT_EQ(holder(), "markAllExactBtn");
}

TEST_F(KeyboardInLocations, ReturnsToTheListWhenRowsAreRemoved) {
    click("markAllExactBtn");
    pressByKey("removeFromListExactBtn");
    EXPECT_FALSE(isEnabled("removeFromListExactBtn"));
    EXPECT_EQ(holder(), "tableExact");
}

TEST_F(KeyboardInLocations, GoesFromBackToNextAndTheOtherWayRound) {
    const std::string inside = folder.pathOf("one");
    delegate->locations().didClickedRow(
        static_cast<int>(std::find_if(delegate->locations().list().rows().begin(),
                                      delegate->locations().list().rows().end(),
                                      [&](const LocationRow& row) { return row.name == inside; }) -
                         delegate->locations().list().rows().begin()));
    ASSERT_TRUE(isEnabled("backFolderButton"));
    pressByKey("backFolderButton");
    EXPECT_FALSE(isEnabled("backFolderButton"));
    EXPECT_EQ(holder(), "nextFolderButton");
    pressSpace();
    EXPECT_FALSE(isEnabled("nextFolderButton"));
    EXPECT_EQ(holder(), "backFolderButton");
}

}  // namespace
}  // namespace tarvin
