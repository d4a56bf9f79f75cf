#include "controller/result_fixture.h"
#include "interface/result_panels.h"

namespace tarvin {
namespace {

class Exceptions : public ResultFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    void excludeAll() {
        click("markAll");
        click("addEceptionBtn");
        click("excOKBtn");
        click("scanInforOKBtn");
    }
};

TEST_F(Exceptions, TakeTheMarkedFilesOutAfterAQuestion) {
    click("markAll");
    click("addEceptionBtn");
    ASSERT_TRUE(window().exceptionWindow->isVisible());
    EXPECT_EQ(positionOf(window().exceptionWindow), QPoint(300, 200));
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(
        textOf("exceptionTextField"),
        "The selected files will be excluded from all future scans. Press \"OK\" to exclude.");
    click("excOKBtn");
    EXPECT_FALSE(window().exceptionWindow->isVisible());
    EXPECT_EQ(information(),
              (Lines{"Information", "\nSuccessfully added 4 files to exceptions.", "", ""}));
    EXPECT_EQ(storedExceptions(),
              (Lines{found("a2.jpg"), found("b2.jpg"), found("b3.jpg"), found("c2.txt")}));
    EXPECT_EQ(covers(), 1);  // the information window's
    EXPECT_EQ(list().rowCount(), 1);
    EXPECT_TRUE(isEnabled("removeExceptionBtn"));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    click("scanInforOKBtn");
    EXPECT_EQ(screen(), QStringLiteral("4"));
}

/// It has one marked file more than was counted.
TEST_F(Exceptions, OfAWholeSetLeaveTheMarksAtZero) {
    select(0, 1);
    clickFileBox(0);
    clickBox(tree().indexOfSet(0, 1));
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(storedExceptions(), (Lines{found("b1.jpg"), found("b2.jpg"), found("b3.jpg")}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.00 KB");
    click("scanInforOKBtn");
    select(1, 0);
    clickFileBox(1);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
}

TEST_F(Exceptions, LeaveThePreviewTogetherWithTheirRows) {
    select(0, 1);
    table().selectFile(1);
    clickFileBox(1);
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(textOf("selectedPath"), "Path: " + found("b1.jpg"));
    EXPECT_EQ(table().selectedRow(), 0);
}

TEST_F(Exceptions, LeaveTheButtonsOfNothingMarked) {
    excludeAll();
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("sortPopupBtn"));
    for (const char* name : {"unMarkAll", "addEceptionBtn"}) {
        EXPECT_FALSE(isEnabled(name)) << name;
    }
    EXPECT_FALSE(window().results->sendToRecycle->isEnabled());
    EXPECT_FALSE(window().results->deletePermanently->isEnabled());
}

TEST_F(Exceptions, AreLeftAsTheyAreIfTheQuestionIsCancelled) {
    click("markAll");
    click("addEceptionBtn");
    click("excCancelBtn");
    EXPECT_EQ(covers(), 0);
    EXPECT_FALSE(window().exceptionWindow->isVisible());
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(storedExceptions(), Lines());
    EXPECT_EQ(list().rowCount(), 2);
}

TEST_F(Exceptions, ShowNoQuestionIfNothingIsMarked) {
    window().results->addEceptionBtn->setEnabled(true);
    click("addEceptionBtn");
    EXPECT_FALSE(window().exceptionWindow->isVisible());
    EXPECT_FALSE(isEnabled("addEceptionBtn"));
    EXPECT_EQ(covers(), 0);
}

TEST_F(Exceptions, ChangeNothingIfTheMarksWereClearedMeanwhile) {
    click("markAll");
    click("addEceptionBtn");
    delegate->marking().unMarkAllClicked();
    click("excOKBtn");
    EXPECT_FALSE(window().exceptionWindow->isVisible());
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(storedExceptions(), Lines());
}

TEST_F(Exceptions, OfSimilarPhotosAreAskedForInOtherWords) {
    click("markAll");
    delegate->session().exact = false;
    delegate->exceptions().addExceptions();
    EXPECT_EQ(textOf("exceptionTextField"),
              "The selected similar photos will be excluded from all future scans. Press \"Ok\" to "
              "exclude.");
}

TEST_F(Exceptions, AreForgottenAfterAQuestion) {
    click("markAll");
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    click("removeExceptionBtn");
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].informativeText,
              QStringLiteral("Are you sure, you want to remove all exceptions?"));
    EXPECT_EQ(alerts.shown[0].buttons, (QStringList{QStringLiteral("YES"), QStringLiteral("NO")}));
    alerts.press(1);
    EXPECT_EQ(storedExceptions().size(), 4U);
    click("removeExceptionBtn");
    alerts.press(0);
    EXPECT_EQ(storedExceptions(), Lines());
    EXPECT_FALSE(isEnabled("removeExceptionBtn"));
    EXPECT_EQ(information(), (Lines{"Information", "\nAll exceptions has been removed.", "", ""}));
}

TEST_F(Exceptions, AreSkippedByTheNextScan) {
    click("markAll");
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    scanAgain();
    EXPECT_EQ(modal().extensionCount(), 0U);
}

TEST_F(Exceptions, AreScannedAgainOnceTheyAreForgotten) {
    excludeAll();
    click("removeExceptionBtn");
    alerts.press(0);
    click("scanInforOKBtn");
    scanAgain();
    EXPECT_EQ(setOf(0, 0).files().size(), 2U);
    EXPECT_EQ(setOf(0, 1).files().size(), 3U);
}

TEST_F(Exceptions, DoNotApplyToAMovedFile) {
    excludeAll();
    std::filesystem::rename(found("c2.txt"), found("c9.txt"));
    scanAgain();
    ASSERT_EQ(modal().extensionCount(), 1U);
    EXPECT_EQ(setOf(0, 0).files()[0]->filePath(), found("c1.txt"));
    EXPECT_EQ(setOf(0, 0).files()[1]->filePath(), found("c9.txt"));
}

/// Another instance has added it.
TEST_F(Exceptions, OfAFileThatIsListedAlreadyCountItAgainAndListItOnce) {
    ExceptionFile another(folder.pathOf("support"));
    ASSERT_FALSE(another.addExceptions({found("a2.jpg")}).has_value());
    click("markAll");
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(information()[1], "\nSuccessfully added 4 files to exceptions.");
    EXPECT_EQ(storedExceptions(),
              (Lines{found("a2.jpg"), found("b2.jpg"), found("b3.jpg"), found("c2.txt")}));
}

/// The totals of the views are not lowered, so not everything counts as marked.
TEST_F(Exceptions, LeaveMarkAllEnabledWhenAllIsMarked) {
    select(0, 1);
    clickFileBox(1);
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    click("markAll");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 3");
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("unMarkAll"));
}

TEST_F(Exceptions, CanBeVanishedFiles) {
    click("markAll");
    std::filesystem::remove(found("c2.txt"));
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(information()[1], "\nSuccessfully added 4 files to exceptions.");
    EXPECT_EQ(storedExceptions().back(), found("c2.txt"));
    EXPECT_FALSE(isThere("c2.txt"));
}

/// Only marking files one by one marks them all; the counters are then one short.
TEST_F(Exceptions, MayBeEveryFileOfASet) {
    select(0, 1);
    clickFileBox(0);
    clickBox(tree().indexOfSet(0, 1));
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(information()[1], "\nSuccessfully added 3 files to exceptions.");
    EXPECT_EQ(storedExceptions(), (Lines{found("b1.jpg"), found("b2.jpg"), found("b3.jpg")}));
    EXPECT_EQ(setOf(0, 1).files().size(), 0U);
    EXPECT_EQ(list().rowCount(), 0);
    for (const char* name : {"b1.jpg", "b2.jpg", "b3.jpg"}) {
        EXPECT_TRUE(isThere(name)) << name;
    }
    click("scanInforOKBtn");
    scanAgain();
    EXPECT_EQ(modal().totalFiles(), 2U);
}

class StoredExceptions : public ResultFixture {};

TEST_F(StoredExceptions, EnableTheButtonThatForgetsThem) {
    launch();
    EXPECT_FALSE(window().results->removeExceptionBtn->isEnabled());
    delegate.reset();
    ExceptionFile file(folder.pathOf("support"));
    EXPECT_FALSE(file.addExceptions({"/a"}).has_value());
    launch();
    EXPECT_TRUE(window().results->removeExceptionBtn->isEnabled());
    delegate.reset();
    EXPECT_FALSE(file.removeExceptions().has_value());
    launch();
    EXPECT_FALSE(window().results->removeExceptionBtn->isEnabled());
}

}  // namespace
}  // namespace tarvin
