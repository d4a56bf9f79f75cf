#include "scan/scan_run.h"

#include "support/comparison_fixture.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/niceness.h"
#include "support/pairwise_finder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <thread>
#include <utility>

namespace tarvin {
namespace {

using Event = std::string;
using namespace std::chrono_literals;

/// Records all events and runs the test's action at a certain one.
class Recorder final : public ScanObserver {
 public:
    void collectionStarted() override { note("collectionStarted"); }
    void collecting(const std::string& path) override { note("collecting " + nameOf(path)); }
    void collectionPaused(bool paused) override { note(paused ? "paused" : "resumed"); }
    void nothingCollected() override { note("nothingCollected"); }
    void collectionFinished() override { note("collectionFinished"); }
    void comparisonStarted(std::uint64_t total) override {
        note("comparisonStarted " + std::to_string(total));
    }
    void processing(const std::string& path, std::uint64_t) override {
        note("processing " + nameOf(path));
    }
    void comparisonFinished(std::uint64_t processed) override {
        note("comparisonFinished " + std::to_string(processed));
    }
    void elapsed(const std::string& text) override { note(text); }

    /// `action` is called on the reporting thread, before the event is recorded.
    void at(const Event& event, std::function<void()> action) {
        const std::lock_guard lock(mutex_);
        event_ = event;
        action_ = std::move(action);
    }

    void waitFor(const Event& event) {
        std::unique_lock lock(mutex_);
        EXPECT_TRUE(changed_.wait_for(lock, testPatience, [&] { return has(event); }))
            << "not reported: " << event;
    }

    [[nodiscard]] bool saw(const Event& event) {
        const std::lock_guard lock(mutex_);
        return has(event);
    }

    [[nodiscard]] std::vector<Event> events() {
        const std::lock_guard lock(mutex_);
        return events_;
    }

    [[nodiscard]] std::size_t count() {
        const std::lock_guard lock(mutex_);
        return events_.size();
    }

 private:
    static std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

    [[nodiscard]] bool has(const Event& event) const {
        return std::find(events_.begin(), events_.end(), event) != events_.end();
    }

    void note(const Event& event) {
        std::function<void()> action;
        {
            const std::lock_guard lock(mutex_);
            if (event == event_) {
                action = std::exchange(action_, nullptr);
            }
        }
        if (action) {
            action();
        }
        const std::lock_guard lock(mutex_);
        events_.push_back(event);
        changed_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Event> events_;     // guarded by mutex_
    Event event_;                   // guarded by mutex_
    std::function<void()> action_;  // guarded by mutex_
};

class ScanRunTest : public ::testing::Test {
 protected:
    static ScanRun::Settings settings() {
        ScanRun::Settings settings;
        settings.workers = {2, 4};
        settings.progressInterval = 0ms;
        settings.elapsedStep = 1ms;
        return settings;
    }

    void addRow(const std::string& path) { rows_.push_back({path, "", "", true, true}); }

    void start(ExceptionFilter exceptions = {}) {
        run_.start(std::exchange(rows_, {}), std::move(exceptions));
    }

    void scan() {
        start();
        run_.wait();
    }

    FileTree folder_;
    FaultyFileSystem fileSystem_{systemFileSystem()};
    FakePlatform platform_{fileSystem_};
    Recorder recorder_;
    std::vector<LocationRow> rows_;
    ScanRun run_{platform_, recorder_, settings()};
};

TEST_F(ScanRunTest, StartsIdle) {
    EXPECT_FALSE(run_.scanning());
    EXPECT_FALSE(run_.pause());
    EXPECT_FALSE(run_.stop());
    EXPECT_TRUE(run_.added());
    EXPECT_TRUE(run_.stopElapsedTimeThread());
    EXPECT_EQ(run_.result().modal->extensionCount(), 0U);
}

TEST_F(ScanRunTest, JoinsTheCategoriesInTheirOrder) {
    for (const char* name : {"a.txt", "b.mp3", "c.mp4", "d.png", "e.zip"}) {
        folder_.writeFile(std::string("one/") + name, name);
        folder_.writeFile(std::string("two/") + name, name);
    }
    addRow(folder_.path());
    scan();
    std::vector<std::string> names;
    for (const auto& extension : run_.result().modal->extensions()) {
        names.push_back(extension->name());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"png", "mp4", "mp3", "txt", "zip"}));
    EXPECT_EQ(run_.result().modal->totalFiles(), 5U);
    EXPECT_EQ(run_.result().modal->totalFilesSize(), 25U);
    EXPECT_EQ(run_.result().imageModal()->extensions().front(),
              run_.result().modal->extensions().front());
    EXPECT_EQ(run_.result().collected(Category::audio), 2U);
    EXPECT_TRUE(run_.exactScanCompleted());
    EXPECT_FALSE(run_.scanning());
    EXPECT_TRUE(run_.stopElapsedTimeThread());
}

TEST_F(ScanRunTest, ComparesOnlyWithinACategory) {
    folder_.writeFile("pictures/x.png", "same");
    folder_.writeFile("Foo.app/y.png", "same");
    addRow(folder_.path());
    scan();
    EXPECT_EQ(run_.result().collected(Category::image), 1U);
    EXPECT_EQ(run_.result().collected(Category::other), 1U);
    EXPECT_EQ(run_.result().modal->extensionCount(), 0U);
}

TEST_F(ScanRunTest, ReportsThePhasesInOrder) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    addRow(folder_.path());
    scan();
    std::vector<Event> phases;
    for (const Event& event : recorder_.events()) {
        if (event.starts_with("collection") || event.starts_with("comparison")) {
            phases.push_back(event);
        }
    }
    EXPECT_EQ(phases, (std::vector<Event>{"collectionStarted", "collectionFinished",
                                          "comparisonStarted 2", "comparisonFinished 2"}));
    EXPECT_TRUE(recorder_.saw("collecting a.txt"));
    EXPECT_TRUE(recorder_.saw("processing b.txt"));
    EXPECT_EQ(run_.processed(), 2U);
}

TEST_F(ScanRunTest, CountsTheBytesOfFilesOfEqualSizeInTheirCategory) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    folder_.writeFile("c.txt", "of another size");
    folder_.writeFile("d.png", "same");
    folder_.writeFile("e.mp3", "twelve bytes");
    folder_.writeFile("f.mp3", "or different");
    addRow(folder_.path());
    EXPECT_EQ(run_.bytesCompared(), (BytesCompared{0, 0}));
    recorder_.at("comparisonStarted 6",
                 [this] { EXPECT_EQ(run_.bytesCompared(), (BytesCompared{0, 0})); });
    scan();
    EXPECT_EQ(run_.bytesCompared(), (BytesCompared{32, 32}));
    run_.homeCleanup();
    EXPECT_EQ(run_.bytesCompared(), (BytesCompared{0, 0}));
}

TEST_F(ScanRunTest, WithoutFilesSkipsTheComparison) {
    folder_.writeFile("Makefile", "no extension");
    addRow(folder_.path());
    scan();
    EXPECT_TRUE(recorder_.saw("nothingCollected"));
    EXPECT_EQ(run_.result().duration, 0s);  // on the test's clock, which stood still
    EXPECT_FALSE(recorder_.saw("comparisonStarted 0"));
    EXPECT_FALSE(run_.go());
    EXPECT_FALSE(run_.scanning());
    EXPECT_TRUE(run_.stopElapsedTimeThread());
}

TEST_F(ScanRunTest, StopBetweenLocationsGivesAnEmptyResult) {
    folder_.writeFile("one/a.txt", "same");
    folder_.writeFile("one/b.txt", "same");
    folder_.writeFile("two/c.txt", "same");
    addRow(folder_.pathOf("one"));
    addRow(folder_.pathOf("two"));
    recorder_.at("collecting a.txt", [this] { run_.requestStop(); });
    scan();
    EXPECT_TRUE(recorder_.saw("comparisonStarted 0"));
    EXPECT_TRUE(recorder_.saw("comparisonFinished 0"));
    EXPECT_EQ(run_.result().modal->extensionCount(), 0U);
    EXPECT_TRUE(run_.go());
    EXPECT_TRUE(run_.added());
    // stop() has been cleared, but wasStopped() has not.
    EXPECT_FALSE(run_.stop());
    EXPECT_TRUE(run_.wasStopped());
    EXPECT_FALSE(run_.scanning());
}

TEST_F(ScanRunTest, StopBetweenLocationsEndsAllListing) {
    for (int number = 0; number < 300; ++number) {
        folder_.writeFile("one/" + std::to_string(number) + "/a.txt", "same");
    }
    folder_.writeFile("two/c.txt", "same");
    for (int round = 0; round < 20; ++round) {
        Recorder recorder;
        ScanRun run(platform_, recorder, settings());
        recorder.at("collecting a.txt", [&run] { run.requestStop(); });
        run.start({{folder_.pathOf("one"), "", "", true, true},
                   {folder_.pathOf("two"), "", "", true, true}},
                  {});
        run.wait();
        EXPECT_EQ(run.result().modal->extensionCount(), 0U);
    }
}

TEST_F(ScanRunTest, StopInTheComparisonKeepsTheSetsFoundBefore) {
    folder_.writeFile("a/1.txt", "first");
    folder_.writeFile("a/2.txt", "first");
    folder_.writeFile("b/3.mp3", "second set");
    folder_.writeFile("b/4.mp3", "second set");
    addRow(folder_.path());
    // The second file of the set has just been reported, so that set is kept.
    std::atomic<bool> stopped{false};
    recorder_.at("processing 2.txt", [&] {
        run_.requestStop();
        stopped = true;
    });
    scan();
    if (stopped) {
        ASSERT_NE(run_.result().modal->getExtensionWithName("txt"), nullptr);
        EXPECT_EQ(run_.result().modal->getExtensionWithName("txt")->totalFilesInExtension(), 1U);
        EXPECT_EQ(run_.result().modal->totalFiles(), run_.result().docsModal()->totalFiles() +
                                                         run_.result().audioModal()->totalFiles());
    } else {
        // The listing had the other order.
        EXPECT_EQ(run_.result().modal->totalFiles(), 2U);
    }
}

TEST_F(ScanRunTest, StopBeforeTheComparisonGivesAnEmptyResult) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    addRow(folder_.path());
    recorder_.at("comparisonStarted 2", [this] { run_.requestStop(); });
    scan();
    EXPECT_TRUE(run_.exactScanCompleted());
    EXPECT_EQ(run_.result().modal->extensionCount(), 0U);
    EXPECT_TRUE(run_.stop());
    EXPECT_TRUE(run_.wasStopped());
}

TEST_F(ScanRunTest, HomeCleanupResetsEverything) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    addRow(folder_.path());
    scan();
    ASSERT_EQ(run_.result().modal->totalFiles(), 1U);
    run_.requestStop();
    run_.homeCleanup();
    EXPECT_FALSE(run_.stop());
    EXPECT_FALSE(run_.pause());
    EXPECT_TRUE(run_.added());
    EXPECT_EQ(run_.result().modal->totalFiles(), 0U);
    EXPECT_EQ(run_.result().imageModal(), nullptr);
    EXPECT_EQ(run_.processed(), 0U);
    EXPECT_FALSE(run_.go());
    EXPECT_FALSE(run_.exactScanCompleted());
    EXPECT_FALSE(run_.wasStopped());
    EXPECT_FALSE(run_.scanStartDate().has_value());
}

TEST_F(ScanRunTest, HomeCleanupFreesTheResultInTheBackground) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    addRow(folder_.path());
    scan();
    const std::weak_ptr<Modal> result = run_.result().modal;
    const std::weak_ptr<Extensions> extension = run_.result().modal->extensions().front();
    const std::weak_ptr<File> file =
        run_.result().modal->extensions().front()->sets().front()->files()[0];
    run_.homeCleanup();
    EXPECT_TRUE(waitUntil([&] { return result.expired() && extension.expired(); }));
    EXPECT_TRUE(waitUntil([&] { return file.expired(); }));
}

TEST_F(ScanRunTest, ResultIsFreedBeforeTheRunIsDestroyed) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    for (int round = 0; round < 20; ++round) {
        std::weak_ptr<File> file;
        {
            ScanRun run(platform_, recorder_, settings());
            run.start({{folder_.path(), "", "", true, true}}, {});
            run.wait();
            file = run.result().modal->extensions().front()->sets().front()->files()[0];
            run.homeCleanup();
        }
        EXPECT_TRUE(file.expired());
    }
}

TEST_F(ScanRunTest, LowersThePriorityOfItsThreadsIfConfigured) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    const int own = nicenessOfThisThread();
    const std::map<ScanRun::Priority, int> expected{
        {ScanRun::Priority::normal, own},
        {ScanRun::Priority::low, std::min(own + 5, maxNiceness)},
        {ScanRun::Priority::idle, maxNiceness}};
    for (const auto& [priority, niceness] : expected) {
        std::atomic<int> collecting{0};
        std::atomic<int> comparing{0};
        std::atomic<int> reading{0};
        fileSystem_.beforeCall(FileCall::openFile, FaultyFileSystem::each,
                               [&] { reading = nicenessOfThisThread(); });
        Recorder recorder;
        ScanRun run(platform_, recorder, settings());
        run.setPriority(priority);
        recorder.at("collecting a.txt", [&] {
            collecting = nicenessOfThisThread();
            recorder.at("processing b.txt", [&] { comparing = nicenessOfThisThread(); });
        });
        run.start({{folder_.path(), "", "", true, true}}, {});
        run.wait();
        EXPECT_EQ(collecting, niceness);
        EXPECT_EQ(comparing, niceness);
        EXPECT_EQ(reading, niceness);
        EXPECT_EQ(nicenessOfThisThread(), own);
    }
}

/// Blocks each thread that reports a file of the comparison until there are five.
class MeetingOfFive final : public ScanObserver {
 public:
    void processing(const std::string& /*path*/, std::uint64_t /*processed*/) override {
        std::unique_lock lock(mutex_);
        threads_.insert(std::this_thread::get_id());
        changed_.notify_all();
        // After a failure no thread waits again.
        haveMet_ = haveMet_ &&
                   changed_.wait_for(lock, testPatience, [this] { return threads_.size() == 5; });
    }

    [[nodiscard]] bool haveMet() const { return haveMet_; }

 private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::set<std::thread::id> threads_;  // guarded by mutex_
    std::atomic<bool> haveMet_{true};
};

TEST_F(ScanRunTest, ComparesTheFiveCategoriesConcurrently) {
    for (const char* name : {"a.jpg", "a.mp4", "a.mp3", "a.pdf", "a.xyz"}) {
        folder_.writeFile(std::string("f/") + name, "same");
        folder_.writeFile(std::string("g/") + name, "same");
    }
    MeetingOfFive five;
    ScanRun run(platform_, five, settings());
    run.start({{folder_.path(), "", "", true, true}}, {});
    run.wait();
    EXPECT_TRUE(five.haveMet());
    EXPECT_EQ(run.processed(), 10U);
    EXPECT_EQ(run.result().modal->totalFiles(), 5U);
}

TEST_F(ScanRunTest, NextComparisonResetsExactScanCompleted) {
    folder_.writeFile("a.txt", "same");
    addRow(folder_.path());
    scan();
    ASSERT_TRUE(run_.exactScanCompleted());
    bool duringTheNext = true;
    recorder_.at("comparisonStarted 1", [&] { duringTheNext = run_.exactScanCompleted(); });
    addRow(folder_.path());
    scan();
    EXPECT_FALSE(duringTheNext);
    EXPECT_TRUE(run_.exactScanCompleted());
}

TEST_F(ScanRunTest, ComparisonClearsTheFlagOfTheViews) {
    folder_.writeFile("a.txt", "same");
    addRow(folder_.path());
    run_.setAfterSimilarReportCall(true);
    scan();
    EXPECT_FALSE(run_.afterSimilarReportCall());
}

TEST_F(ScanRunTest, WithoutAComparisonTheFlagOfTheViewsStays) {
    addRow(folder_.path());
    run_.setAfterSimilarReportCall(true);
    scan();
    EXPECT_TRUE(run_.afterSimilarReportCall());
}

TEST_F(ScanRunTest, ScansAgainAfterHomeCleanup) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    for (int round = 0; round < 3; ++round) {
        addRow(folder_.path());
        scan();
        EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
        run_.homeCleanup();
    }
}

TEST_F(ScanRunTest, PauseHoldsTheCollectionUntilCleared) {
    folder_.writeFile("one/a.txt", "same");
    folder_.writeFile("two/b.txt", "same");
    addRow(folder_.path());
    recorder_.at("collectionStarted", [this] { run_.setPause(true); });
    start();
    recorder_.waitFor("paused");
    EXPECT_FALSE(run_.added());
    EXPECT_FALSE(recorder_.saw("collecting a.txt"));
    run_.setPause(false);
    run_.wait();
    EXPECT_TRUE(recorder_.saw("resumed"));
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

TEST_F(ScanRunTest, PausedComparisonReportsNothing) {
    for (int number = 0; number < 50; ++number) {
        folder_.writeFile(std::to_string(number) + ".txt", "same");
    }
    addRow(folder_.path());
    recorder_.at("comparisonStarted 50", [this] { run_.setPause(true); });
    start();
    recorder_.waitFor("comparisonStarted 50");
    // Only the elapsed time may be reported while everything else waits.
    EXPECT_FALSE(run_.exactScanCompleted());
    EXPECT_TRUE(run_.scanning());
    for (const Event& event : recorder_.events()) {
        EXPECT_FALSE(event.starts_with("processing")) << event;
    }
    run_.setPause(false);
    run_.wait();
    EXPECT_EQ(run_.result().modal->totalFiles(), 49U);
    EXPECT_EQ(run_.processed(), 50U);
}

TEST_F(ScanRunTest, StopEndsAPause) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    addRow(folder_.path());
    recorder_.at("comparisonStarted 2", [this] { run_.setPause(true); });
    start();
    recorder_.waitFor("comparisonStarted 2");
    run_.requestStop();
    run_.wait();
    EXPECT_FALSE(run_.pause());
    EXPECT_EQ(run_.result().modal->extensionCount(), 0U);
}

TEST_F(ScanRunTest, ElapsedTimeFollowsTheClock) {
    folder_.writeFile("a.txt", "same");
    addRow(folder_.path());
    std::mutex gate;
    gate.lock();
    recorder_.at("collectionStarted", [&gate] { const std::lock_guard hold(gate); });
    start();
    platform_.clock().advance(61500ms);
    recorder_.waitFor("Elapsed Time: 00:01:01");
    gate.unlock();
    run_.wait();
}

TEST_F(ScanRunTest, ElapsedTimeExcludesPauses) {
    folder_.writeFile("a.txt", "same");
    addRow(folder_.path());
    std::mutex gate;
    gate.lock();
    recorder_.at("collectionStarted", [&gate] { const std::lock_guard hold(gate); });
    start();
    platform_.clock().advance(100500ms);
    recorder_.waitFor("Elapsed Time: 00:01:40");
    run_.setPause(true);
    // Each step of a pause counts as a second, so the reported time falls behind the clock.
    const auto behind = [this] {
        const std::vector<Event> events = recorder_.events();
        const auto last = std::find_if(events.rbegin(), events.rend(), [](const Event& event) {
            return event.starts_with("Elapsed Time: ");
        });
        return last != events.rend() && *last < "Elapsed Time: 00:01:40";
    };
    EXPECT_TRUE(waitUntil([&] {
        run_.setPause(true);
        std::this_thread::yield();
        run_.setPause(false);
        return behind();
    }));
    gate.unlock();
    run_.wait();
}

TEST_F(ScanRunTest, ReportsTheFileWaitedForBeforeTheGateIsDue) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    std::mutex gate;
    gate.lock();
    fileSystem_.beforeCall(FileCall::openFile, FaultyFileSystem::each,
                           [&gate] { const std::lock_guard hold(gate); });
    fileSystem_.setListingOrder(ListingOrder::sorted);
    ScanRun::Settings rarely = settings();
    rarely.progressInterval = std::chrono::hours(1);
    ScanRun run(platform_, recorder_, rarely);
    run.start({{folder_.path(), "", "", true, true}}, {});
    recorder_.waitFor("processing a.txt");
    gate.unlock();
    run.wait();
    EXPECT_EQ(run.result().modal->totalFiles(), 1U);
}

TEST_F(ScanRunTest, ReportsAMissingLocationAndScansTheOthers) {
    folder_.writeFile("there/a.txt", "same");
    folder_.writeFile("there/b.txt", "same");
    addRow(folder_.pathOf("gone"));
    addRow(folder_.pathOf("there"));
    scan();
    ASSERT_EQ(run_.result().unreadableLocations.size(), 1U);
    EXPECT_EQ(run_.result().unreadableLocations[0].path, folder_.pathOf("gone"));
    EXPECT_EQ(run_.result().unreadableLocations[0].error.code, ENOENT);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

TEST_F(ScanRunTest, SkipsExceptions) {
    const std::string excepted = folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    addRow(folder_.path());
    start(ExceptionFilter({excepted}));
    run_.wait();
    EXPECT_EQ(run_.result().collected(Category::documents), 1U);
    EXPECT_TRUE(recorder_.saw("collecting a.txt"));
}

TEST_F(ScanRunTest, FindsEqualFilesFiveThousandLevelsDeep) {
    folder_.makeChain("", "level", 5'000, {"a.txt"}, "same", 4'900);
    addRow(folder_.path());
    scan();
    const PlainResult found = plainResultOf(*run_.result().modal);
    ASSERT_EQ(found.size(), 1U);
    ASSERT_EQ(found[0].sets.size(), 1U);
    const std::vector<std::string>& set = found[0].sets[0];
    EXPECT_EQ(set.size(), 100U);
    EXPECT_TRUE(std::any_of(set.begin(), set.end(), [this](const std::string& path) {
        return path.size() == folder_.path().size() + 5'000 * 6 + 6;
    }));
}

TEST_F(ScanRunTest, FindsEqualFilesWithPathsOverPathMax) {
    const std::string bottom =
        folder_.makeChain("", std::string(250, 'd'), 20, {"a.txt", "b.txt"}, "same");
    addRow(bottom);
    scan();
    const PlainResult found = plainResultOf(*run_.result().modal);
    ASSERT_EQ(found.size(), 1U);
    std::vector<std::string> set = found[0].sets.at(0);
    std::sort(set.begin(), set.end());
    EXPECT_EQ(set, (std::vector{bottom + "/a.txt", bottom + "/b.txt"}));
}

TEST_F(ScanRunTest, DestructorEndsTheThreadsOfARunningScan) {
    for (int number = 0; number < 200; ++number) {
        folder_.writeFile(std::to_string(number) + ".txt", noise(20'000, 1));
    }
    for (const char* when : {"collectionStarted", "collectionFinished", "comparisonStarted 200"}) {
        Recorder recorder;
        ScanRun run(platform_, recorder, settings());
        run.start({{folder_.path(), "", "", true, true}}, {});
        recorder.waitFor(when);
    }
}

/// Pauses, resumes and stops at every stage. The result must be sets of equal files.
TEST_F(ScanRunTest, StopAtAnyMomentLeavesOnlyEqualFilesInSets) {
    for (int number = 0; number < 60; ++number) {
        folder_.writeFile(std::to_string(number) + ".txt",
                          noise(number % 2 == 0 ? 300 : 40'000, static_cast<unsigned>(number) % 7));
    }
    std::size_t stoppedEarly = 0;
    for (std::size_t moment = 0; moment < 150; ++moment) {
        Recorder recorder;
        ScanRun run(platform_, recorder, settings());
        run.start({{folder_.path(), "", "", true, true}}, {});
        while (recorder.count() < moment && run.scanning()) {
            std::this_thread::yield();
        }
        run.setPause(true);
        std::this_thread::yield();
        run.setPause(false);
        run.requestStop();
        run.wait();
        const PlainResult found = plainResultOf(*run.result().modal);
        std::size_t files = 0;
        for (const auto& extension : run.result().modal->extensions()) {
            for (const auto& set : extension->sets()) {
                ASSERT_GE(set->files().size(), 2U);
                files += set->files().size();
                std::vector<File*> members;
                for (const auto& file : set->files()) {
                    members.push_back(file.get());
                }
                ASSERT_EQ(findPairwise(members).size(), 1U);
                ASSERT_EQ(findPairwise(members)[0].sets[0].size(), members.size());
            }
        }
        stoppedEarly += files < 60 ? 1 : 0;
    }
    EXPECT_GT(stoppedEarly, 0U);
}

/// The scan may replace its work at the moment of the request. For the thread and address
/// sanitizers.
TEST_F(ScanRunTest, StopMayBeRequestedWhileTheWorkIsReplaced) {
    Recorder recorder;
    ScanRun run(platform_, recorder, settings());
    std::atomic<bool> ended{false};
    std::thread owner([&run, &ended] {
        for (int count = 0; count < 500; ++count) {
            run.homeCleanup();
        }
        ended = true;
    });
    while (!ended) {
        run.requestStop();
    }
    owner.join();
    EXPECT_FALSE(run.wasStopped());
}

}  // namespace
}  // namespace tarvin
