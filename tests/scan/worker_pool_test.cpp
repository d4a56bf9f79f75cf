#include "scan/worker_pool.h"

#include "scan/budget.h"
#include "scan/scan_control.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

/// Counts the tasks that run at once, and their maximum.
class Crowd final {
 public:
    void enter() {
        const int now = ++inside_;
        int max = max_;
        while (now > max && !max_.compare_exchange_weak(max, now)) {
        }
    }
    void leave() { --inside_; }
    [[nodiscard]] int inside() const { return inside_; }
    [[nodiscard]] int max() const { return max_; }

 private:
    std::atomic<int> inside_{0};
    std::atomic<int> max_{0};
};

/// A fake device that counts its reads for each thread.
class Device final {
 public:
    static void fetch() { ++reads; }
    static ThreadUse useOfThisThread() { return {.deviceReads = reads}; }

 private:
    static thread_local std::uint64_t reads;
};

thread_local std::uint64_t Device::reads = 0;

TEST(WorkerPool, HasAtLeastOneCoreAndTheWidthOfItsCores) {
    const WorkerPool nothing({0, 0});
    EXPECT_EQ(nothing.cores(), 1u);
    EXPECT_EQ(nothing.width(), 1u);
    EXPECT_EQ(nothing.networkWidth(), 1u);
    const WorkerPool narrow({4, 2});
    EXPECT_EQ(narrow.cores(), 4u);
    EXPECT_EQ(narrow.width(), 4u);
    const WorkerPool wide({2, 9});
    EXPECT_EQ(wide.cores(), 2u);
    EXPECT_EQ(wide.width(), 9u);
    EXPECT_EQ(wide.networkWidth(), 9u);
    const WorkerPool wider({2, 9, 12});
    EXPECT_EQ(wider.width(), 9u);
    EXPECT_EQ(wider.networkWidth(), 12u);
}

TEST(WorkerPool, LimitsFollowTheMachine) {
    const WorkerPool::Limits limits = WorkerPool::limitsOfThisMachine();
    EXPECT_GE(limits.cores, 1u);
    EXPECT_GE(limits.width, limits.cores);
    EXPECT_EQ(limits.networkWidth, 64u);
}

TEST(WorkerPool, CanBeDestroyedUnused) {
    for (int round = 0; round < 100; ++round) {
        const WorkerPool pool({2, 8});
    }
}

TEST(WorkerPool, RunsTasksFirstInFirstOut) {
    std::vector<int> order;
    {
        WorkerPool pool({1, 1});
        for (int task = 0; task < 1000; ++task) {
            pool.submit([&order, task] { order.push_back(task); });
        }
    }
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(order, expected);
}

TEST(WorkerPool, RunsQueuedTasksOnDestruction) {
    for (int round = 0; round < 50; ++round) {
        std::atomic<int> runs{0};
        {
            WorkerPool pool({2, 4});
            for (int task = 0; task < 200; ++task) {
                pool.submit([&runs] { ++runs; });
            }
        }
        EXPECT_EQ(runs, 200);
    }
}

TEST(WorkerPool, RunsTasksQueuedByItsLastTasks) {
    std::atomic<int> runs{0};
    std::function<void(WorkerPool&, int)> queueNext = [&](WorkerPool& pool, int left) {
        ++runs;
        if (left > 0) {
            pool.submit([&queueNext, &pool, left] { queueNext(pool, left - 1); });
        }
    };
    {
        WorkerPool pool({2, 4});
        pool.submit([&] { queueNext(pool, 500); });
    }
    EXPECT_EQ(runs, 501);
}

TEST(WorkerPool, AcceptsTasksFromManyThreads) {
    std::atomic<int> runs{0};
    {
        WorkerPool pool({2, 4});
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&] {
                for (int task = 0; task < 2000; ++task) {
                    pool.submit([&runs] { ++runs; });
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(runs, 8000);
}

TEST(WorkerPool, DestroysATaskBeforeTheNextBegins) {
    // What a task owns is released on its worker when it ends, not when the next task begins.
    WorkerPool pool({1, 1});
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watch = held;
    pool.submit([held = std::move(held)] {});
    EXPECT_TRUE(waitUntil([&] { return watch.expired(); }));
}

TEST(WorkerPool, RunsAsManyTasksAtOnceAsThereAreCores) {
    WorkerPool pool({3, 3});
    Crowd crowd;
    std::atomic<int> met{0};
    for (int task = 0; task < 3; ++task) {
        pool.submit([&] {
            crowd.enter();
            met += waitUntil([&] { return crowd.max() == 3; }) ? 1 : 0;
            crowd.leave();
        });
    }
    EXPECT_TRUE(waitUntil([&] { return met == 3; }));
}

TEST(WorkerPool, RunsNoMoreTasksThanCoresWithAWarmCache) {
    Crowd crowd;
    {
        WorkerPool pool({2, 16}, Device::useOfThisThread);
        for (int task = 0; task < 2000; ++task) {
            pool.submit([&] {
                crowd.enter();
                std::this_thread::yield();
                crowd.leave();
            });
        }
    }
    EXPECT_LE(crowd.max(), 2);
}

TEST(WorkerPool, NeverRunsMoreTasksThanItsWidth) {
    Crowd crowd;
    {
        WorkerPool pool({1, 3}, Device::useOfThisThread);
        for (int task = 0; task < 200; ++task) {
            pool.submit([&] {
                crowd.enter();
                Device::fetch();
                crowd.leave();
            });
        }
    }
    EXPECT_GE(crowd.max(), 1);
    EXPECT_LE(crowd.max(), 3);
}

/// Returns when the thread has given its CPU away a few times, as in calls that wait for a network.
void giveAwayTheCpu() {
    const std::uint64_t enough = useOfThisThread().waits + 3;
    EXPECT_TRUE(waitUntil([&] { return useOfThisThread().waits >= enough; }));
}

/// Runs 100 tasks in the pool, which must be able to start threads until the last one.
void runInCrowd(WorkerPool& pool, Crowd& crowd, const std::function<void()>& task) {
    constexpr int tasks = 100;
    std::atomic<int> ended{0};
    for (int number = 0; number < tasks; ++number) {
        pool.submit([&] {
            crowd.enter();
            task();
            crowd.leave();
            ++ended;
        });
    }
    EXPECT_TRUE(waitUntil([&] { return ended == tasks; }));
}

TEST(WorkerPool, RunsMoreTasksWhileTheyWaitForSomethingElseThanADevice) {
    Crowd crowd;
    WorkerPool pool({2, 8});
    runInCrowd(pool, crowd, [] { giveAwayTheCpu(); });
    EXPECT_EQ(crowd.max(), 8);
}

TEST(WorkerPool, RunsTwiceAsManyTasksAfterEachThatWaitedForANetwork) {
    WorkerPool pool({1, 16});
    std::atomic<int> ended{0};
    for (int task = 0; task < 4; ++task) {
        pool.submit([&] {
            giveAwayTheCpu();
            ++ended;
        });
    }
    ASSERT_TRUE(waitUntil([&] { return ended == 4; }));
    Crowd crowd;
    for (int task = 0; task < 8; ++task) {
        pool.submit([&] {
            crowd.enter();
            // One more for each would be 5.
            EXPECT_TRUE(waitUntil([&] { return crowd.max() >= 6; }));
            ++ended;
        });
    }
    EXPECT_TRUE(waitUntil([&] { return ended == 12; }));
}

TEST(WorkerPool, RunsAsManyTasksAsItsWidthOnceItIsWidened) {
    WorkerPool pool({1, 8});
    Crowd crowd;
    std::atomic<int> ended{0};
    for (int task = 0; task < 8; ++task) {
        pool.submit([&] {
            crowd.enter();
            pool.widen();
            EXPECT_TRUE(waitUntil([&] { return crowd.max() == 8; }));
            ++ended;
        });
    }
    EXPECT_TRUE(waitUntil([&] { return ended == 8; }));
}

TEST(WorkerPool, RunsMoreTasksForANetworkThanForADevice) {
    Crowd crowd;
    WorkerPool forANetwork({2, 4, 8});
    runInCrowd(forANetwork, crowd, [] { giveAwayTheCpu(); });
    EXPECT_EQ(crowd.max(), 8);
    Crowd others;
    WorkerPool forADevice({2, 4, 8}, Device::useOfThisThread);
    forADevice.widen();
    runInCrowd(forADevice, others, [] { Device::fetch(); });
    Crowd later;
    runInCrowd(forADevice, later, [] { Device::fetch(); });
    EXPECT_LE(later.max(), 4);
}

/// Uses a CPU for longer than a wait that counts.
void compute() {
    const auto end = useOfThisThread().ran + 3ms;
    while (useOfThisThread().ran < end) {
    }
}

TEST(WorkerPool, RunsNoMoreTasksThanCoresWhileTheyOnlyCompute) {
    Crowd crowd;
    WorkerPool pool({2, 8});
    runInCrowd(pool, crowd, compute);
    EXPECT_EQ(crowd.max(), 2);
}

/// Lets two tasks of a pool with two cores begin `wait`, which returns after `end` and then some.
/// The pool must not run more tasks for it.
void expectNoMoreTasksAfter(const std::function<void()>& wait, const std::function<void()>& end) {
    WorkerPool pool({2, 8});
    Crowd waiting;
    std::atomic<int> ended{0};
    for (int task = 0; task < 2; ++task) {
        pool.submit([&] {
            waiting.enter();
            wait();
            ++ended;
        });
    }
    ASSERT_TRUE(waitUntil([&] { return waiting.inside() == 2; }));
    compute();
    end();
    ASSERT_TRUE(waitUntil([&] { return ended == 2; }));
    Crowd crowd;
    runInCrowd(pool, crowd, compute);
    EXPECT_EQ(crowd.max(), 2);
}

TEST(WorkerPool, RunsNoMoreTasksWhileTheyWaitForAShare) {
    Budget budget(2);
    Budget::Share all = budget.take(2);
    expectNoMoreTasksAfter([&] { const Budget::Share share = budget.take(1); },
                           [&] { all.release(); });
}

TEST(WorkerPool, RunsNoMoreTasksAfterAPause) {
    ScanControl control;
    control.setPause(true);
    expectNoMoreTasksAfter([&] { control.waitWhilePaused(); }, [&] { control.setPause(false); });
}

TEST(WorkerPoolForEach, RunsNoMoreTasksWhileOneWaitsForItsCalls) {
    WorkerPool pool({2, 8});
    std::atomic<int> begun{0};
    std::atomic<bool> ended{false};
    pool.submit([&] {
        const std::thread::id caller = std::this_thread::get_id();
        pool.forEach(2, [&](std::size_t) {
            ++begun;
            while (begun != 2) {
                std::this_thread::yield();
            }
            if (std::this_thread::get_id() != caller) {
                compute();
                compute();
            }
        });
        ended = true;
    });
    ASSERT_TRUE(waitUntil([&] { return ended.load(); }));
    Crowd crowd;
    runInCrowd(pool, crowd, compute);
    EXPECT_EQ(crowd.max(), 2);
}

TEST(WorkerPoolForEach, StaysWideWhenHelpersComeTooLate) {
    Crowd crowd;
    WorkerPool pool({2, 8});
    for (int round = 0; round < 20; ++round) {
        pool.forEach(8, [&](std::size_t) {
            crowd.enter();
            giveAwayTheCpu();
            crowd.leave();
        });
    }
    EXPECT_EQ(crowd.max(), 8);
}

/// Runs tasks that read from the device until the pool runs `width` at once. Returns false if it
/// never does.
bool widen(WorkerPool& pool) {
    Crowd crowd;
    std::atomic<bool> reached{false};
    std::atomic<unsigned> ended{0};
    const unsigned tasks = pool.width() * 4;
    for (unsigned task = 0; task < tasks; ++task) {
        pool.submit([&] {
            crowd.enter();
            Device::fetch();
            const auto limit = std::chrono::steady_clock::now() + 100ms;
            while (!reached && std::chrono::steady_clock::now() < limit) {
                reached = reached || crowd.inside() == static_cast<int>(pool.width());
                std::this_thread::yield();
            }
            crowd.leave();
            ++ended;
        });
    }
    waitUntil([&] { return ended == tasks; });
    return reached;
}

TEST(WorkerPool, RunsMoreTasksWhileTheyReadFromADevice) {
    WorkerPool pool({1, 4}, Device::useOfThisThread);
    EXPECT_TRUE(widen(pool));
}

TEST(WorkerPool, RunsFewerTasksAgainWithAWarmCache) {
    WorkerPool pool({1, 4}, Device::useOfThisThread);
    ASSERT_TRUE(widen(pool));
    std::atomic<int> warm{0};
    for (int task = 0; task < 50; ++task) {
        pool.submit([&warm] { ++warm; });
    }
    ASSERT_TRUE(waitUntil([&] { return warm == 50; }));
    Crowd crowd;
    std::atomic<int> ended{0};
    for (int task = 0; task < 200; ++task) {
        pool.submit([&] {
            crowd.enter();
            std::this_thread::yield();
            crowd.leave();
            ++ended;
        });
    }
    EXPECT_TRUE(waitUntil([&] { return ended == 200; }));
    EXPECT_EQ(crowd.max(), 1);
}

TEST(WorkerPool, CanBeDestroyedWithSuperfluousIdleWorkers) {
    auto pool = std::make_unique<WorkerPool>(WorkerPool::Limits{1, 4}, Device::useOfThisThread);
    ASSERT_TRUE(widen(*pool));
    // Shared, because the pool may outlive the test.
    struct Shared {
        std::atomic<int> runs{0};
        std::atomic<pid_t> ending{0};
        std::promise<void> ended;
    };
    const auto shared = std::make_shared<Shared>();
    for (int task = 0; task < 50; ++task) {
        pool->submit([shared] { ++shared->runs; });
    }
    // Now there are four threads, and one task runs at a time.
    ASSERT_TRUE(waitUntil([&] { return shared->runs == 50; }));
    pool->submit(
        [shared] { waitUntil([&] { return shared->ending != 0 && isAsleep(shared->ending); }); });
    for (int task = 0; task < 2000; ++task) {
        pool->submit([shared] {
            ++shared->runs;
            std::this_thread::yield();
        });
    }
    std::future<void> ended = shared->ended.get_future();
    std::thread ending([shared, pool = std::move(pool)]() mutable {
        shared->ending = ::gettid();
        pool.reset();
        shared->ended.set_value();
    });
    const bool inTime = ended.wait_for(testPatience) == std::future_status::ready;
    EXPECT_TRUE(inTime) << "Workers still wait for something to do";
    EXPECT_EQ(shared->runs, 2050);
    if (inTime) {
        ending.join();
    } else {
        ending.detach();
    }
}

TEST(WorkerPoolForEach, MakesEachCallOnce) {
    WorkerPool pool({2, 4});
    for (const std::size_t count : {0u, 1u, 2u, 3u, 5u, 1000u}) {
        std::vector<std::atomic<int>> calls(count);
        pool.forEach(count, [&](std::size_t index) { ++calls[index]; });
        EXPECT_TRUE(std::all_of(calls.begin(), calls.end(), [](int each) { return each == 1; }))
            << count;
    }
}

TEST(WorkerPoolForEach, ReturnsAfterAllCalls) {
    WorkerPool pool({4, 4});
    for (int round = 0; round < 500; ++round) {
        std::atomic<int> left{20};
        pool.forEach(20, [&](std::size_t) {
            std::this_thread::yield();
            --left;
        });
        EXPECT_EQ(left, 0);
    }
}

TEST(WorkerPoolForEach, MakesTheFirstCallsOfAPoolOfOneOnTheCallingThread) {
    WorkerPool pool({1, 1});
    std::vector<std::size_t> order;
    const std::thread::id here = std::this_thread::get_id();
    pool.forEach(5, [&](std::size_t index) {
        EXPECT_EQ(std::this_thread::get_id(), here);
        order.push_back(index);
    });
    EXPECT_EQ(order, (std::vector<std::size_t>{0, 1, 2, 3, 4}));
}

TEST(WorkerPoolForEach, UsesFreeWorkers) {
    WorkerPool pool({2, 2});
    Crowd crowd;
    pool.forEach(2, [&](std::size_t) {
        crowd.enter();
        EXPECT_TRUE(waitUntil([&] { return crowd.max() == 2; }));
        crowd.leave();
    });
}

TEST(WorkerPoolForEach, DoesNotWaitForBusyWorkers) {
    Event gate;
    Crowd busy;
    WorkerPool pool({2, 2});
    for (int task = 0; task < 2; ++task) {
        pool.submit([&] {
            busy.enter();
            gate.wait();
            busy.leave();
        });
    }
    ASSERT_TRUE(waitUntil([&] { return busy.inside() == 2; }));
    std::atomic<int> calls{0};
    pool.forEach(100, [&](std::size_t) { ++calls; });
    EXPECT_EQ(calls, 100);
    EXPECT_EQ(busy.inside(), 2);
    gate.set();
}

TEST(WorkerPoolForEach, RunsAheadOfQueuedTasks) {
    // One worker, which becomes free when both a task and calls are queued.
    Event gate;
    WorkerPool pool({1, 2});
    std::atomic<bool> busy{false};
    pool.submit([&] {
        busy = true;
        gate.wait();
    });
    ASSERT_TRUE(waitUntil([&] { return busy.load(); }));
    std::mutex mutex;
    std::vector<std::string> order;
    const auto note = [&](const std::string& what) {
        const std::lock_guard lock(mutex);
        order.push_back(what);
    };
    std::atomic<int> callsOfTheWorker{0};
    std::atomic<bool> taskRan{false};
    pool.submit([&] {
        note("task");
        taskRan = true;
    });
    const std::thread::id here = std::this_thread::get_id();
    pool.forEach(4, [&](std::size_t) {
        if (std::this_thread::get_id() != here) {
            note("call");
            ++callsOfTheWorker;
            return;
        }
        gate.set();
        EXPECT_TRUE(waitUntil([&] { return callsOfTheWorker == 3; }));
    });
    EXPECT_TRUE(waitUntil([&] { return taskRan.load(); }));
    EXPECT_EQ(order, (std::vector<std::string>{"call", "call", "call", "task"}));
}

TEST(WorkerPoolForEach, CanBeNested) {
    for (const WorkerPool::Limits limits :
         {WorkerPool::Limits{1, 1}, WorkerPool::Limits{2, 2}, WorkerPool::Limits{2, 8}}) {
        WorkerPool pool(limits);
        std::atomic<int> calls{0};
        pool.forEach(5, [&](std::size_t) {
            pool.forEach(6, [&](std::size_t) { pool.forEach(7, [&](std::size_t) { ++calls; }); });
        });
        EXPECT_EQ(calls, 210);
    }
}

TEST(WorkerPoolForEach, CanBeUsedInsideTasksThatOccupyAllWorkers) {
    for (const WorkerPool::Limits limits : {WorkerPool::Limits{1, 1}, WorkerPool::Limits{3, 8}}) {
        std::atomic<int> calls{0};
        {
            WorkerPool pool(limits);
            for (int task = 0; task < 100; ++task) {
                pool.submit([&] { pool.forEach(10, [&](std::size_t) { ++calls; }); });
            }
        }
        EXPECT_EQ(calls, 1000);
    }
}

TEST(WorkerPoolForEach, CanBeUsedOnSeveralThreadsAtOnce) {
    WorkerPool pool({2, 4});
    std::vector<std::thread> threads;
    std::vector<std::atomic<int>> calls(4);
    for (std::size_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < 100; ++round) {
                pool.forEach(30, [&](std::size_t) { ++calls[thread]; });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::atomic<int>& each : calls) {
        EXPECT_EQ(each, 3000);
    }
}

TEST(WorkerPoolForEach, LateHelpersDoNotUseTheCallersFrame) {
    // Helper tasks that start after forEach() has returned must not use the caller's objects.
    WorkerPool pool({2, 8});
    for (int round = 0; round < 500; ++round) {
        std::vector<int> results(3);
        pool.forEach(results.size(), [&results](std::size_t index) { results[index] = 1; });
        EXPECT_EQ(std::accumulate(results.begin(), results.end(), 0), 3);
    }
}

}  // namespace
}  // namespace tarvin
