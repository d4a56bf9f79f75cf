#include "support/fake_running_instances.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <vector>

namespace tarvin {
namespace {

using Instances = std::vector<RunningInstance>;

class SingleInstanceRule : public ::testing::Test {
 protected:
    /// Joins as instance `number` beside the others and applies the rule.
    std::optional<RunningInstance> apply(std::uint64_t number, Instances others) {
        instances_.setOthers(std::move(others), {number});
        const auto joined =
            instances_.join({.quit = [this] { ++quits_; },
                             .comeToFront = [this](const std::string&) { ++fronts_; },
                             .openFolders = {}});
        EXPECT_TRUE(joined);
        return keepFirstInstanceOnly(instances_, "token");
    }

    FakeRunningInstances instances_;
    int quits_ = 0;
    int fronts_ = 0;
};

TEST_F(SingleInstanceRule, KeepsTheOnlyInstance) {
    EXPECT_EQ(apply(7, {}), RunningInstance{7});
    EXPECT_EQ(instances_.askedToQuit(), Instances{});
    EXPECT_EQ(instances_.broughtToFront(), Instances{});
    EXPECT_EQ(quits_, 0);
}

TEST_F(SingleInstanceRule, AsksTheLaterOfTwoToQuit) {
    EXPECT_EQ(apply(2, {{1}}), RunningInstance{1});
    EXPECT_EQ(instances_.askedToQuit(), Instances{{2}});
    EXPECT_EQ(quits_, 1);
}

TEST_F(SingleInstanceRule, AsksAllButTheFirstToQuit) {
    EXPECT_EQ(apply(9, {{3}, {5}}), RunningInstance{3});
    EXPECT_EQ(instances_.askedToQuit(), (Instances{{5}, {9}}));
}

TEST_F(SingleInstanceRule, AsksTheOthersIfThisIsTheFirst) {
    EXPECT_EQ(apply(1, {{2}, {3}}), RunningInstance{1});
    EXPECT_EQ(instances_.askedToQuit(), (Instances{{2}, {3}}));
    EXPECT_EQ(quits_, 0);
}

TEST_F(SingleInstanceRule, AsksThoseStartedLater) {
    EXPECT_EQ(apply(2, {{1}, {3}}), RunningInstance{1});
    EXPECT_EQ(instances_.askedToQuit(), (Instances{{2}, {3}}));
    EXPECT_EQ(quits_, 1);
}

TEST_F(SingleInstanceRule, RaisesTheFirst) {
    apply(2, {{1}});
    EXPECT_EQ(instances_.broughtToFront(), Instances{{1}});
    EXPECT_EQ(instances_.lastToken(), "token");
    EXPECT_EQ(fronts_, 0);
}

TEST_F(SingleInstanceRule, KeepsTheNextIfTheFirstQuitsMeanwhile) {
    instances_.endBeforeItIsAsked({1});
    EXPECT_EQ(apply(3, {{1}, {2}}), RunningInstance{2});
    EXPECT_EQ(instances_.askedToQuit(), Instances{{3}});
}

TEST_F(SingleInstanceRule, KeepsThisOneIfAllBeforeItQuitMeanwhile) {
    instances_.endBeforeItIsAsked({1});
    instances_.endBeforeItIsAsked({2});
    EXPECT_EQ(apply(3, {{1}, {2}}), RunningInstance{3});
    EXPECT_EQ(instances_.askedToQuit(), Instances{});
    EXPECT_EQ(quits_, 0);
}

TEST_F(SingleInstanceRule, DoesNothingWithoutASharedFolder) {
    instances_.refuseToJoin(SystemError{EACCES});
    EXPECT_FALSE(instances_.join({}));
    EXPECT_EQ(keepFirstInstanceOnly(instances_, {}), std::nullopt);
}

}  // namespace
}  // namespace tarvin
