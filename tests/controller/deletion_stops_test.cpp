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
    /// that set is finished and the run waits behind it.
    void waitBehindFirstSetAfter(const char* button) {
        click("markAll");
        deleteAndHoldAt("a2.jpg");
        click(button);
        barrier.open();
        EXPECT_TRUE(comesTrue([this] { return !isThere("a2.jpg"); }));
        ASSERT_TRUE(isPaused());
    }

    /// Stops a run in its first set and puts its report away.
    void stopInFirstSet() {
        click("markAll");
        ASSERT_NO_FATAL_FAILURE(deleteAndStopAt("a2.jpg"));
        click("scanInforOKBtn");
    }

    /// Ends the product while a run is held in a set, and lets the run go on only when the end
    /// waits for it.
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
    // The set in hand is finished.
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

TEST_F(DeletionStop, EndsTheWaitForAnotherCleanUp) {
    const LockFile turns(folder.pathOf("support/clean-up.turn"));
    const auto turn = turns.tryTake(0);
    ASSERT_TRUE(turn);
    click("markAll");
    click("finishButton");
    click("stopDeleteBtn");
    alerts.press(0);
    ASSERT_TRUE(reported());
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 0");
    EXPECT_TRUE(isThere("a2.jpg"));
}

TEST_F(DeletionStop, IsPossibleWhileSomebodyElseHasTheJournal) {
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
    // The totals are written all the same.
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

TEST_F(DeletionStop, GoesOnIfTheQuestionIsAnsweredWithNo) {
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

/// Nothing holds it and no button of its panel is disabled.
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

/// In a set of three marked files, before the first of which it is held.
TEST_F(DeletionStop, ClosingTheWindowFinishesTheSetInHandAndStoresTheTotals) {
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

/// Two extensions of three sets of three files each, two of them marked, held in each of the six
/// sets in turn.
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

    /// The first `done` sets were deleted and nothing else, and everybody says so.
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

TEST_P(DeletionStopAtEachSet, FinishesTheSetInHand) {
    click("stopDeleteBtn");
    alerts.press(0);
    barrier.open();
    expectDone(GetParam() + 1);
}

/// Before a set it waits there and does it; before an extension it does nothing more.
TEST_P(DeletionStopAtEachSet, AnsweredWhileTheRunWaitsStillDoesThatSet) {
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
