#include "scan/buffer_pool.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <future>
#include <memory>
#include <mutex>
#include <set>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t mebibyte = 1'048'576;

/// How many pieces of `bytes` the lease gives before it is used up; counts no further than `most`.
std::size_t piecesOf(BufferPool::Lease& lease, std::size_t bytes, std::size_t most = 100) {
    std::size_t pieces = 0;
    while (pieces < most && !lease.allocate(bytes).empty()) {
        ++pieces;
    }
    return pieces;
}

void fill(std::span<std::byte> piece, unsigned value) {
    std::fill(piece.begin(), piece.end(), static_cast<std::byte>(value));
}

bool isFilled(std::span<const std::byte> piece, unsigned value) {
    return std::all_of(piece.begin(), piece.end(),
                       [value](std::byte byte) { return byte == static_cast<std::byte>(value); });
}

TEST(BufferPool, LendsAsMuchAsWasAskedFor) {
    BufferPool pool(8);
    EXPECT_EQ(pool.mostSlabs(), 8u);
    BufferPool::Lease lease = pool.take(3);
    EXPECT_EQ(lease.capacity(), 3 * mebibyte);
    EXPECT_EQ(piecesOf(lease, mebibyte), 3u);
}

TEST(BufferPool, LendsAllThereIsToWhoAsksForMore) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(50);
    EXPECT_EQ(lease.capacity(), 2 * mebibyte);
    EXPECT_EQ(piecesOf(lease, mebibyte), 2u);
}

TEST(BufferPool, CutsPiecesThatDoNotOverlap) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(2);
    std::vector<std::span<std::byte>> pieces;
    // Three of these fill the first slab but for a rest that is too small.
    for (unsigned piece = 0; piece < 6; ++piece) {
        pieces.push_back(lease.allocate(300'000));
        ASSERT_EQ(pieces.back().size(), 300'000u);
        fill(pieces.back(), piece);
    }
    EXPECT_TRUE(lease.allocate(300'000).empty());
    for (unsigned piece = 0; piece < 6; ++piece) {
        EXPECT_TRUE(isFilled(pieces[piece], piece)) << piece;
    }
}

TEST(BufferPool, StillCutsSmallPiecesWhenALargeOneNoLongerFits) {
    BufferPool pool(1);
    BufferPool::Lease lease = pool.take(1);
    ASSERT_EQ(lease.allocate(mebibyte - 100).size(), mebibyte - 100);
    EXPECT_TRUE(lease.allocate(101).empty());
    EXPECT_EQ(lease.allocate(100).size(), 100u);
    EXPECT_TRUE(lease.allocate(1).empty());
}

TEST(BufferPool, CutsAWholeSlabOutOfTheNextWhenOneIsBegun) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(2);
    fill(lease.allocate(1), 1);
    const std::span<std::byte> whole = lease.allocate(mebibyte);
    ASSERT_EQ(whole.size(), mebibyte);
    fill(whole, 2);
    EXPECT_TRUE(lease.allocate(1).empty());
}

TEST(BufferPool, CutsFromTheFrontAgainAfterRewinding) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(2);
    std::byte* const first = lease.allocate(mebibyte).data();
    std::byte* const second = lease.allocate(mebibyte).data();
    EXPECT_TRUE(lease.allocate(1).empty());
    lease.rewind();
    EXPECT_EQ(lease.allocate(mebibyte).data(), first);
    EXPECT_EQ(lease.allocate(mebibyte).data(), second);
    EXPECT_TRUE(lease.allocate(1).empty());
}

TEST(BufferPool, LendsTheSameMemoryAgain) {
    BufferPool pool(2);
    std::set<std::byte*> seen;
    for (int round = 0; round < 50; ++round) {
        BufferPool::Lease lease = pool.take(2);
        seen.insert(lease.allocate(mebibyte).data());
        seen.insert(lease.allocate(mebibyte).data());
    }
    EXPECT_EQ(seen.size(), 2u);
}

TEST(BufferPool, KeepsALeaseThatIsMoved) {
    BufferPool pool(1);
    BufferPool::Lease first = pool.take(1);
    const std::span<std::byte> piece = first.allocate(100);
    fill(piece, 7);
    {
        BufferPool::Lease second(std::move(first));
        EXPECT_TRUE(isFilled(piece, 7));
        EXPECT_EQ(second.allocate(100).data(), piece.data() + 100);
    }
    EXPECT_EQ(pool.take(1).capacity(), mebibyte);
}

TEST(BufferPool, LetsACallerWaitUntilSlabsAreFree) {
    BufferPool pool(3);
    auto first = std::make_unique<BufferPool::Lease>(pool.take(2));
    std::promise<std::size_t> taken;
    std::future<std::size_t> answer = taken.get_future();
    std::thread waiting([&] { taken.set_value(pool.take(2).capacity()); });
    EXPECT_NE(answer.wait_for(0s), std::future_status::ready);
    first.reset();
    ASSERT_EQ(answer.wait_for(testPatience), std::future_status::ready);
    EXPECT_EQ(answer.get(), 2 * mebibyte);
    waiting.join();
}

TEST(BufferPool, LendsSeveralLeasesThatDoNotShareMemory) {
    BufferPool pool(6);
    std::vector<BufferPool::Lease> leases = pool.takeSeveral(3, 2);
    ASSERT_EQ(leases.size(), 3u);
    std::vector<std::span<std::byte>> pieces;
    for (BufferPool::Lease& lease : leases) {
        EXPECT_EQ(lease.capacity(), 2 * mebibyte);
        for (int slab = 0; slab < 2; ++slab) {
            pieces.push_back(lease.allocate(mebibyte));
            fill(pieces.back(), static_cast<unsigned>(pieces.size()));
        }
        EXPECT_TRUE(lease.allocate(1).empty());
    }
    for (unsigned piece = 0; piece < pieces.size(); ++piece) {
        EXPECT_TRUE(isFilled(pieces[piece], piece + 1)) << piece;
    }
}

TEST(BufferPool, LendsSeveralLeasesOfAtLeastOneSlabWhenThereAreTooFew) {
    BufferPool pool(4);
    std::vector<BufferPool::Lease> leases = pool.takeSeveral(4, 3);
    ASSERT_EQ(leases.size(), 4u);
    std::size_t pieces = 0;
    for (BufferPool::Lease& lease : leases) {
        EXPECT_EQ(lease.capacity(), mebibyte);
        pieces += piecesOf(lease, mebibyte);
    }
    EXPECT_EQ(pieces, 4u);
}

TEST(BufferPool, GetsSeveralLeasesBackOneByOne) {
    BufferPool pool(4);
    std::vector<BufferPool::Lease> leases = pool.takeSeveral(2, 2);
    leases.pop_back();
    BufferPool::Lease lease = pool.take(2);
    EXPECT_EQ(piecesOf(lease, mebibyte), 2u);
}

TEST(BufferPool, UsesNoMoreThanItsSlabsOnManyThreads) {
    BufferPool pool(5);
    std::mutex mutex;
    std::set<std::byte*> slabs;
    const auto useOften = [&](unsigned number) {
        for (int round = 0; round < 200; ++round) {
            BufferPool::Lease lease = pool.take(1 + number % 3);
            for (std::span<std::byte> piece = lease.allocate(mebibyte); !piece.empty();
                 piece = lease.allocate(mebibyte)) {
                fill(piece.first(64), number);
                const std::lock_guard lock(mutex);
                slabs.insert(piece.data());
                EXPECT_TRUE(isFilled(piece.first(64), number));
            }
        }
    };
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < 4; ++thread) {
        threads.emplace_back(useOften, thread);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_LE(slabs.size(), 5u);
}

}  // namespace
}  // namespace tarvin
