#include "controller/progress_details.h"

#include "support/fake_platform.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tarvin {
namespace {

using std::chrono::seconds;

class ProgressDetailsTest : public ::testing::Test {
 protected:
    ProgressDetailsTest() { details_.compared({0, total}); }

    /// A second, in which `bytes` are compared.
    void pass(std::uint64_t bytes) {
        clock_.advance(seconds(1));
        done_ += bytes;
        details_.compared({done_, total});
    }

    /// 12 GB in 12 s: 68 s are left.
    void compareSome() {
        for (int second = 0; second < 12; ++second) {
            pass(1'000'000'000);
        }
    }

    [[nodiscard]] std::string details() const { return details_.details().toStdString(); }
    [[nodiscard]] std::string state() const { return details_.state().toStdString(); }

    static constexpr std::uint64_t total = 80'000'000'000;
    FakeClock clock_;
    ProgressDetails details_{clock_};
    std::uint64_t done_ = 0;
};

TEST_F(ProgressDetailsTest, AreEmptyWhileNothingIsCompared) {
    details_.begin();
    EXPECT_EQ(details(), "");
    details_.compared({0, 0});
    EXPECT_EQ(details(), "");
    EXPECT_EQ(state(), "");
}

TEST_F(ProgressDetailsTest, AreBytesOnlyWhileTheTimeLeftIsUnknown) {
    pass(1'000'000'000);
    EXPECT_EQ(details(), "1.0 GB of 80.0 GB compared");
}

TEST_F(ProgressDetailsTest, EndInTheTimeLeft) {
    compareSome();
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared · about 1 minute left");
    EXPECT_EQ(state(), "");
}

TEST_F(ProgressDetailsTest, HaveNoTimeLeftDuringAPause) {
    compareSome();
    details_.pause();
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared");
    EXPECT_EQ(state(), "Paused");
    details_.resume();
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared · about 1 minute left");
    EXPECT_EQ(state(), "");
}

TEST_F(ProgressDetailsTest, DoNotChangeDuringAPause) {
    compareSome();
    details_.pause();
    pass(1'000'000'000);
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared");
}

TEST_F(ProgressDetailsTest, DoNotCallAnOpenQuestionAPause) {
    compareSome();
    details_.pause();
    details_.hold();
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared");
    EXPECT_EQ(state(), "");
}

TEST_F(ProgressDetailsTest, DoNotCountTheTimeOfAQuestion) {
    compareSome();
    details_.hold();
    clock_.advance(std::chrono::hours(1));
    details_.resume();
    for (int second = 0; second < 10; ++second) {
        pass(1'000'000'000);
    }
    EXPECT_EQ(details(), "22.0 GB of 80.0 GB compared · less than a minute left");
}

TEST_F(ProgressDetailsTest, SayThatTheScanIsStopping) {
    compareSome();
    details_.hold();
    details_.stop();
    EXPECT_TRUE(details_.isStopping());
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared");
    EXPECT_EQ(state(), "Stopping…");
}

TEST_F(ProgressDetailsTest, SayWhatASlowStopWaitsFor) {
    compareSome();
    details_.stop();
    clock_.advance(std::chrono::milliseconds(4'999));
    EXPECT_EQ(details(), "12.0 GB of 80.0 GB compared");
    clock_.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(details(), "Waiting for the file in hand.");
    EXPECT_EQ(state(), "Stopping…");
}

TEST_F(ProgressDetailsTest, StopSlowlyDuringTheCollectionToo) {
    details_.begin();
    details_.stop();
    EXPECT_EQ(details(), "");
    EXPECT_EQ(state(), "Stopping…");
    clock_.advance(seconds(5));
    EXPECT_EQ(details(), "Waiting for the file in hand.");
}

TEST_F(ProgressDetailsTest, KeepStoppingWhateverFollows) {
    details_.stop();
    details_.hold();
    details_.pause();
    details_.resume();
    EXPECT_EQ(state(), "Stopping…");
}

TEST_F(ProgressDetailsTest, BeginAgainWithTheNextScan) {
    compareSome();
    details_.stop();
    clock_.advance(seconds(9));
    details_.begin();
    EXPECT_FALSE(details_.isStopping());
    EXPECT_EQ(details(), "");
    EXPECT_EQ(state(), "");
    details_.compared({50, 100});
    clock_.advance(seconds(9));
    details_.compared({60, 100});
    EXPECT_EQ(details(), "0 KB of 0 KB compared");
}

}  // namespace
}  // namespace tarvin
