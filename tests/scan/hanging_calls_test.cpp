#include "scan/scan_run.h"
#include "support/comparison_fixture.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/pairwise_finder.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <iterator>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

/// The interval of the watch, and of the reports of the elapsed time, with which tests measure.
constexpr std::chrono::milliseconds step = 5ms;
/// Limit for a stop, in steps: a second, and longer on a machine that delays each step.
#ifdef TARVIN_SANITIZED
constexpr int promptSteps = 5s / step;
#else
constexpr int promptSteps = 1s / step;
#endif

/// Blocks calls until the test lets them return.
class Hang final {
 public:
    void pass() {
        std::unique_lock lock(mutex_);
        ++inside_;
        changed_.notify_all();
        changed_.wait(lock, [this] { return open_; });
        --inside_;
        changed_.notify_all();
    }

    void waitForCalls(int count) {
        std::unique_lock lock(mutex_);
        EXPECT_TRUE(changed_.wait_for(lock, testPatience, [&] { return inside_ >= count; }));
    }

    void open() {
        const std::lock_guard lock(mutex_);
        open_ = true;
        changed_.notify_all();
    }

 private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool open_ = false;
    int inside_ = 0;
};

class WaitObserver final : public ScanObserver {
 public:
    void waitingFor(const std::string& path) override {
        const std::lock_guard lock(mutex_);
        waitedFor_.push_back(path);
        ++calls_;
        changed_.notify_all();
        if (lacksMemory) {
            throw std::bad_alloc();
        }
    }
    void collecting(const std::string&) override { count(); }
    void processing(const std::string&, std::uint64_t) override { count(); }
    void elapsed(const std::string&) override {
        const std::lock_guard lock(mutex_);
        ++steps_;
        changed_.notify_all();
    }

    std::string firstWaitedFor() {
        std::unique_lock lock(mutex_);
        EXPECT_TRUE(changed_.wait_for(lock, testPatience, [this] { return !waitedFor_.empty(); }));
        return waitedFor_.empty() ? std::string() : waitedFor_.front();
    }

    void waitForSteps(int more) {
        std::unique_lock lock(mutex_);
        const int enough = steps_ + more;
        EXPECT_TRUE(changed_.wait_for(lock, testPatience, [&] { return steps_ >= enough; }));
    }

    /// The number of reports of the elapsed time.
    [[nodiscard]] int steps() {
        const std::lock_guard lock(mutex_);
        return steps_;
    }

    [[nodiscard]] bool hasWaited() {
        const std::lock_guard lock(mutex_);
        return !waitedFor_.empty();
    }

    [[nodiscard]] int calls() {
        const std::lock_guard lock(mutex_);
        return calls_;
    }

    bool lacksMemory = false;  ///< set before the scan begins

 private:
    void count() {
        const std::lock_guard lock(mutex_);
        ++calls_;
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> waitedFor_;
    int calls_ = 0;
    int steps_ = 0;
};

long threadsOfThisProcess() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// Scans with calls that do not return. The file system outlives the test, like the real one.
class HangingCalls : public ::testing::Test {
 protected:
    struct Immortal {
        FaultyFileSystem fileSystem{systemFileSystem()};
        FakePlatform platform{fileSystem};
    };

    static ScanRun::Settings settings(WorkerPool::Limits workers = {2, 4}) {
        ScanRun::Settings settings;
        settings.workers = workers;
        settings.progressInterval = 0ms;
        settings.elapsedStep = step;
        settings.watchStep = step;
        settings.stepsBeforeWaitIsReported = 20;
        settings.stepsBeforeStandIn = 4;
        return settings;
    }

    HangingCalls() {
        hangs().fileSystem.clearFaults();
        hangs().fileSystem.setListingOrder(ListingOrder::sorted);
        // With a sanitizer, the first thread starts another one, which stays.
        std::thread([] {}).join();
        threadsBefore_ = threadsOfThisProcess();
    }

    ~HangingCalls() override {
        // Every thread that was left behind must end.
        hang_->open();
        EXPECT_TRUE(waitUntil([this] { return threadsOfThisProcess() <= threadsBefore_; }));
        hangs().fileSystem.clearFaults();
    }

    static Immortal& hangs() {
        static auto* const immortal = new Immortal;
        return *immortal;
    }

    void hangAt(FileCall call, const std::string& pathPart) {
        hangs().fileSystem.beforeCall(
            call, FaultyFileSystem::each, [hang = hang_] { hang->pass(); }, pathPart);
    }

    void start(ScanRun& run) { run.start({{tree_.path(), "", "", true, true}}, {}); }

    /// Stops the scan. Returns how many steps that takes.
    int stop(ScanRun& run) {
        const int begin = observer_.steps();
        run.requestStop();
        run.wait();
        return observer_.steps() - begin;
    }

    FileTree tree_;
    WaitObserver observer_;
    std::shared_ptr<Hang> hang_ = std::make_shared<Hang>();
    long threadsBefore_ = 0;
};

class HangingFolder : public HangingCalls, public ::testing::WithParamInterface<FileCall> {};

TEST_P(HangingFolder, StopEndsTheScan) {
    tree_.writeFile("a/1.txt", "same");
    tree_.writeFile("dead/2.txt", "same");
    hangAt(GetParam(), "dead");
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    hang_->waitForCalls(1);
    EXPECT_LT(stop(run), promptSteps);
    EXPECT_TRUE(run.wasStopped());
    EXPECT_EQ(run.result().modal->extensionCount(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Calls, HangingFolder,
                         ::testing::Values(FileCall::openDirectoryAt, FileCall::attributesOf,
                                           FileCall::listEntries, FileCall::attributesAt),
                         [](const auto& info) {
                             return std::string("Call") +
                                    std::to_string(static_cast<int>(info.param));
                         });

TEST_F(HangingCalls, StopEndsAScanWithAHangingLocation) {
    tree_.writeFile("1.txt", "same");
    hangAt(FileCall::openRootDirectory, tree_.path());
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    hang_->waitForCalls(1);
    EXPECT_LT(stop(run), promptSteps);
}

TEST_F(HangingCalls, StopEndsAScanWhoseMemoryHangs) {
    tree_.writeFile("1.txt", "same");
    const TemporaryFolder memory;
    memory.writeFile("scans.sqlite", "");
    hangAt(FileCall::attributesOf, memory.path());
    ScanRun run(hangs().platform, observer_, settings());
    run.setMemory(memory.path());
    start(run);
    EXPECT_EQ(observer_.firstWaitedFor(), memory.path());
    EXPECT_LT(stop(run), promptSteps);
}

TEST_F(HangingCalls, NextScanRunsWhileAThreadIsStuck) {
    tree_.writeFile("a/1.txt", "same");
    tree_.writeFile("a/2.txt", "same");
    tree_.writeFile("dead/3.txt", "same");
    hangAt(FileCall::openDirectoryAt, "dead");
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    hang_->waitForCalls(1);
    stop(run);
    run.homeCleanup();
    run.start({{tree_.pathOf("a"), "", "", true, true}}, {});
    run.wait();
    EXPECT_EQ(run.result().modal->totalFiles(), 1U);
}

TEST_F(HangingCalls, ReportsTheFolderWaitedFor) {
    tree_.writeFile("a/1.txt", "same");
    tree_.writeFile("dead/2.txt", "same");
    hangAt(FileCall::listEntries, "dead");
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    EXPECT_EQ(observer_.firstWaitedFor(), tree_.pathOf("dead"));
    stop(run);
}

TEST_F(HangingCalls, ReportsTheFileWaitedFor) {
    tree_.writeFile("a.txt", noise(20'000, 1));
    tree_.writeFile("b.txt", noise(20'000, 1));
    hangAt(FileCall::readAt, "b.txt");
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    EXPECT_EQ(observer_.firstWaitedFor(), tree_.pathOf("b.txt"));
    stop(run);
}

TEST_F(HangingCalls, WithoutMemoryForTheReportTheScanContinues) {
    tree_.writeFile("a.txt", "same");
    tree_.writeFile("b.txt", "same");
    hangAt(FileCall::readAt, "b.txt");
    observer_.lacksMemory = true;
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    EXPECT_EQ(observer_.firstWaitedFor(), tree_.pathOf("b.txt"));
    hang_->open();
    run.wait();
    EXPECT_EQ(run.result().modal->totalFiles(), 1U);
}

TEST_F(HangingCalls, ReportsNoWaitDuringAPause) {
    tree_.writeFile("dead/2.txt", "same");
    ScanRun run(hangs().platform, observer_, settings());
    hangs().fileSystem.beforeCall(
        FileCall::listEntries, 1,
        [&run, hang = hang_] {
            run.setPause(true);
            hang->pass();
        },
        "dead");
    start(run);
    hang_->waitForCalls(1);
    // Twice as long as it takes until a wait is reported.
    const SteadyClock::time_point enough = SteadyClock::now() + 200ms;
    EXPECT_TRUE(waitUntil([enough] { return SteadyClock::now() > enough; }));
    EXPECT_FALSE(observer_.hasWaited());
    run.setPause(false);
    EXPECT_EQ(observer_.firstWaitedFor(), tree_.pathOf("dead"));
    stop(run);
}

TEST_F(HangingCalls, ElapsedTimeContinues) {
    tree_.writeFile("dead/2.txt", "same");
    hangAt(FileCall::listEntries, "dead");
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    hang_->waitForCalls(1);
    observer_.waitForSteps(20);
    run.setPause(true);
    EXPECT_TRUE(run.pause());
    run.setPause(false);
    observer_.waitForSteps(20);
    EXPECT_TRUE(run.scanning());
    stop(run);
}

class HangingFile : public HangingCalls, public ::testing::WithParamInterface<FileCall> {};

TEST_P(HangingFile, OtherSetsAreFoundAndStopTakesEffect) {
    tree_.writeFile("dead 1.txt", noise(20'000, 1));
    tree_.writeFile("dead 2.txt", noise(20'000, 1));
    tree_.writeFile("p.txt", "equal");
    tree_.writeFile("q.txt", "equal");
    tree_.writeFile("r.mp3", noise(30'000, 2));
    tree_.writeFile("s.mp3", noise(30'000, 2));
    hangAt(GetParam(), "dead 2");
    // One worker: others run in its place when it is stuck.
    ScanRun run(hangs().platform, observer_, settings({1, 1}));
    start(run);
    // All files but the two whose comparison hangs; the walk has taken the first of these.
    EXPECT_TRUE(waitUntil([&] { return run.processed() >= 5; }));
    EXPECT_LT(stop(run), promptSteps);
    const PlainResult expected{{"mp3", {{tree_.pathOf("r.mp3"), tree_.pathOf("s.mp3")}}},
                               {"txt", {{tree_.pathOf("p.txt"), tree_.pathOf("q.txt")}}}};
    EXPECT_EQ(plainResultOf(*run.result().modal), expected);
    EXPECT_TRUE(run.wasStopped());
}

INSTANTIATE_TEST_SUITE_P(Calls, HangingFile,
                         ::testing::Values(FileCall::openFile, FileCall::readAt),
                         [](const auto& info) {
                             return std::string("Call") +
                                    std::to_string(static_cast<int>(info.param));
                         });

TEST_F(HangingCalls, RunCanBeDestroyedWhileAThreadIsStuck) {
    tree_.writeFile("dead 1.txt", noise(20'000, 1));
    tree_.writeFile("dead 2.txt", noise(20'000, 1));
    hangAt(FileCall::readAt, "dead 2");
    {
        ScanRun run(hangs().platform, observer_, settings());
        start(run);
        hang_->waitForCalls(1);
    }
    EXPECT_LT(observer_.steps(), 2 * promptSteps);
    const int calls = observer_.calls();
    hang_->open();
    EXPECT_TRUE(waitUntil([this] { return threadsOfThisProcess() <= threadsBefore_; }));
    EXPECT_EQ(observer_.calls(), calls) << "A thread that was left behind reported something";
}

TEST_F(HangingCalls, CallThatReturnsLateGivesACompleteResult) {
    tree_.writeFile("a.txt", noise(20'000, 1));
    tree_.writeFile("b.txt", noise(20'000, 1));
    hangAt(FileCall::readAt, "b.txt");
    ScanRun run(hangs().platform, observer_, settings());
    start(run);
    observer_.firstWaitedFor();
    hang_->open();
    run.wait();
    EXPECT_EQ(run.result().modal->totalFiles(), 1U);
    EXPECT_FALSE(run.wasStopped());
}

}  // namespace
}  // namespace tarvin
