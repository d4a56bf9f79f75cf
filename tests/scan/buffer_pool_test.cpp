#include "scan/buffer_pool.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstddef>
#include <cstdint>
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

/// How many chunks of `bytes` the lease allocates before it is used up; counts up to `max`.
std::size_t chunkCount(BufferPool::Lease& lease, std::size_t bytes, std::size_t max = 100) {
    std::size_t chunks = 0;
    while (chunks < max && !lease.allocate(bytes).empty()) {
        ++chunks;
    }
    return chunks;
}

void fill(std::span<std::byte> chunk, unsigned value) {
    std::fill(chunk.begin(), chunk.end(), static_cast<std::byte>(value));
}

bool isFilled(std::span<const std::byte> chunk, unsigned value) {
    return std::all_of(chunk.begin(), chunk.end(),
                       [value](std::byte byte) { return byte == static_cast<std::byte>(value); });
}

TEST(BufferPool, LeaseHasTheRequestedSize) {
    BufferPool pool(8);
    EXPECT_EQ(pool.maxSlabs(), 8u);
    BufferPool::Lease lease = pool.take(3);
    EXPECT_EQ(lease.capacity(), 3 * mebibyte);
    EXPECT_EQ(chunkCount(lease, mebibyte), 3u);
}

TEST(BufferPool, EachSlabIsAlignedForReading) {
    constexpr std::uintptr_t page = 4096;
    BufferPool pool(8);
    BufferPool::Lease lease = pool.take(8);
    for (unsigned slab = 0; slab < 8; ++slab) {
        const std::span<std::byte> chunk = lease.allocate(mebibyte);
        EXPECT_EQ(std::bit_cast<std::uintptr_t>(chunk.data()) % page, 0u) << slab;
    }
}

TEST(BufferPool, CapsALeaseAtTheSizeOfThePool) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(50);
    EXPECT_EQ(lease.capacity(), 2 * mebibyte);
    EXPECT_EQ(chunkCount(lease, mebibyte), 2u);
}

TEST(BufferPool, ChunksDoNotOverlap) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(2);
    std::vector<std::span<std::byte>> chunks;
    // Three of these leave too little of the first slab for a fourth.
    for (unsigned chunk = 0; chunk < 6; ++chunk) {
        chunks.push_back(lease.allocate(300'000));
        ASSERT_EQ(chunks.back().size(), 300'000u);
        fill(chunks.back(), chunk);
    }
    EXPECT_TRUE(lease.allocate(300'000).empty());
    for (unsigned chunk = 0; chunk < 6; ++chunk) {
        EXPECT_TRUE(isFilled(chunks[chunk], chunk)) << chunk;
    }
}

TEST(BufferPool, AllocatesASmallChunkWhenALargeOneNoLongerFits) {
    BufferPool pool(1);
    BufferPool::Lease lease = pool.take(1);
    ASSERT_EQ(lease.allocate(mebibyte - 100).size(), mebibyte - 100);
    EXPECT_TRUE(lease.allocate(101).empty());
    EXPECT_EQ(lease.allocate(100).size(), 100u);
    EXPECT_TRUE(lease.allocate(1).empty());
}

TEST(BufferPool, AllocatesAWholeSlabFromTheNextOne) {
    BufferPool pool(2);
    BufferPool::Lease lease = pool.take(2);
    fill(lease.allocate(1), 1);
    const std::span<std::byte> whole = lease.allocate(mebibyte);
    ASSERT_EQ(whole.size(), mebibyte);
    fill(whole, 2);
    EXPECT_TRUE(lease.allocate(1).empty());
}

TEST(BufferPool, RewindAllocatesFromTheStartAgain) {
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

TEST(BufferPool, ReusesReturnedMemory) {
    BufferPool pool(2);
    std::set<std::byte*> seen;
    for (int round = 0; round < 50; ++round) {
        BufferPool::Lease lease = pool.take(2);
        seen.insert(lease.allocate(mebibyte).data());
        seen.insert(lease.allocate(mebibyte).data());
    }
    EXPECT_EQ(seen.size(), 2u);
}

TEST(BufferPool, MovedLeaseStaysTaken) {
    BufferPool pool(1);
    BufferPool::Lease first = pool.take(1);
    const std::span<std::byte> chunk = first.allocate(100);
    fill(chunk, 7);
    {
        BufferPool::Lease second(std::move(first));
        EXPECT_TRUE(isFilled(chunk, 7));
        EXPECT_EQ(second.allocate(100).data(), chunk.data() + 100);
    }
    EXPECT_EQ(pool.take(1).capacity(), mebibyte);
}

TEST(BufferPool, TakeBlocksUntilSlabsAreFree) {
    BufferPool pool(3);
    auto first = std::make_unique<BufferPool::Lease>(pool.take(2));
    std::promise<std::size_t> taken;
    std::future<std::size_t> result = taken.get_future();
    std::thread waiting([&] { taken.set_value(pool.take(2).capacity()); });
    EXPECT_NE(result.wait_for(0s), std::future_status::ready);
    first.reset();
    ASSERT_EQ(result.wait_for(testPatience), std::future_status::ready);
    EXPECT_EQ(result.get(), 2 * mebibyte);
    waiting.join();
}

TEST(BufferPool, SeveralLeasesDoNotShareMemory) {
    BufferPool pool(6);
    std::vector<BufferPool::Lease> leases = pool.takeSeveral(3, 2);
    ASSERT_EQ(leases.size(), 3u);
    std::vector<std::span<std::byte>> chunks;
    for (BufferPool::Lease& lease : leases) {
        EXPECT_EQ(lease.capacity(), 2 * mebibyte);
        for (int slab = 0; slab < 2; ++slab) {
            chunks.push_back(lease.allocate(mebibyte));
            fill(chunks.back(), static_cast<unsigned>(chunks.size()));
        }
        EXPECT_TRUE(lease.allocate(1).empty());
    }
    for (unsigned chunk = 0; chunk < chunks.size(); ++chunk) {
        EXPECT_TRUE(isFilled(chunks[chunk], chunk + 1)) << chunk;
    }
}

TEST(BufferPool, SeveralLeasesGetAtLeastOneSlabEach) {
    BufferPool pool(4);
    std::vector<BufferPool::Lease> leases = pool.takeSeveral(4, 3);
    ASSERT_EQ(leases.size(), 4u);
    std::size_t chunks = 0;
    for (BufferPool::Lease& lease : leases) {
        EXPECT_EQ(lease.capacity(), mebibyte);
        chunks += chunkCount(lease, mebibyte);
    }
    EXPECT_EQ(chunks, 4u);
}

TEST(BufferPool, SeveralLeasesAreReturnedOneByOne) {
    BufferPool pool(4);
    std::vector<BufferPool::Lease> leases = pool.takeSeveral(2, 2);
    leases.pop_back();
    BufferPool::Lease lease = pool.take(2);
    EXPECT_EQ(chunkCount(lease, mebibyte), 2u);
}

TEST(BufferPool, ManyThreadsUseNoMoreThanItsSlabs) {
    BufferPool pool(5);
    std::mutex mutex;
    std::set<std::byte*> slabs;
    const auto useOften = [&](unsigned number) {
        for (int round = 0; round < 200; ++round) {
            BufferPool::Lease lease = pool.take(1 + number % 3);
            for (std::span<std::byte> chunk = lease.allocate(mebibyte); !chunk.empty();
                 chunk = lease.allocate(mebibyte)) {
                fill(chunk.first(64), number);
                const std::lock_guard lock(mutex);
                slabs.insert(chunk.data());
                EXPECT_TRUE(isFilled(chunk.first(64), number));
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
