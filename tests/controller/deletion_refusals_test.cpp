#include "controller/deletion_fixture.h"

namespace tarvin {
namespace {

/// Files that a deletion does not move, and the counters afterwards.
class DeletionRefusal : public DeletionFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    [[nodiscard]] bool isMarked(int extension, int set, std::size_t file) {
        return setOf(extension, set).files().at(file)->state() != CheckState::off;
    }

    /// Marks every file of the set of three, which only marking them one by one does.
    void markWholeSet() {
        select(0, 1);
        clickFileBox(0);
        clickBox(tree().indexOfSet(0, 1));
    }
};

TEST_F(DeletionRefusal, OfOneFileLeavesItMarkedInItsSet) {
    platform.trash().refuse(found("c2.txt"));
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    EXPECT_TRUE(isThere("c2.txt"));
    ASSERT_EQ(setOf(1, 0).files().size(), 2U);
    EXPECT_EQ(setOf(1, 0).files()[1]->filePath(), found("c2.txt"));
    EXPECT_TRUE(isMarked(1, 0, 1));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    EXPECT_EQ(tree().indexOfSet(1, 0).data(Qt::CheckStateRole), QVariant(Qt::Checked));
}

TEST_F(DeletionRefusal, OfEverythingReportsNothingAndKeepsTheMarks) {
    const Lines all{"a2.jpg", "b2.jpg", "b3.jpg", "c2.txt"};
    for (const std::string& name : all) {
        platform.trash().refuse(found(name));
    }
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 0");
    EXPECT_EQ(information()[2], "Space Regained: 0.00 KB ");
    for (const std::string& name : all) {
        EXPECT_TRUE(isThere(name)) << name;
    }
    EXPECT_TRUE(isMarked(0, 0, 1));
    EXPECT_TRUE(isMarked(0, 1, 1));
    EXPECT_TRUE(isMarked(0, 1, 2));
    EXPECT_TRUE(isMarked(1, 0, 1));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 0);
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 0 (0.00 KB)");
    EXPECT_FALSE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("unMarkAll"));
}

/// Marked by hand so that its state is off: every file was, and the Trash took all but one.
TEST_F(DeletionRefusal, LeavesASetWhoseStateIsOffUntouchedByTheNextRun) {
    markWholeSet();
    platform.trash().refuse(found("b1.jpg"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 2");
    click("scanInforOKBtn");
    ASSERT_EQ(setOf(0, 1).files().size(), 1U);
    EXPECT_TRUE(isMarked(0, 1, 0));
    EXPECT_EQ(tree().indexOfExtension(0).data(Qt::CheckStateRole), QVariant(Qt::Unchecked));
    const std::size_t asked = platform.trash().attempts().size();
    clickBox(tree().indexOfExtension(1));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    EXPECT_EQ(platform.trash().attempts().size(), asked + 1);
    EXPECT_EQ(platform.trash().attempts().back(), found("c2.txt"));
    EXPECT_TRUE(isThere("b1.jpg"));
    EXPECT_TRUE(isMarked(0, 1, 0));
}

using DeletionCounter = DeletionRefusal;

/// One more file is moved than was counted as marked.
TEST_F(DeletionCounter, EndsAtZeroAfterAWholeSet) {
    markWholeSet();
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 2");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("scanInforOKBtn");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.00 KB");
    EXPECT_EQ(setText(0, 1), "Set(0)");
    EXPECT_EQ(modal().totalFiles(), 2U);
    EXPECT_EQ(modal().totalFilesSize(), 12U);
    EXPECT_EQ(tree().indexOfSet(0, 1).data(Qt::CheckStateRole), QVariant(Qt::Unchecked));
    EXPECT_TRUE(isEnabled("markAll"));
    for (const char* name : {"unMarkAll", "addEceptionBtn"}) {
        EXPECT_FALSE(isEnabled(name)) << name;
    }
}

TEST_F(DeletionCounter, CountsTheNextMarksFromZeroAfterAWholeSet) {
    markWholeSet();
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("scanInforOKBtn");
    select(1, 0);
    clickFileBox(1);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    EXPECT_EQ(delegate->session().totalSize, 9U);
    EXPECT_TRUE(isEnabled("unMarkAll"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    EXPECT_FALSE(isThere("c2.txt"));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
}

TEST_F(DeletionCounter, CountsAllThatAreLeftAfterAWholeSet) {
    markWholeSet();
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("scanInforOKBtn");
    click("markAll");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 2");
    EXPECT_FALSE(isEnabled("markAll"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 2");
}

TEST_F(DeletionCounter, OfZeroShowsNoReportThoughUnmarkAllIsEnabled) {
    window().results->unMarkAll->setEnabled(true);
    click("finishButton");
    EXPECT_FALSE(delegate->deletion().isRunning());
    EXPECT_EQ(information(), Lines());
    EXPECT_FALSE(window().deletionPreview->isVisible());
    EXPECT_EQ(covers(), 0);
}

TEST_F(DeletionCounter, OfTheBarBeginsAtZeroInEachRun) {
    select(0, 0);
    clickFileBox(1);
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    click("scanInforOKBtn");
    select(0, 1);
    clickFileBox(1);
    deleteAndHoldAt("b2.jpg");
    const ProgressBar& bar = *window().deletionPreview->deletionIndicator;
    ASSERT_TRUE(comesTrue([&] { return bar.done() == 1; }));
    barrier.open();
    ASSERT_TRUE(reported());
    click("scanInforOKBtn");
    clickFileBox(1);
    delegate->deletion().deleteButtonExactPageClicked();
    // Before the first progress of the run is shown.
    EXPECT_TRUE(window().deletionPreview->isVisible());
    EXPECT_EQ(bar.done(), 0U);
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 1");
}

/// The bar counts the sets met that are down to one file.
TEST_F(DeletionCounter, OfTheBarMovesForSetsOfOneFileOnly) {
    select(0, 0);
    clickFileBox(1);
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    click("scanInforOKBtn");
    select(0, 1);
    clickFileBox(1);
    clickFileBox(2);
    deleteAndHoldAt("b2.jpg");
    const ProgressBar& bar = *window().deletionPreview->deletionIndicator;
    EXPECT_TRUE(comesTrue([&] { return bar.done() == 1; }));
    EXPECT_EQ(bar.total(), 2U);
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 2");
}

TEST_F(DeletionRefusal, OfAFileThatHasChangedLeavesItMarked) {
    write("c2.txt", "text, but another");
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    EXPECT_TRUE(isThere("c2.txt"));
    EXPECT_TRUE(isMarked(1, 0, 1));
}

}  // namespace
}  // namespace tarvin
