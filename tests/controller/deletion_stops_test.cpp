#include "controller/deletion_fixture.h"
#include "controller/result_texts.h"

#include <thread>

namespace tarvin {
namespace {

class DeletionStop : public DeletionFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    /// Presses a button of the deletion panel while the run is in its first set, and waits until
    /// that set is finished and the run is paused.
    void waitBehindFirstSetAfter(const char* button) {
        click("markAll");
        deleteAndHoldAt("a2.jpg");
        click(button);
        barrier.open();
        EXPECT_TRUE(comesTrue([this] { return !isThere("a2.jpg"); }));
        ASSERT_TRUE(isPaused());
    }

    /// Begins a run and stops it before it can move a file.
    void stopAtOnce() {
        click("markAll");
        click("finishButton");
        click("stopDeleteBtn");
        alerts.press(0);
        ASSERT_TRUE(reported());
        EXPECT_EQ(information()[1], "Duplicates Cleaned: 0");
        EXPECT_TRUE(isThere("a2.jpg"));
    }

    /// Stops a run in its first set and closes its report.
    void stopInFirstSet() {
        click("markAll");
        ASSERT_NO_FATAL_FAILURE(deleteAndStopAt("a2.jpg"));
        click("scanInforOKBtn");
    }

    /// Ends the product while a run is blocked in a set; the run continues only once the end waits
    /// for it.
    void endDuringASet() {
        std::atomic<bool> ends{false};
        const pid_t mainThread = ::gettid();
        std::thread opener([&] {
            EXPECT_TRUE(waitUntil([&] { return ends && isAsleep(mainThread); }));
            barrier.open();
        });
        EXPECT_TRUE(window().close());
        ends = true;
        delegate.reset();
        opener.join();
    }
};

TEST_F(DeletionStop, APauseTakesEffectBetweenTwoSets) {
    click("markAll");
    deleteAndHoldAt("a2.jpg");
    click("pauseResumeBtn");
    const DeletionPanel& panel = *window().deletionPreview;
    EXPECT_EQ(panel.pauseResumeBtn->title(), QStringLiteral("Resume"));
    EXPECT_EQ(panel.pauseResumeBtn->attributedTitle(),
              setCenterAttributes(Qt::white, QStringLiteral("Resume"), 14));
    EXPECT_EQ(panel.pauseResumeBtn->accessibleName(), QStringLiteral("Resume"));
    EXPECT_FALSE(isEnabled("stopDeleteBtn"));
    barrier.open();
    // The current set is finished.
    EXPECT_TRUE(comesTrue([this] { return !isThere("a2.jpg"); }));
    ASSERT_TRUE(isPaused());
    EXPECT_TRUE(delegate->deletion().isRunning());
    EXPECT_TRUE(isThere("b2.jpg"));
    click("pauseResumeBtn");
    EXPECT_EQ(panel.pauseResumeBtn->title(), QStringLiteral("Pause"));
    EXPECT_TRUE(isEnabled("stopDeleteBtn"));
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
}

TEST_F(DeletionStop, AsksAndStillStoresAndReports) {
    click("markAll");
    deleteAndHoldAt("a2.jpg");
    click("stopDeleteBtn");
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Tarvin Duplicate File Remover"));
    EXPECT_EQ(alerts.shown[0].informativeText,
              QStringLiteral("Are you sure, you want to stop this process?"));
    EXPECT_EQ(alerts.shown[0].buttons, (QStringList{QStringLiteral("YES"), QStringLiteral("NO")}));
    EXPECT_EQ(alerts.shown[0].escapeButton, 1);
    EXPECT_FALSE(isEnabled("pauseResumeBtn"));
    alerts.press(0);
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 1");
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 1);
    EXPECT_FALSE(isThere("a2.jpg"));
    EXPECT_TRUE(isThere("b2.jpg"));
    EXPECT_TRUE(isThere("c2.txt"));
}

TEST_F(DeletionStop, RightAfterTheClickMovesNothing) {
    ASSERT_NO_FATAL_FAILURE(stopAtOnce());
    EXPECT_FALSE(delegate->deletion().isRunning());
}

TEST_F(DeletionStop, ByTheEndOfTheProgramRightAfterTheClickMovesNothing) {
    click("markAll");
    click("finishButton");
    delegate.reset();
    EXPECT_TRUE(isThere("a2.jpg"));
    EXPECT_TRUE(isThere("b2.jpg"));
    EXPECT_TRUE(isThere("c2.txt"));
}

TEST_F(DeletionStop, EndsTheWaitForAnotherCleanUp) {
    const LockFile turns(folder.pathOf("support/clean-up.turn"));
    const auto turn = turns.tryTake(0);
    ASSERT_TRUE(turn);
    ASSERT_NO_FATAL_FAILURE(stopAtOnce());
}

TEST_F(DeletionStop, IsPossibleWhileTheJournalIsLocked) {
    {
        const auto others = FolderLock::take(folder.pathOf("support"));
        ASSERT_TRUE(others);
        click("markAll");
        click("finishButton");
        EXPECT_TRUE(delegate->deletion().isRunning());
        EXPECT_TRUE(isEnabled("stopDeleteBtn"));
    }
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
}

TEST_F(DeletionStop, EndsEveryLaterRunAtOnce) {
    ASSERT_NO_FATAL_FAILURE(stopInFirstSet());
    std::filesystem::remove(folder.pathOf("support/data.plist"));
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_EQ(information(),
              (Lines{"Information", "Duplicates Cleaned: 0", "Space Regained: 0.00 KB ", ""}));
    // The totals are still written.
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("support/data.plist")));
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 1);
    EXPECT_EQ(storedTotals().alreadyDeletedSize(), 3U);
}

TEST_F(DeletionStop, AskedForDuringAPauseTitlesTheButtonPause) {
    ASSERT_NO_FATAL_FAILURE(waitBehindFirstSetAfter("pauseResumeBtn"));
    const DeletionPanel& panel = *window().deletionPreview;
    ASSERT_EQ(panel.pauseResumeBtn->title(), QStringLiteral("Resume"));
    delegate->deletion().stopDeletionProcess();
    EXPECT_EQ(panel.pauseResumeBtn->attributedTitle(),
              setCenterAttributes(Qt::white, QStringLiteral("Pause"), 14));
    EXPECT_EQ(panel.pauseResumeBtn->accessibleName(), QStringLiteral("Pause"));
    alerts.press(1);
    ASSERT_TRUE(reported());
}

TEST_F(DeletionStop, EndsTheRunsOfALaterScanToo) {
    ASSERT_NO_FATAL_FAILURE(stopInFirstSet());
    scanAgain();
    click("scanInforOKBtn");
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 0");
    EXPECT_TRUE(isThere("b2.jpg"));
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 1);
}

TEST_F(DeletionStop, AnsweredWithNoResumesTheRun) {
    ASSERT_NO_FATAL_FAILURE(waitBehindFirstSetAfter("stopDeleteBtn"));
    EXPECT_TRUE(delegate->deletion().isRunning());
    EXPECT_TRUE(isThere("b2.jpg"));
    alerts.press(1);
    EXPECT_TRUE(isEnabled("pauseResumeBtn"));
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
}

TEST_F(DeletionStop, WithdrawsItsQuestionWithTheRun) {
    select(1, 0);
    clickFileBox(1);
    deleteAndHoldAt("c2.txt");
    click("stopDeleteBtn");
    EXPECT_EQ(alerts.open(), 1U);
    barrier.open();
    ASSERT_TRUE(reported());
    EXPECT_EQ(alerts.open(), 0U);
    alerts.press(0);
    click("scanInforOKBtn");
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
}

/// It runs unpaused, with both buttons of its panel enabled.
TEST_F(DeletionStop, WithAQuestionThatWasWithdrawnLeavesTheNextRunAlone) {
    select(1, 0);
    clickFileBox(1);
    deleteAndHoldAt("c2.txt");
    click("stopDeleteBtn");
    barrier.open();
    ASSERT_TRUE(reported());
    click("scanInforOKBtn");
    click("markAll");
    click("finishButton");
    EXPECT_TRUE(isEnabled("pauseResumeBtn"));
    EXPECT_TRUE(isEnabled("stopDeleteBtn"));
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 3");
}

/// The run is blocked before the first of three marked files of a set.
TEST_F(DeletionStop, ClosingTheWindowFinishesTheCurrentSetAndStoresTotals) {
    write("b4.jpg", "three");
    scanAgain();
    click("scanInforOKBtn");
    click("markAll");
    deleteAndHoldAt("b2.jpg");
    endDuringASet();
    for (const char* moved : {"a2.jpg", "b2.jpg", "b3.jpg", "b4.jpg"}) {
        EXPECT_FALSE(isThere(moved)) << moved;
    }
    for (const char* kept : {"a1.jpg", "b1.jpg", "c1.txt", "c2.txt"}) {
        EXPECT_TRUE(isThere(kept)) << kept;
    }
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 4);
    EXPECT_EQ(storedTotals().alreadyDeletedSize(), 18U);
}

TEST_F(DeletionStop, ClosingThePausedWindowMovesNothingMore) {
    ASSERT_NO_FATAL_FAILURE(waitBehindFirstSetAfter("pauseResumeBtn"));
    EXPECT_TRUE(window().close());
    delegate.reset();
    EXPECT_TRUE(isThere("b2.jpg"));
    EXPECT_TRUE(isThere("c2.txt"));
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 1);
}

TEST_F(DeletionStop, ClosingTheWindowUnderTheQuestionMovesNothingMore) {
    ASSERT_NO_FATAL_FAILURE(waitBehindFirstSetAfter("stopDeleteBtn"));
    EXPECT_TRUE(window().close());
    delegate.reset();
    EXPECT_TRUE(isThere("b2.jpg"));
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 1);
}

/// Two extensions of three sets with three files each, two of them marked; the run is blocked in
/// each of the six sets in turn.
class DeletionStopAtEachSet : public DeletionFixture, public testing::WithParamInterface<int> {
 protected:
    static constexpr int sets = 6;
    static constexpr int markedPerSet = 2;
    static constexpr int bytes = 10;

    void SetUp() override {
        for (int set = 0; set < sets; ++set) {
            for (int number = 0; number < 3; ++number) {
                write(nameOf(set, number), std::string(bytes, static_cast<char>('a' + set)));
            }
        }
        scanAndReview();
        click("markAll");
        deleteAndHoldAt(nameOf(GetParam(), 1));
    }

    [[nodiscard]] static std::string nameOf(int set, int number) {
        return "s" + std::to_string(set) + "-" + std::to_string(number) +
               (set < sets / 2 ? ".jpg" : ".txt");
    }

    [[nodiscard]] static std::uint64_t bytesOf(int done) {
        return static_cast<std::uint64_t>(done) * markedPerSet * bytes;
    }

    /// Only the first `done` sets were deleted: on disk, in the report and in the totals.
    void expectDone(int done) {
        ASSERT_TRUE(reported());
        const int count = done * markedPerSet;
        EXPECT_EQ(information(),
                  (Lines{"Information", "Duplicates Cleaned: " + std::to_string(count),
                         ResultTexts::spaceRegained(bytesOf(done)).toStdString(), ""}));
        for (int set = 0; set < sets; ++set) {
            EXPECT_TRUE(isThere(nameOf(set, 0))) << set;
            EXPECT_EQ(isThere(nameOf(set, 1)), set >= done) << set;
            EXPECT_EQ(isThere(nameOf(set, 2)), set >= done) << set;
            EXPECT_EQ(setOf(set / 3, set % 3).files().size(), set < done ? 1U : 3U) << set;
        }
        EXPECT_EQ(storedTotals().alreadyDeletedCount(), count);
        EXPECT_EQ(storedTotals().alreadyDeletedSize(), bytesOf(done));
        EXPECT_EQ(textOf("selectedCount"),
                  "Marked Duplicate Files: " + std::to_string(sets * markedPerSet - count));
    }
};

TEST_P(DeletionStopAtEachSet, FinishesTheCurrentSet) {
    click("stopDeleteBtn");
    alerts.press(0);
    barrier.open();
    expectDone(GetParam() + 1);
}

/// If paused before a set, it still moves that set; before an extension, it moves nothing more.
TEST_P(DeletionStopAtEachSet, AnsweredDuringAPauseStillMovesTheNextSet) {
    click("stopDeleteBtn");
    barrier.open();
    EXPECT_TRUE(comesTrue([this] { return !isThere(nameOf(GetParam(), 2)); }));
    const bool isLast = GetParam() == sets - 1;
    const bool isLastOfExtension = GetParam() % 3 == 2;
    if (isLast) {
        ASSERT_TRUE(reported());
    } else {
        ASSERT_TRUE(isPaused());
    }
    alerts.press(0);
    expectDone(GetParam() + (isLastOfExtension ? 1 : 2));
}

INSTANTIATE_TEST_SUITE_P(Sets, DeletionStopAtEachSet, testing::Range(0, 6));

}  // namespace
}  // namespace tarvin
