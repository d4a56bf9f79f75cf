#include "scan/budget.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <future>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

TEST(Budget, GrantsRequestsUpToItsAmount) {
    Budget budget(3);
    EXPECT_EQ(budget.amount(), 3u);
    const Budget::Share one = budget.take(1);
    const Budget::Share two = budget.tryTake(2);
    EXPECT_TRUE(one);
    EXPECT_EQ(one.amount(), 1u);
    EXPECT_TRUE(two);
    EXPECT_EQ(two.amount(), 2u);
    EXPECT_FALSE(budget.tryTake(1));
    EXPECT_EQ(budget.amount(), 3u);
}

TEST(Budget, DestroyedShareIsFreeAgain) {
    Budget budget(2);
    {
        const Budget::Share all = budget.take(2);
        EXPECT_FALSE(budget.tryTake(1));
    }
    EXPECT_TRUE(budget.tryTake(2));
}

TEST(Budget, ReleasedShareIsFreedOnce) {
    Budget budget(2);
    Budget::Share share = budget.take(1);
    share.release();
    share.release();
    EXPECT_FALSE(share);
    EXPECT_EQ(share.amount(), 0u);
    EXPECT_TRUE(budget.tryTake(2));
    EXPECT_FALSE(budget.tryTake(3));
}

TEST(Budget, TryTakeFailsIfTooLittleIsFree) {
    Budget budget(4);
    const Budget::Share three = budget.take(3);
    EXPECT_FALSE(budget.tryTake(2));
    EXPECT_TRUE(budget.tryTake(1));
}

TEST(Budget, TryTakeFailsAboveTheWholeBudget) {
    Budget budget(4);
    EXPECT_FALSE(budget.tryTake(5));
    EXPECT_TRUE(budget.tryTake(4));
}

TEST(Budget, TakeAboveTheWholeBudgetGetsAll) {
    Budget budget(4);
    const Budget::Share share = budget.take(1000);
    EXPECT_EQ(share.amount(), 4u);
    EXPECT_FALSE(budget.tryTake(1));
}

TEST(Budget, MovedShareStaysTaken) {
    Budget budget(2);
    Budget::Share first = budget.take(2);
    Budget::Share second(std::move(first));
    EXPECT_EQ(second.amount(), 2u);
    EXPECT_FALSE(budget.tryTake(1));
    Budget::Share third;
    third = std::move(second);
    EXPECT_EQ(third.amount(), 2u);
    EXPECT_FALSE(budget.tryTake(1));
}

TEST(Budget, AssignmentFreesTheOldShare) {
    Budget budget(3);
    Budget::Share share = budget.take(2);
    share = budget.take(1);
    EXPECT_EQ(share.amount(), 1u);
    EXPECT_TRUE(budget.tryTake(2));
}

TEST(Budget, SplitsAShare) {
    Budget budget(5);
    Budget::Share whole = budget.take(5);
    {
        const Budget::Share part = whole.split(2);
        EXPECT_EQ(part.amount(), 2u);
        EXPECT_EQ(whole.amount(), 3u);
        EXPECT_FALSE(budget.tryTake(1));
    }
    EXPECT_TRUE(budget.tryTake(2));
    EXPECT_FALSE(budget.tryTake(3));
    const Budget::Share rest = whole.split(100);
    EXPECT_EQ(rest.amount(), 3u);
    EXPECT_EQ(whole.amount(), 0u);
}

TEST(Budget, TakeBlocksUntilEnoughIsFree) {
    Budget budget(3);
    Budget::Share first = budget.take(2);
    Budget::Share second = budget.take(1);
    std::promise<std::size_t> taken;
    std::future<std::size_t> result = taken.get_future();
    std::thread waiting([&] { taken.set_value(budget.take(3).amount()); });
    second.release();
    EXPECT_NE(result.wait_for(0s), std::future_status::ready);
    first.release();
    ASSERT_EQ(result.wait_for(testPatience), std::future_status::ready);
    EXPECT_EQ(result.get(), 3u);
    waiting.join();
}

TEST(Budget, OneReleaseServesAllThatFit) {
    Budget budget(4);
    Budget::Share all = budget.take(4);
    std::atomic<int> served{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            const Budget::Share share = budget.take(1);
            ++served;
            // Ends only if all four hold a share at once.
            while (served != 4) {
                std::this_thread::yield();
            }
        });
    }
    all.release();
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(budget.tryTake(4));
}

TEST(Budget, NeverExceedsItsAmount) {
    Budget budget(5);
    std::atomic<std::size_t> inUse{0};
    std::atomic<bool> exceeded{false};
    const auto useOften = [&](std::size_t amount) {
        for (int round = 0; round < 2000; ++round) {
            const Budget::Share share = budget.take(amount);
            exceeded = exceeded || (inUse += share.amount()) > 5;
            inUse -= share.amount();
        }
    };
    std::vector<std::thread> threads;
    for (const std::size_t amount : {1u, 2u, 3u, 9u}) {
        threads.emplace_back(useOften, amount);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_FALSE(exceeded);
    EXPECT_TRUE(budget.tryTake(5));
}

TEST(Budget, SmallRequestsDoNotStarveALargeOne) {
    Budget budget(4);
    std::atomic<bool> ended{false};
    std::atomic<int> taken{0};
    // Each thread keeps its share until another share has been taken, so that a part is always in
    // use as long as small requests are served first.
    const auto passOn = [&] {
        while (!ended) {
            const Budget::Share share = budget.take(1);
            const int mine = ++taken;
            const auto limit = std::chrono::steady_clock::now() + 50ms;
            while (taken == mine && std::chrono::steady_clock::now() < limit) {
                std::this_thread::yield();
            }
        }
    };
    std::thread one(passOn);
    std::thread other(passOn);
    while (taken < 10) {
        std::this_thread::yield();
    }
    std::promise<void> promise;
    std::future<void> served = promise.get_future();
    std::thread large([&] {
        const Budget::Share all = budget.take(4);
        promise.set_value();
    });
    EXPECT_EQ(served.wait_for(testPatience), std::future_status::ready)
        << taken << " small requests came first";
    ended = true;
    one.join();
    other.join();
    large.join();
}

}  // namespace
}  // namespace tarvin
