#include "scan/elapsed_time_thread.h"

#include "support/fake_platform.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

class Reports final : public ScanObserver {
 public:
    void elapsed(const std::string& text) override {
        const std::lock_guard lock(mutex_);
        texts_.push_back(text);
    }

    /// The first `count` reports.
    [[nodiscard]] std::vector<std::string> first(std::size_t count) {
        EXPECT_TRUE(waitUntil([&] { return this->count() >= count; }));
        const std::lock_guard lock(mutex_);
        return {texts_.begin(),
                texts_.begin() + static_cast<std::ptrdiff_t>(std::min(count, texts_.size()))};
    }

    [[nodiscard]] std::size_t count() {
        const std::lock_guard lock(mutex_);
        return texts_.size();
    }

 private:
    std::mutex mutex_;
    std::vector<std::string> texts_;  // guarded by mutex_
};

class ElapsedTimeThreadTest : public ::testing::Test {
 protected:
    FakeClock clock_;
    Reports reports_;
};

TEST_F(ElapsedTimeThreadTest, ReportsTheTimeSinceTheStartOfTheScan) {
    ElapsedTimeThread thread(clock_, reports_, 1ms, [] { return false; });
    const Timestamp start = clock_.now();
    clock_.advance(61500ms);
    thread.startElapsedTimeThread(start);
    EXPECT_EQ(reports_.first(1), (std::vector<std::string>{"Elapsed Time: 00:01:01"}));
}

TEST_F(ElapsedTimeThreadTest, CountsEachPausedStepAsOneSecond) {
    // Two pauses, of seven and of three steps.
    const std::vector<bool> pauses{true, true,  true, true, true, true,
                                   true, false, true, true, true, false};
    std::atomic<std::size_t> calls{0};
    ElapsedTimeThread thread(clock_, reports_, 1ms, [&] {
        const std::size_t step = calls++;
        return step < pauses.size() && pauses[step];
    });
    const Timestamp start = clock_.now();
    clock_.advance(100500ms);
    thread.startElapsedTimeThread(start);
    EXPECT_EQ(reports_.first(2),
              (std::vector<std::string>{"Elapsed Time: 00:01:33", "Elapsed Time: 00:01:30"}));
}

TEST_F(ElapsedTimeThreadTest, ReportsNothingDuringAPause) {
    std::atomic<unsigned> calls{0};
    ElapsedTimeThread thread(clock_, reports_, 1ms, [&] {
        ++calls;
        return true;
    });
    thread.startElapsedTimeThread(clock_.now());
    EXPECT_TRUE(waitUntil([&] { return calls > 3; }));
    thread.end();
    thread.wait();
    EXPECT_EQ(reports_.count(), 0U);
}

TEST_F(ElapsedTimeThreadTest, EndsInsideAStep) {
    ElapsedTimeThread thread(clock_, reports_, std::chrono::hours(1), [] { return false; });
    EXPECT_TRUE(thread.stopElapsedTimeThread());
    thread.startElapsedTimeThread(clock_.now());
    EXPECT_FALSE(thread.stopElapsedTimeThread());
    thread.end();
    thread.wait();
    EXPECT_TRUE(thread.stopElapsedTimeThread());
    EXPECT_EQ(reports_.count(), 0U);
}

TEST_F(ElapsedTimeThreadTest, StartsAgainWithoutThePausesOfTheScanBefore) {
    std::atomic<unsigned> calls{0};
    ElapsedTimeThread thread(clock_, reports_, 1ms, [&] { return calls++ < 5; });
    const Timestamp start = clock_.now();
    clock_.advance(20500ms);
    thread.startElapsedTimeThread(start);
    EXPECT_EQ(reports_.first(1), (std::vector<std::string>{"Elapsed Time: 00:00:15"}));
    thread.end();
    thread.wait();
    const std::size_t before = reports_.count();
    thread.startElapsedTimeThread(start);
    EXPECT_EQ(reports_.first(before + 1).back(), "Elapsed Time: 00:00:20");
}

}  // namespace
}  // namespace tarvin
