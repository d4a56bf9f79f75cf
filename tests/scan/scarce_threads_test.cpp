#include "scan/scan_run.h"
#include "scan/worker_pool.h"
#include "support/comparison_fixture.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <new>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

/// During its lifetime there is no address space for the stack of a new thread.
class NoThreads final {
 public:
    NoThreads() {
        pthread_attr_init(&before_);
        EXPECT_EQ(pthread_getattr_default_np(&before_), 0);
        pthread_attr_t huge;
        pthread_attr_init(&huge);
        EXPECT_EQ(pthread_attr_setstacksize(&huge, std::size_t{1} << 46U), 0);
        EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
        pthread_attr_destroy(&huge);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() {
        pthread_setattr_default_np(&before_);
        pthread_attr_destroy(&before_);
    }

 private:
    pthread_attr_t before_{};
};

TEST(ScarceThreads, ScanRunsOnTheCallersThread) {
    FileTree tree;
    for (int number = 0; number < 50; ++number) {
        tree.writeFile("folder " + std::to_string(number) + "/a.txt", "same");
        tree.writeFile("folder " + std::to_string(number) + "/b.mp3", noise(20'000, 1));
    }
    FaultyFileSystem fileSystem;
    FakePlatform platform(fileSystem);
    ScanObserver observer;
    ScanRun run(platform, observer);
    {
        const NoThreads none;
        run.start({{tree.path(), "", "", true, true}}, {});
        run.wait();
        EXPECT_FALSE(run.scanning());
        EXPECT_EQ(run.result().modal->totalFiles(), 98U);
        run.homeCleanup();
    }
    EXPECT_EQ(run.result().modal->totalFiles(), 0U);
}

/// Records the names of the files that the comparison reports.
class CategoryNames final : public ScanObserver {
 public:
    void processing(const std::string& path, std::uint64_t /*processed*/) override {
        names_.push_back(path.substr(path.rfind('/') + 1));
    }

    [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

 private:
    std::vector<std::string> names_;
};

TEST(ScarceThreads, CategoriesAreComparedInTheirOrder) {
    FileTree tree;
    for (const char* name : {"a.xyz", "a.pdf", "a.mp3", "a.mp4", "a.jpg"}) {
        tree.writeFile(name, "same");
    }
    FaultyFileSystem fileSystem;
    FakePlatform platform(fileSystem);
    CategoryNames names;
    ScanRun::Settings settings;
    settings.progressInterval = 0ms;
    ScanRun run(platform, names, settings);
    const NoThreads none;
    run.start({{tree.path(), "", "", true, true}}, {});
    run.wait();
    EXPECT_EQ(names.names(),
              (std::vector<std::string>{"a.jpg", "a.mp4", "a.mp3", "a.pdf", "a.xyz"}));
}

TEST(ScarceThreads, TaskRunsOnTheWaitingThread) {
    const NoThreads none;
    WorkerPool pool({2, 4});
    int runs = 0;
    pool.submit([&] { ++runs; });
    pool.submit([&] { ++runs; });
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(pool.runOneHere());
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(pool.runOneHere());
    EXPECT_FALSE(pool.runOneHere());
    EXPECT_EQ(runs, 2);
}

TEST(ScarceThreads, PoolWithoutThreadsRunsQueuedTasksOnDestruction) {
    const NoThreads none;
    int runs = 0;
    {
        WorkerPool pool({2, 4});
        pool.submit([&] { ++runs; });
        pool.forEach(5, [&](std::size_t) { ++runs; });
    }
    EXPECT_EQ(runs, 6);
}

TEST(ScarceThreads, RunOneHereLeavesTasksToWorkers) {
    WorkerPool pool({1, 1});
    std::mutex gate;
    gate.lock();
    std::atomic<int> runs{0};
    pool.submit([&] { const std::lock_guard pass(gate); });
    pool.submit([&] { ++runs; });
    EXPECT_FALSE(pool.runOneHere());
    EXPECT_EQ(runs, 0);
    gate.unlock();
    EXPECT_TRUE(waitUntil([&] { return runs == 1; }));
}

TEST(StuckTasks, LetOthersRunInTheirPlace) {
    WorkerPool pool({1, 1});
    std::mutex gate;
    gate.lock();
    std::atomic<bool> stuck{false};
    std::atomic<int> runs{0};
    pool.submit([&] {
        stuck = true;
        const std::lock_guard pass(gate);
    });
    ASSERT_TRUE(waitUntil([&] { return stuck.load(); }));
    for (int task = 0; task < 10; ++task) {
        pool.submit([&] { ++runs; });
    }
    EXPECT_EQ(runs, 0);
    pool.allowForStuck(1);
    EXPECT_TRUE(waitUntil([&] { return runs == 10; }));
    gate.unlock();
}

TEST(StuckTasks, EndWithinTimesOut) {
    WorkerPool pool({1, 1});
    std::mutex gate;
    gate.lock();
    pool.submit([&] { const std::lock_guard pass(gate); });
    EXPECT_FALSE(pool.endWithin(20ms));
    gate.unlock();
    EXPECT_TRUE(pool.endWithin(testPatience));
}

TEST(StuckTasks, KeepWhatTheyUseAliveWhenTheyAreAbandoned) {
    struct Owner {
        std::atomic<int> ended{0};
        WorkerPool pool{WorkerPool::Limits{1, 1}};
    };
    // Outlives the task.
    struct Outside {
        std::mutex gate;
        std::atomic<bool> stuck{false};
        std::atomic<bool> dropped{true};
    };
    auto owner = std::make_shared<Owner>();
    const auto outside = std::make_shared<Outside>();
    const std::weak_ptr<Owner> watch = owner;
    owner->pool.keepAlive(owner);
    outside->gate.lock();
    owner->pool.submit([outside, raw = owner.get()] {
        outside->stuck = true;
        const std::lock_guard pass(outside->gate);
        ++raw->ended;
    });
    owner->pool.submit([outside] { outside->dropped = false; });
    ASSERT_TRUE(waitUntil([&] { return outside->stuck.load(); }));
    owner->pool.abandon();
    EXPECT_TRUE(owner->pool.isAbandoned());
    owner = nullptr;
    EXPECT_FALSE(watch.expired());
    outside->gate.unlock();
    EXPECT_TRUE(waitUntil([&] { return watch.expired(); }));
    EXPECT_TRUE(outside->dropped);
}

TEST(ScarceMemory, ForEachRethrowsBadAlloc) {
    WorkerPool pool({2, 4});
    std::atomic<int> calls{0};
    EXPECT_THROW(pool.forEach(20,
                              [&](std::size_t index) {
                                  ++calls;
                                  if (index == 7) {
                                      throw std::bad_alloc();
                                  }
                              }),
                 std::bad_alloc);
    EXPECT_EQ(calls, 20);
}

class ScarceMemoryInAScan : public ::testing::TestWithParam<FileCall> {};

TEST_P(ScarceMemoryInAScan, EndsTheScanAndIsReported) {
    FileTree tree;
    for (int number = 0; number < 100; ++number) {
        tree.writeFile("f/" + std::to_string(number) + ".txt", noise(20'000, 1));
        tree.writeFile("g/" + std::to_string(number) + ".mp3", "small");
    }
    FaultyFileSystem fileSystem;
    FakePlatform platform(fileSystem);
    ScanObserver observer;
    fileSystem.beforeCall(GetParam(), 2, [] { throw std::bad_alloc(); });
    ScanRun run(platform, observer);
    run.start({{tree.path(), "", "", true, true}}, {});
    run.wait();
    EXPECT_TRUE(run.result().ranOutOfMemory);
    EXPECT_FALSE(run.scanning());
    EXPECT_FALSE(run.wasStopped());
    run.homeCleanup();
    EXPECT_FALSE(run.result().ranOutOfMemory);
    run.start({{tree.path(), "", "", true, true}}, {});
    run.wait();
    EXPECT_EQ(run.result().modal->totalFiles(), 198U);
}

INSTANTIATE_TEST_SUITE_P(Calls, ScarceMemoryInAScan,
                         ::testing::Values(FileCall::openDirectoryAt, FileCall::listEntries,
                                           FileCall::attributesAt, FileCall::openFile,
                                           FileCall::readAt),
                         [](const auto& info) {
                             return "Call" + std::to_string(static_cast<int>(info.param));
                         });

}  // namespace
}  // namespace tarvin
