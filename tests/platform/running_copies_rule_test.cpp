#include "support/fake_running_copies.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <vector>

namespace tarvin {
namespace {

using Copies = std::vector<RunningCopy>;

class SingleCopyRule : public ::testing::Test {
 protected:
    /// Joins as the copy `number` beside the others, in order, and applies the rule.
    std::optional<RunningCopy> apply(std::uint64_t number, Copies others) {
        copies_.setOthers(std::move(others), {number});
        const auto joined = copies_.join({.quit = [this] { ++quits_; },
                                          .comeToFront = [this](const std::string&) { ++fronts_; },
                                          .openFolders = {}});
        EXPECT_TRUE(joined);
        return keepFirstCopyOnly(copies_, "token");
    }

    FakeRunningCopies copies_;
    int quits_ = 0;
    int fronts_ = 0;
};

TEST_F(SingleCopyRule, LeavesTheOnlyCopyAlone) {
    EXPECT_EQ(apply(7, {}), RunningCopy{7});
    EXPECT_EQ(copies_.askedToQuit(), Copies{});
    EXPECT_EQ(copies_.broughtToFront(), Copies{});
    EXPECT_EQ(quits_, 0);
}

TEST_F(SingleCopyRule, EndsTheLaterOfTwo) {
    EXPECT_EQ(apply(2, {{1}}), RunningCopy{1});
    EXPECT_EQ(copies_.askedToQuit(), Copies{{2}});
    EXPECT_EQ(quits_, 1);
}

TEST_F(SingleCopyRule, EndsAllButTheFirstOfThree) {
    EXPECT_EQ(apply(9, {{3}, {5}}), RunningCopy{3});
    EXPECT_EQ(copies_.askedToQuit(), (Copies{{5}, {9}}));
}

TEST_F(SingleCopyRule, EndsTheOthersIfThisIsTheFirst) {
    EXPECT_EQ(apply(1, {{2}, {3}}), RunningCopy{1});
    EXPECT_EQ(copies_.askedToQuit(), (Copies{{2}, {3}}));
    EXPECT_EQ(quits_, 0);
}

TEST_F(SingleCopyRule, EndsOthersThatCameAfterThisOne) {
    EXPECT_EQ(apply(2, {{1}, {3}}), RunningCopy{1});
    EXPECT_EQ(copies_.askedToQuit(), (Copies{{2}, {3}}));
    EXPECT_EQ(quits_, 1);
}

TEST_F(SingleCopyRule, BringsTheFirstToTheFront) {
    apply(2, {{1}});
    EXPECT_EQ(copies_.broughtToFront(), Copies{{1}});
    EXPECT_EQ(copies_.lastToken(), "token");
    EXPECT_EQ(fronts_, 0);
}

TEST_F(SingleCopyRule, LeavesTheNextIfTheFirstEndsMeanwhile) {
    copies_.endBeforeItIsAsked({1});
    EXPECT_EQ(apply(3, {{1}, {2}}), RunningCopy{2});
    EXPECT_EQ(copies_.askedToQuit(), Copies{{3}});
}

TEST_F(SingleCopyRule, LeavesThisOneIfAllBeforeItEndMeanwhile) {
    copies_.endBeforeItIsAsked({1});
    copies_.endBeforeItIsAsked({2});
    EXPECT_EQ(apply(3, {{1}, {2}}), RunningCopy{3});
    EXPECT_EQ(copies_.askedToQuit(), Copies{});
    EXPECT_EQ(quits_, 0);
}

TEST_F(SingleCopyRule, DoesNothingWithoutAPlaceToMeet) {
    copies_.refuseToJoin(SystemError{EACCES});
    EXPECT_FALSE(copies_.join({}));
    EXPECT_EQ(keepFirstCopyOnly(copies_, {}), std::nullopt);
}

}  // namespace
}  // namespace tarvin
