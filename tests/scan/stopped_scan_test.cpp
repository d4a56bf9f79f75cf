#include "scan/duplicate_finder.h"
#include "support/comparison_fixture.h"
#include "support/faulty_file_system.h"
#include "support/pairwise_finder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

/// Compares files of one size and checks the results at certain points of the reading.
class ComparisonOfOneClass : public ::testing::Test {
 protected:
    static constexpr std::size_t fileBytes = 200'000;

    /// Adds `count` files in runs of `copies` equal ones.
    void addFiles(std::size_t count, std::size_t copies) {
        for (std::size_t number = 0; number < count; ++number) {
            fixture_.add(std::to_string(number) + ".txt",
                         noise(fileBytes, static_cast<unsigned>(number / copies)));
        }
        allBytes_ = count * fileBytes;
    }

    /// Calls `action` once, when that fraction of all bytes has been read.
    void atShare(double share, const std::function<void()>& action) {
        fileSystem_.beforeCall(FileCall::readAt, FaultyFileSystem::each, [this, share, action] {
            if (static_cast<double>(fileSystem_.bytesRead()) >=
                    share * static_cast<double>(allBytes_) &&
                !acted_.exchange(true)) {
                action();
            }
        });
    }

    FaultyFileSystem fileSystem_;
    ComparisonFixture fixture_{fileSystem_};
    std::size_t allBytes_ = 0;
    std::atomic<bool> acted_{false};
};

TEST_F(ComparisonOfOneClass, StopKeepsConfirmedPairs) {
    addFiles(200, 2);
    atShare(0.75, [this] { fixture_.control().setStop(true); });
    const PlainResult found = plainResultOf(*fixture_.find());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_GE(found[0].sets.size(), 65U);
    EXPECT_LT(found[0].sets.size(), 100U);
    for (const std::vector<std::string>& set : found[0].sets) {
        ASSERT_EQ(set.size(), 2U);
        EXPECT_EQ(set[0].substr(0, set[0].rfind('.')).back() % 2, 0) << set[0];
    }
    EXPECT_LT(fixture_.processed(), 200U);
    EXPECT_EQ(fixture_.bytes().total, 40'000'000U);
    EXPECT_GE(fixture_.bytes().done, 26'000'000U);
    EXPECT_LT(fixture_.bytes().done, 40'000'000U);
    EXPECT_FALSE(fixture_.list().empty());
}

TEST_F(ComparisonOfOneClass, StopKeepsConfirmedMembersOfALargeSet) {
    addFiles(100, 100);
    atShare(0.75, [this] { fixture_.control().setStop(true); });
    const PlainResult found = plainResultOf(*fixture_.find());
    ASSERT_EQ(found.size(), 1U);
    ASSERT_EQ(found[0].sets.size(), 1U);
    EXPECT_GE(found[0].sets[0].size(), 50U);
    EXPECT_LT(found[0].sets[0].size(), 100U);
}

TEST_F(ComparisonOfOneClass, StopBeforeAnyConfirmationKeepsNothing) {
    addFiles(20, 2);
    atShare(0.0, [this] { fixture_.control().setStop(true); });
    EXPECT_EQ(plainResultOf(*fixture_.find()), PlainResult{});
    // One or two were taken out before the walk saw the stop.
    EXPECT_GE(fixture_.list().size(), 18U);
}

TEST_F(ComparisonOfOneClass, CountsFilesAsTheyAreDecided) {
    for (const std::size_t copies : {2U, 100U}) {
        FaultyFileSystem fileSystem;
        ComparisonFixture fixture(fileSystem);
        for (std::size_t number = 0; number < 200; ++number) {
            fixture.add(std::to_string(number) + ".txt",
                        noise(fileBytes, static_cast<unsigned>(number / copies)));
        }
        std::mutex mutex;
        std::vector<std::uint64_t> processedAt(10, 0);  // when each tenth of the bytes is read
        fileSystem.beforeCall(FileCall::readAt, FaultyFileSystem::each, [&] {
            const std::uint64_t tenth = fileSystem.bytesRead() * 10 / (200 * fileBytes);
            const std::lock_guard lock(mutex);
            if (tenth < processedAt.size() && processedAt[tenth] == 0) {
                processedAt[tenth] = fixture.processed();
            }
        });
        fixture.find();
        EXPECT_EQ(fixture.processed(), 200U);
        for (std::size_t tenth = 3; tenth < 10; ++tenth) {
            EXPECT_GE(processedAt[tenth], 20 * (tenth - 2)) << copies << " copies, tenth " << tenth;
            EXPECT_LE(processedAt[tenth], 20 * (tenth + 2)) << copies << " copies, tenth " << tenth;
        }
    }
}

TEST_F(ComparisonOfOneClass, ReportsFilesDuringTheComparison) {
    addFiles(200, 2);
    std::atomic<std::size_t> reportedAtHalf{0};
    atShare(0.5, [&] { reportedAtHalf = fixture_.reported().size(); });
    fixture_.find();
    EXPECT_GE(reportedAtHalf, 50U);
}

TEST(StoppedComparison, KeepsSetsAfterAnUndecidedOne) {
    FaultyFileSystem fileSystem;
    ComparisonFixture fixture(fileSystem, {2, 4});
    fixture.add("slow 1.txt", noise(20'000, 1));
    fixture.add("slow 2.txt", noise(20'000, 1));
    const std::string a = fixture.add("a.txt", "equal")->filePath();
    const std::string b = fixture.add("b.txt", "equal")->filePath();
    const std::string c = fixture.add("c.txt", "alike!")->filePath();
    const std::string d = fixture.add("d.txt", "alike!")->filePath();
    std::mutex gate;
    gate.lock();
    fileSystem.beforeCall(
        FileCall::openFile, FaultyFileSystem::each, [&gate] { const std::lock_guard pass(gate); },
        "slow");
    PlainResult found;
    std::thread finding([&] { found = plainResultOf(*fixture.find()); });
    // The first of the slow files is counted when the walk reaches it.
    EXPECT_TRUE(waitUntil([&] { return fixture.processed() == 5; }));
    fixture.control().setStop(true);
    finding.join();
    EXPECT_EQ(found, (PlainResult{{"txt", {{a, b}, {c, d}}}}));
    gate.unlock();
}

}  // namespace
}  // namespace tarvin
