#include "scan/progress_mailbox.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace tarvin {
namespace {

TEST(ProgressMailbox, StartsWithACollectionWithoutAFile) {
    const Progress progress = ProgressMailbox().latest();
    EXPECT_FALSE(progress.comparing);
    EXPECT_EQ(progress.path, "");
    EXPECT_EQ(progress.elapsed, "Elapsed Time: 00:00:00");
}

TEST(ProgressMailbox, KeepsTheLatestReport) {
    ProgressMailbox mailbox;
    mailbox.collecting("/a/one.jpg");
    mailbox.collecting("/a/two.jpg");
    mailbox.elapsed("Elapsed Time: 00:00:01");
    mailbox.elapsed("Elapsed Time: 00:00:02");
    const Progress progress = mailbox.latest();
    EXPECT_FALSE(progress.comparing);
    EXPECT_EQ(progress.path, "/a/two.jpg");
    EXPECT_EQ(progress.elapsed, "Elapsed Time: 00:00:02");
}

TEST(ProgressMailbox, WaitingEndsWithTheNextFile) {
    ProgressMailbox mailbox;
    mailbox.collecting("/a/one.jpg");
    EXPECT_FALSE(mailbox.latest().waiting);
    mailbox.waitingFor("/dead");
    EXPECT_TRUE(mailbox.latest().waiting);
    EXPECT_EQ(mailbox.latest().path, "/dead");
    mailbox.collecting("/a/two.jpg");
    EXPECT_FALSE(mailbox.latest().waiting);
    mailbox.waitingFor("/dead");
    mailbox.comparisonStarted(2);
    EXPECT_FALSE(mailbox.latest().waiting);
    mailbox.waitingFor("/dead/1.jpg");
    mailbox.processing("/a/two.jpg", 1);
    EXPECT_FALSE(mailbox.latest().waiting);
    EXPECT_EQ(mailbox.latest().path, "/a/two.jpg");
}

TEST(ProgressMailbox, ComparisonStartsWithoutAFile) {
    ProgressMailbox mailbox;
    mailbox.collecting("/a/one.jpg");
    mailbox.comparisonStarted(7);
    const Progress progress = mailbox.latest();
    EXPECT_TRUE(progress.comparing);
    EXPECT_EQ(progress.path, "");
    EXPECT_EQ(progress.total, 7U);
    EXPECT_EQ(progress.processed, 0U);
}

TEST(ProgressMailbox, LateReportDoesNotLowerTheCount) {
    ProgressMailbox mailbox;
    mailbox.comparisonStarted(7);
    mailbox.processing("/a/two.jpg", 5);
    mailbox.processing("/a/one.jpg", 4);
    EXPECT_EQ(mailbox.latest().processed, 5U);
    EXPECT_EQ(mailbox.latest().path, "/a/one.jpg");
}

TEST(ProgressMailbox, CanBeUsedOnSeveralThreads) {
    constexpr std::uint64_t times = 1000;
    ProgressMailbox mailbox;
    mailbox.comparisonStarted(times);
    std::thread teller([&mailbox] {
        for (std::uint64_t number = 1; number <= times; ++number) {
            mailbox.processing("/a/" + std::to_string(number), number);
        }
    });
    std::uint64_t seen = 0;
    while (seen < times) {
        const std::uint64_t now = mailbox.latest().processed;
        ASSERT_GE(now, seen);
        seen = now;
    }
    teller.join();
    EXPECT_EQ(mailbox.latest().path, "/a/1000");
}

TEST(ProgressMailbox, TryLatestReturnsTheLatestReport) {
    ProgressMailbox mailbox;
    mailbox.comparisonStarted(7);
    mailbox.processing("/a/two.jpg", 5);
    Progress progress;
    mailbox.tryLatest(progress);
    EXPECT_TRUE(progress.comparing);
    EXPECT_EQ(progress.path, "/a/two.jpg");
    EXPECT_EQ(progress.total, 7U);
    EXPECT_EQ(progress.processed, 5U);
}

TEST(ProgressMailbox, TryLatestKeepsTheValueDuringAReport) {
    constexpr std::uint64_t times = 1000;
    ProgressMailbox mailbox;
    mailbox.comparisonStarted(times);
    std::thread teller([&mailbox] {
        for (std::uint64_t number = 1; number <= times; ++number) {
            mailbox.processing("/a/" + std::to_string(number), number);
        }
    });
    Progress progress;
    while (progress.processed < times) {
        const std::uint64_t seen = progress.processed;
        mailbox.tryLatest(progress);
        ASSERT_GE(progress.processed, seen);
        ASSERT_EQ(progress.path,
                  progress.processed == 0 ? "" : "/a/" + std::to_string(progress.processed));
    }
    teller.join();
}

}  // namespace
}  // namespace tarvin
