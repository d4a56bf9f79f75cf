#include "controller/deletion_fixture.h"
#include "interface/image_view.h"
#include "interface/property_text.h"
#include "model/file_store.h"
#include "scan/duplicate_finder.h"

#include <algorithm>
#include <ctime>

namespace tarvin {
namespace {

class DeletionTest : public DeletionFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    /// Replaces the result by one set of files that do not exist.
    void showSetOf(int count) {
        const std::shared_ptr<FileStore> store = FileStore::create();
        const Directory* const nowhere = store->addRoot("/nowhere");
        std::vector<std::shared_ptr<File>> group;
        for (int number = 0; number < count; ++number) {
            const std::string name = std::to_string(number) + ".jpg";
            group.push_back(store->share(store->addFile(nowhere, name, 1, {}, {})));
        }
        auto modal = std::make_shared<Modal>();
        fileSetUnderExtension(*modal, group);
        delegate->results().begin(modal);
        delegate->results().reload();
    }

    /// The longest iteration of the event loop, in seconds of CPU time of this thread.
    [[nodiscard]] double maxIterationUntilReport() {
        const auto seconds = [] {
            timespec ran{};
            ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ran);
            return static_cast<double>(ran.tv_sec) + static_cast<double>(ran.tv_nsec) / 1e9;
        };
        double longest = 0;
        double begin = seconds();
        EXPECT_TRUE(comesTrue([&] {
            longest = std::max(longest, seconds() - begin);
            begin = seconds();
            return window().informationWindow->isVisible();
        }));
        return longest;
    }
};

TEST_F(DeletionTest, UpdatesTheButtonsForTheRemainingMarks) {
    clickBox(tree().indexOfSet(0, 1));
    ASSERT_TRUE(isEnabled("unMarkAll"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 2");
    click("scanInforOKBtn");
    // Nothing is marked any more.
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("sortPopupBtn"));
    EXPECT_FALSE(isEnabled("unMarkAll"));
    EXPECT_FALSE(isEnabled("addEceptionBtn"));
    EXPECT_FALSE(window().results->sendToRecycle->isEnabled());
    EXPECT_FALSE(window().results->deletePermanently->isEnabled());
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");

    // One marked file stays and stays marked: every remaining duplicate is.
    click("markAll");
    ASSERT_FALSE(isEnabled("markAll"));
    std::filesystem::remove(found("a2.jpg"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    click("scanInforOKBtn");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    EXPECT_FALSE(isEnabled("markAll"));
    for (const char* name : {"unMarkAll", "addEceptionBtn"}) {
        EXPECT_TRUE(isEnabled(name)) << name;
    }
    EXPECT_TRUE(window().results->sendToRecycle->isEnabled());
    EXPECT_TRUE(window().results->deletePermanently->isEnabled());
}

TEST_F(DeletionTest, MovesMarkedFilesAndReports) {
    click("markAll");
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_EQ(information(),
              (Lines{"Information", "Duplicates Cleaned: 4", "Space Regained: 0.02 KB ", ""}));
    for (const char* name : {"a1.jpg", "b1.jpg", "c1.txt"}) {
        EXPECT_TRUE(isThere(name)) << name;
    }
    for (const char* name : {"a2.jpg", "b2.jpg", "b3.jpg", "c2.txt"}) {
        EXPECT_FALSE(isThere(name)) << name;
    }
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 4);
    EXPECT_EQ(storedTotals().alreadyDeletedSize(), 22U);
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 4 (0.02 KB)");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_FALSE(window().deletionPreview->isVisible());
    EXPECT_TRUE(window().results->resultTable->isVisible());
    EXPECT_TRUE(isEnabled("finishButton"));
    EXPECT_EQ(window().results->finishButton->alpha(), 1.0);
    EXPECT_EQ(covers(), 1);  // the report's
    EXPECT_EQ(list().rowCount(), 1);
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    click("buttonHomePage");
    EXPECT_TRUE(window().home->cleanHistory->isVisible());
}

TEST_F(DeletionTest, OfTwoOfThreeFilesKeepsOne) {
    select(0, 1);
    clickFileBox(1);
    clickFileBox(2);
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 2");
    EXPECT_EQ(setOf(0, 1).files().size(), 1U);
    EXPECT_EQ(setText(0, 1), "Set(0)");
    EXPECT_TRUE(isThere("a2.jpg"));
}

TEST_F(DeletionTest, OfTheFileInThePreviewShowsTheFirstOneThatIsLeft) {
    select(0, 1);
    table().selectFile(2);
    ASSERT_EQ(textOf("selectedPath"), "Path: " + found("b3.jpg"));
    clickFileBox(2);
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    EXPECT_EQ(textOf("selectedPath"), "Path: " + found("b1.jpg"));
    EXPECT_EQ(window().results->textField->text().left(8), QStringLiteral(" b1.jpg\n"));
    EXPECT_EQ(table().selectedRow(), 0);
}

TEST_F(DeletionTest, LeavesAPreviewOfAFileThatStays) {
    select(0, 1);
    table().selectFile(1);
    clickFileBox(2);
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    EXPECT_EQ(textOf("selectedPath"), "Path: " + found("b2.jpg"));
    EXPECT_EQ(table().selectedRow(), 1);
}

TEST_F(DeletionTest, OfAWholeSetEmptiesThePreview) {
    select(0, 1);
    clickFileBox(0);
    clickBox(tree().indexOfSet(0, 1));
    ASSERT_EQ(textOf("selectedPath"), "Path: " + found("b1.jpg"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    EXPECT_EQ(textOf("selectedPath"), "");
    EXPECT_EQ(window().results->textField->text(), QString());
    EXPECT_TRUE(window().results->imView->image().isNull());
}

TEST_F(DeletionTest, OfNothingShowsANotice) {
    click("finishButton");
    EXPECT_EQ(information(), (Lines{"Information", "Please select any file to delete.", "", ""}));
    EXPECT_FALSE(delegate->deletion().isRunning());
}

/// A button that exists and is never shown.
TEST_F(DeletionTest, BeginsWithTheOtherButtonToo) {
    EXPECT_FALSE(window().results->sendToRecycle->isEnabled());
    delegate->deletion().sendToRecycleClicked();
    EXPECT_EQ(information(), Lines());
    EXPECT_FALSE(delegate->deletion().isRunning());
    click("markAll");
    ASSERT_TRUE(window().results->sendToRecycle->isEnabled());
    window().results->sendToRecycle->click();
    EXPECT_TRUE(window().deletionPreview->isVisible());
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
}

/// Another program may have removed the file.
TEST_F(DeletionTest, WritesTheTotalsEvenIfNothingWasMoved) {
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 4");
    click("scanInforOKBtn");
    std::filesystem::remove(folder.pathOf("support/data.plist"));
    write("c2.txt", "text text");
    scanAgain();
    click("scanInforOKBtn");
    platform.trash().refuse(found("c2.txt"));
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 0");
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("support/data.plist")));
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 4);
    EXPECT_EQ(storedTotals().alreadyDeletedSize(), 22U);
}

TEST_F(DeletionTest, ShowsItsPanelOverTheCoveredResult) {
    click("markAll");
    deleteAndHoldAt("a2.jpg");
    EXPECT_TRUE(window().deletionPreview->isVisible());
    EXPECT_EQ(positionOf(window().deletionPreview), QPoint(205, 114));
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(textOf("deletionStatus"), "Deleting files, please wait...");
    EXPECT_EQ(window().deletionPreview->deletionIndicator->total(), 4U);
    EXPECT_EQ(window().deletionPreview->deletionIndicator->done(), 0U);
    EXPECT_FALSE(window().results->buttonHomePage->isVisible());
    EXPECT_FALSE(window().results->resultTable->isVisible());
    EXPECT_FALSE(isEnabled("finishButton"));
    EXPECT_EQ(window().results->finishButton->alpha(), 0.6);
    EXPECT_EQ(window().deletionPreview->pauseResumeBtn->title(), QStringLiteral("Pause"));
    EXPECT_EQ(window().deletionPreview->pauseResumeBtn->attributedTitle(),
              setCenterAttributes(Qt::white, QStringLiteral("Pause"), 14));
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_EQ(positionOf(window().informationWindow), QPoint(250, 200));
}

TEST_F(DeletionTest, SkipsVanishedFiles) {
    click("markAll");
    std::filesystem::remove(folder.pathOf("found/b2.jpg"));
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 3");
    EXPECT_EQ(setOf(0, 1).files().size(), 2U);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
}

TEST_F(DeletionTest, KeepsTheLastCopyIfOthersHaveVanished) {
    click("markAll");
    std::filesystem::remove(folder.pathOf("found/a1.jpg"));
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_TRUE(isThere("a2.jpg"));
}

/// Only marking the files one by one marks them all.
TEST_F(DeletionTest, MovesASetWhoseEveryFileIsMarked) {
    select(0, 1);
    clickFileBox(0);
    clickBox(tree().indexOfSet(0, 1));
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 3");
    EXPECT_FALSE(isThere("b1.jpg"));
    EXPECT_EQ(list().rowCount(), 0);
}

TEST_F(DeletionTest, ShowsTheTreeAsItWasUntilTheEnd) {
    click("markAll");
    deleteAndHoldAt("b2.jpg");
    ASSERT_FALSE(isThere("a2.jpg"));
    const QModelIndex done = tree().indexOfSet(0, 0);
    EXPECT_EQ(setText(0, 0), "Set(1)");
    EXPECT_EQ(done.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(setText(0, 1), "Set(2)");
    EXPECT_EQ(list().rowCount(), 0);
    window().grab();
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_EQ(setText(0, 0), "Set(0)");
    EXPECT_EQ(done.data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_EQ(setText(0, 1), "Set(0)");
}

/// The run's thread frees its data of the set.
TEST_F(DeletionTest, OfAVeryLargeSetEndsWithoutAStall) {
    showSetOf(500'000);
    click("markAll");
    click("finishButton");
    EXPECT_LT(maxIterationUntilReport(), 0.1);
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 0");
}

}  // namespace
}  // namespace tarvin
