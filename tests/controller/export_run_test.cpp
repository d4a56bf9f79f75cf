#include "controller/export_run.h"

#include "controller/left_threads.h"
#include "report/fake_report.h"
#include "support/file_content.h"
#include "support/held_file_calls.h"
#include "support/mount.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace tarvin {
namespace {

class ExportRunTest : public testing::Test {
 protected:
    ExportRunTest() {
        report_.addSet(Category::image, {{"/p/a.jpg", 1000}, {"/p/b.jpg", 1000}});
        report_.markDuplicates();
    }

    /// Threads that were left behind use the calls of a test.
    void TearDown() override {
        EXPECT_TRUE(waitUntil([] { return leftThreads == 0; }));
    }

    [[nodiscard]] std::unique_ptr<ExportRun> start(const std::string& path,
                                                   FileCalls& calls = systemFileCalls()) {
        return std::make_unique<ExportRun>(
            ExportRun::Job{.path = path, .format = ResultFormat::csv, .report = report_.report()},
            calls, [this] { ++ends_; });
    }

    /// The names in the folder.
    [[nodiscard]] static std::set<std::string> namesIn(const std::string& folder) {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.insert(entry.path().filename().native());
        }
        return names;
    }

    /// More text than may wait to be written.
    void addManySets() {
        const std::string longName(3000, 'x');
        for (int set = 0; set < 2000; ++set) {
            const std::string path = "/" + longName + std::to_string(set);
            report_.addSet(Category::other, {{path, 1}, {path + "-2", 1}});
        }
    }

    TemporaryFolder folder_;
    MadeUpReport report_;
    std::atomic<int> ends_{0};
};

TEST_F(ExportRunTest, WritesTheWholeReportInParts) {
    addManySets();
    const std::string path = folder_.pathOf("sets.csv");
    const auto run = start(path);
    ASSERT_TRUE(waitUntil([&] { return run->isOver(); }));
    EXPECT_EQ(run->failure(), "");
    EXPECT_EQ(ends_, 1);
    EXPECT_EQ(contentOf(path), writtenBy(writeCsv, report_));
    EXPECT_GT(std::filesystem::file_size(path), 8'000'000U);
    EXPECT_EQ(namesIn(folder_.path()), std::set<std::string>{"sets.csv"});
}

TEST_F(ExportRunTest, TellsWhyNothingWasWritten) {
    const auto run = start(folder_.pathOf("none/sets.csv"));
    ASSERT_TRUE(waitUntil([&] { return run->isOver(); }));
    EXPECT_EQ(run->failure(), "No such file or directory");
    EXPECT_EQ(ends_, 1);
}

TEST_F(ExportRunTest, OnAFullDiskTheOldFileStaysAlone) {
    addManySets();
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", 0, "size=1m");
    if (mount) {
        const std::string path = folder_.writeFile("disk/sets.csv", "old");
        const auto run = start(path);
        ASSERT_TRUE(waitUntil([&] { return run->isOver(); }));
        EXPECT_EQ(run->failure(), "No space left on device");
        EXPECT_EQ(contentOf(path), "old");
        EXPECT_EQ(namesIn(disk), std::set<std::string>{"sets.csv"});
    }
}

TEST_F(ExportRunTest, OnADriveThatDoesNotRespondItCanBeCancelled) {
    addManySets();
    HeldFileCalls calls(HeldFileCalls::Step::creating);
    const std::string path = folder_.writeFile("sets.csv", "old");
    const auto run = start(path, calls);
    ASSERT_TRUE(waitUntil([&] { return calls.hasHeld(); }));
    EXPECT_FALSE(run->isOver());
    run->cancel();
    EXPECT_FALSE(run->isOver());
    calls.release();
    ASSERT_TRUE(waitUntil([&] { return run->isOver(); }));
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(namesIn(folder_.path()), std::set<std::string>{"sets.csv"});
    EXPECT_EQ(ends_, 0);
}

TEST_F(ExportRunTest, CancelledWhileItIsFlushedItReplacesNothing) {
    HeldFileCalls calls(HeldFileCalls::Step::flushing);
    const std::string path = folder_.writeFile("sets.csv", "old");
    const auto run = start(path, calls);
    ASSERT_TRUE(waitUntil([&] { return calls.hasHeld(); }));
    run->cancel();
    calls.release();
    ASSERT_TRUE(waitUntil([&] { return run->isOver(); }));
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(namesIn(folder_.path()), std::set<std::string>{"sets.csv"});
}

TEST_F(ExportRunTest, LeavesAThreadBehindButNoFile) {
    HeldFileCalls calls(HeldFileCalls::Step::flushing);
    const std::string path = folder_.writeFile("sets.csv", "old");
    auto run = start(path, calls);
    ASSERT_TRUE(waitUntil([&] { return calls.hasHeld(); }));
    const auto begin = std::chrono::steady_clock::now();
    run.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(leftThreads, 1);
    EXPECT_EQ(namesIn(folder_.path()), std::set<std::string>{"sets.csv"});
    calls.release();
    ASSERT_TRUE(waitUntil([] { return leftThreads == 0; }));
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(ends_, 0);
}

TEST_F(ExportRunTest, TheEndOfTheProgramWaitsForAFileThatIsBeingWritten) {
    const std::string path = folder_.writeFile("sets.csv", "old");
    start(path).reset();
    EXPECT_EQ(leftThreads, 0);
    EXPECT_EQ(contentOf(path), writtenBy(writeCsv, report_));
}

}  // namespace
}  // namespace tarvin
