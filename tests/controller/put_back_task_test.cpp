#include "controller/put_back_fixture.h"
#include "interface/exception_list_panel.h"
#include "interface/home_screen.h"
#include "store/clean_up_journal.h"
#include "support/file_size_limit.h"

namespace tarvin {
namespace {

class PutBackTest : public PutBackFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    void putBack() {
        ASSERT_TRUE(opens());
        ASSERT_TRUE(question().isVisible());
        click("putBackOk");
        ASSERT_TRUE(comesTrue([this] { return hasResult(); }));
    }

    [[nodiscard]] bool hasResult() {
        return report().isVisible() || window().informationWindow->isVisible();
    }
};

TEST_F(PutBackTest, ShowsTheFilesAndTheirPlaces) {
    cleanUp();
    ASSERT_TRUE(opens());
    ASSERT_TRUE(question().isVisible());
    const std::string original = folder.pathOf("found");
    EXPECT_EQ(rows(), (std::vector<Lines>{{"a2.jpg", original, "Ready"},
                                          {"b2.jpg", original, "Ready"},
                                          {"b3.jpg", original, "Ready"},
                                          {"c2.txt", original, "Ready"}}));
    EXPECT_EQ(textOf("putBackDate"), "31 January 2026, 00:00");
    EXPECT_EQ(textOf("putBackTotal"), "4 files (0.02 KB)");
    EXPECT_EQ(textOf("putBackOutcome"), "4 files will be put back.");
    EXPECT_EQ(textOf("putBackCannot"), "");
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(window().focusWidget(), question().putBackOk);
}

TEST_F(PutBackTest, BringsEverythingBackAndSaysSo) {
    cleanUp();
    putBack();
    EXPECT_EQ(information(),
              (Lines{"Put Back Last Clean-up", "Files Put Back: 4", "Size: 0.02 KB", ""}));
    EXPECT_EQ(positionOf(window().informationWindow), QPoint(250, 200));
    EXPECT_FALSE(question().isVisible());
    for (const char* name : {"a2.jpg", "b2.jpg", "b3.jpg", "c2.txt"}) {
        EXPECT_TRUE(isThere(name)) << name;
    }
    EXPECT_EQ(contentOf(found("b3.jpg")), "three");
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 0);
    EXPECT_EQ(delegate->session().alreadyDeletedCount(), 0);
    EXPECT_EQ(covers(), 1);
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    click("buttonHomePage");
    EXPECT_FALSE(window().home->cleanHistory->isVisible());
}

TEST_F(PutBackTest, LowersTheTotalsByWhatCameBack) {
    cleanUp();
    std::filesystem::remove_all(folder.pathOf("data/Trash/files/a2.jpg"));
    putBack();
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 1);
    EXPECT_EQ(storedTotals().alreadyDeletedSize(), 3U);
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 1 (0.00 KB)");
}

TEST_F(PutBackTest, ListsFilesThatCannotComeBackFirst) {
    cleanUp();
    write("b2.jpg", "something else");
    std::filesystem::remove(folder.pathOf("data/Trash/files/c2.txt"));
    ASSERT_TRUE(opens());
    const std::string original = folder.pathOf("found");
    EXPECT_EQ(rows(), (std::vector<Lines>{
                          {"c2.txt", original, "No longer in the Trash"},
                          {"b2.jpg", original,
                           "Something else is there now: will be named \"b2 (put back).jpg\""},
                          {"a2.jpg", original, "Ready"},
                          {"b3.jpg", original, "Ready"}}));
    EXPECT_EQ(textOf("putBackOutcome"), "3 files will be put back.");
    EXPECT_EQ(textOf("putBackCannot"), "1 file cannot be put back.");
    const QAbstractItemModel& model = *question().putBackTable->model();
    EXPECT_TRUE(model.index(0, 0).data(ListTable::mutedRole).toBool());
    EXPECT_FALSE(model.index(1, 0).data(ListTable::mutedRole).toBool());
    EXPECT_TRUE(model.index(2, 1).data(ListTable::mutedRole).toBool());
    EXPECT_EQ(model.index(2, 0).data(Qt::AccessibleTextRole).toString().toStdString(),
              "a2.jpg, to " + original + ", Ready");
}

TEST_F(PutBackTest, ReportsWhatDidNotComeBackAndWhy) {
    cleanUp();
    write("b2.jpg", "something else");
    std::filesystem::remove(folder.pathOf("data/Trash/files/c2.txt"));
    putBack();
    ASSERT_TRUE(report().isVisible());
    EXPECT_EQ(textOf("putBackReportCount"), "Files Put Back: 3");
    EXPECT_EQ(textOf("putBackReportSize"), "Size: 0.01 KB");
    EXPECT_EQ(textOf("putBackReportFailed"), "1 file could not be put back:");
    EXPECT_EQ(failures(),
              (std::vector<Lines>{{"c2.txt", folder.pathOf("found"), "No longer in the Trash"}}));
    EXPECT_EQ(textOf("putBackReportHint"), "Scan again to see these files in the results.");
    EXPECT_EQ(contentOf(found("b2.jpg")), "something else");
    EXPECT_EQ(contentOf(found("b2 (put back).jpg")), "three");
    click("putBackReportOk");
    EXPECT_FALSE(report().isVisible());
    EXPECT_EQ(covers(), 0);
}

TEST_F(PutBackTest, MakesAFolderAgainThatIsGone) {
    write("below/d1.png", "folder");
    write("below/d2.png", "folder");
    write("d3.png", "folder");
    scanAgain();
    click("scanInforOKBtn");
    cleanUp();
    std::filesystem::remove_all(found("below"));
    ASSERT_TRUE(opens());
    EXPECT_EQ(rows().front()[2], "The folder is gone: will be made again");
    click("putBackOk");
    ASSERT_TRUE(comesTrue([this] { return hasResult(); }));
    EXPECT_TRUE(isThere("below/d2.png"));
}

TEST_F(PutBackTest, CancelLeavesEverythingInTheTrash) {
    cleanUp();
    ASSERT_TRUE(opens());
    QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(question().isVisible());
    EXPECT_EQ(covers(), 0);
    EXPECT_FALSE(isThere("a2.jpg"));
    // The panel can be opened again.
    EXPECT_TRUE(opens());
    EXPECT_TRUE(question().isVisible());
}

TEST_F(PutBackTest, SaysThatNothingHasBeenCleanedUp) {
    ASSERT_TRUE(opens());
    EXPECT_EQ(information(), (Lines{"Put Back Last Clean-up", "There is nothing to put back.",
                                    "Nothing has been cleaned up yet.", ""}));
    EXPECT_EQ(textOf("scanInfoCount"), "There is nothing to put back.");
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(screen(), QStringLiteral("4"));
}

TEST_F(PutBackTest, SaysThatItHasBeenPutBackAlready) {
    cleanUp();
    putBack();
    click("scanInforOKBtn");
    ASSERT_TRUE(opens());
    EXPECT_EQ(information()[2], "The last clean-up has been put back already.");
}

TEST_F(PutBackTest, SaysThatTheTrashHasBeenEmptied) {
    cleanUp();
    std::filesystem::remove_all(folder.pathOf("data/Trash/files"));
    std::filesystem::remove_all(folder.pathOf("data/Trash/info"));
    ASSERT_TRUE(opens());
    EXPECT_EQ(information()[2], "Its files are no longer in the Trash.");
}

TEST_F(PutBackTest, KeysDoNothingUntilThePanelIsShown) {
    cleanUp();
    holdExamination();
    QTest::keyClick(window().windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    ASSERT_FALSE(question().isVisible());
    QTest::keyClick(window().windowHandle(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(window().exceptionListWindow->isVisible());
    barrier.open();
    ASSERT_TRUE(comesTrue([this] { return !textOf("putBackTotal").empty(); }));
    EXPECT_FALSE(window().exceptionListWindow->isVisible());
}

TEST_F(PutBackTest, OfNothingOnAnotherScreenStaysThere) {
    click("buttonHomePage");
    delegate->locations().openWith({folder.pathOf("found")});
    ASSERT_EQ(screen(), QStringLiteral("2"));
    ASSERT_TRUE(opens());
    click("scanInforOKBtn");
    EXPECT_EQ(screen(), QStringLiteral("2"));
}

TEST_F(PutBackTest, ShowsItsProgressWhenItTakesLong) {
    cleanUp();
    ASSERT_TRUE(opens());
    holdPutBackOf("c2.txt");
    click("putBackOk");
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    ASSERT_TRUE(comesTrue([this] { return window().putBackProgress->isVisible(); }));
    EXPECT_FALSE(question().isVisible());
    EXPECT_EQ(positionOf(window().putBackProgress), QPoint(205, 114));
    EXPECT_TRUE(comesTrue([this] {
        return textOf("putBackProcessing") ==
               "3 of 4 files. Nothing that is there now is replaced.";
    }));
    EXPECT_EQ(window().putBackProgress->putBackIndicator->total(), 4U);
    EXPECT_EQ(covers(), 1);
    barrier.open();
    ASSERT_TRUE(comesTrue([this] { return hasResult(); }));
    EXPECT_FALSE(window().putBackProgress->isVisible());
}

TEST_F(PutBackTest, AStopFinishesTheCurrentFileAndReportsTheRest) {
    cleanUp();
    ASSERT_TRUE(opens());
    holdPutBackOf("b2.jpg");
    click("putBackOk");
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    ASSERT_TRUE(comesTrue([this] { return window().putBackProgress->isVisible(); }));
    QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
    barrier.open();
    ASSERT_TRUE(comesTrue([this] { return hasResult(); }));
    ASSERT_TRUE(report().isVisible());
    EXPECT_TRUE(isThere("a2.jpg"));
    EXPECT_TRUE(isThere("b2.jpg"));
    EXPECT_FALSE(isThere("b3.jpg"));
    const std::string original = folder.pathOf("found");
    EXPECT_EQ(failures(), (std::vector<Lines>{{"b3.jpg", original, "Stopped before its turn"},
                                              {"c2.txt", original, "Stopped before its turn"}}));
    click("putBackReportOk");
    // They can be put back later.
    ASSERT_TRUE(opens());
    EXPECT_EQ(textOf("putBackOutcome"), "2 files will be put back.");
}

TEST_F(PutBackTest, OverTheHomeScreenGivesNoHintToScanAgain) {
    cleanUp();
    std::filesystem::remove(folder.pathOf("data/Trash/files/c2.txt"));
    click("buttonHomePage");
    putBack();
    ASSERT_TRUE(report().isVisible());
    EXPECT_EQ(textOf("putBackReportHint"), "");
    click("putBackReportOk");
    EXPECT_TRUE(window().home->cleanHistory->isVisible());
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 1 (0.01 KB)");
}

/// The drive has not responded yet.
TEST_F(PutBackTest, ListsTheFilesWhileTheyAreChecked) {
    cleanUp();
    holdExamination();
    click("buttonMore");
    ASSERT_TRUE(comesTrue([this] { return window().moreMenu->isVisible(); }));
    choose(window().moreMenu, window().putBackItem);
    ASSERT_TRUE(comesTrue([this] { return question().isVisible() && rows().size() == 4; }));
    const std::string original = folder.pathOf("found");
    EXPECT_EQ(rows(), (std::vector<Lines>{{"a2.jpg", original, "Checking…"},
                                          {"b2.jpg", original, "Checking…"},
                                          {"b3.jpg", original, "Checking…"},
                                          {"c2.txt", original, "Checking…"}}));
    const QAbstractItemModel& model = *question().putBackTable->model();
    EXPECT_TRUE(model.index(0, 1).data(ListTable::mutedRole).toBool());
    EXPECT_FALSE(model.index(0, 0).data(ListTable::mutedRole).toBool());
    EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleTextRole).toString().toStdString(),
              "a2.jpg, to " + original + ", Checking…");
    EXPECT_EQ(textOf("putBackDate"), "31 January 2026, 00:00");
    EXPECT_EQ(textOf("putBackOutcome"), "Checking…");
    EXPECT_FALSE(isEnabled("putBackOk"));
    barrier.open();
    ASSERT_TRUE(comesTrue([this] { return isEnabled("putBackOk"); }));
    EXPECT_EQ(rows().size(), 4U);
    EXPECT_EQ(rows().front(), (Lines{"a2.jpg", original, "Ready"}));
}

TEST_F(PutBackTest, CancelledWhileFilesAreCheckedShowsNoneOfThemTheNextTime) {
    cleanUp();
    holdExamination();
    click("buttonMore");
    ASSERT_TRUE(comesTrue([this] { return window().moreMenu->isVisible(); }));
    choose(window().moreMenu, window().putBackItem);
    ASSERT_TRUE(comesTrue([this] { return question().isVisible() && rows().size() == 4; }));
    click("putBackCancel");
    EXPECT_EQ(covers(), 0);
    EXPECT_TRUE(rows().empty());
    barrier.open();
    // It can be opened again once the thread has ended.
    ASSERT_TRUE(comesTrue([this] {
        window().putBackItem->trigger();
        return question().isVisible() && isEnabled("putBackOk");
    }));
    EXPECT_EQ(rows().front()[2], "Ready");
}

TEST_F(PutBackTest, ReportsSuccessAndAJournalFailure) {
    cleanUp();
    ASSERT_TRUE(opens());
    FileSizeLimit room;
    room.set(1000);
    click("putBackOk");
    ASSERT_TRUE(comesTrue([this] { return hasResult(); }));
    EXPECT_TRUE(isThere("c2.txt"));
    EXPECT_EQ(information(), (Lines{"Put Back Last Clean-up", "Files Put Back: 4", "Size: 0.02 KB",
                                    "Not all was done or written down: File too large"}));
}

TEST_F(PutBackTest, ReportsFailedFilesAndAJournalFailure) {
    cleanUp();
    std::filesystem::remove(folder.pathOf("data/Trash/files/c2.txt"));
    ASSERT_TRUE(opens());
    FileSizeLimit room;
    room.set(1000);
    click("putBackOk");
    ASSERT_TRUE(comesTrue([this] { return hasResult(); }));
    ASSERT_TRUE(report().isVisible());
    EXPECT_EQ(textOf("putBackReportCount"), "Files Put Back: 3");
    EXPECT_EQ(failures(),
              (std::vector<Lines>{{"c2.txt", folder.pathOf("found"), "No longer in the Trash"}}));
    EXPECT_EQ(textOf("putBackReportHint"), "Not all was done or written down: File too large");
}

/// Its panel would cover theirs.
TEST_F(PutBackTest, CannotBeOpenedWhileFilesAreMoved) {
    click("markAll");
    deleteAndHoldAt("a2.jpg");
    EXPECT_FALSE(isEnabled("buttonMore"));
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(covers(), 1);
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_TRUE(isEnabled("buttonMore"));
}

TEST_F(PutBackTest, EndingTheProductDuringARunFinishesTheCurrentFile) {
    cleanUp();
    ASSERT_TRUE(opens());
    holdPutBackOf("b2.jpg");
    click("putBackOk");
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    barrier.open();
    delegate.reset();
    EXPECT_TRUE(isThere("a2.jpg"));
    EXPECT_TRUE(isThere("b2.jpg"));
    const std::int64_t left = storedTotals().alreadyDeletedCount();
    EXPECT_EQ(left, (isThere("b3.jpg") ? 0 : 1) + (isThere("c2.txt") ? 0 : 1));
}

TEST_F(PutBackTest, SaysWhyItCannotBegin) {
    platform.setApplicationSupportFolder(std::nullopt);
    ASSERT_TRUE(opens());
    EXPECT_EQ(information()[1], "The last clean-up could not be put back.");
    EXPECT_NE(information()[2], "");
}

}  // namespace
}  // namespace tarvin
