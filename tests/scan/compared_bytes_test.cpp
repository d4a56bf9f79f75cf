#include "scan/compared_bytes.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace tarvin {
namespace {

TEST(ComparedBytesTest, TotalIsUnknownUntilAllListsAreAdded) {
    ComparedBytes bytes(2);
    bytes.addList(100);
    bytes.add(30);
    EXPECT_EQ(bytes.now(), (BytesCompared{0, 0}));
    bytes.addList(50);
    EXPECT_EQ(bytes.now(), (BytesCompared{30, 150}));
}

TEST(ComparedBytesTest, CountsMoreThanFourGigabytes) {
    ComparedBytes bytes(1);
    bytes.addList(9'000'000'000);
    bytes.add(4'500'000'000);
    bytes.add(4'500'000'000);
    EXPECT_EQ(bytes.now(), (BytesCompared{9'000'000'000, 9'000'000'000}));
}

TEST(ComparedBytesTest, BothNumbersEndAtTheLargest) {
    constexpr std::uint64_t most = 18'446'744'073'709'551'615U;
    ComparedBytes bytes(2);
    bytes.addList(most - 10);
    bytes.addList(11);
    EXPECT_EQ(bytes.now(), (BytesCompared{0, most}));
    bytes.add(most - 10);
    EXPECT_EQ(bytes.now(), (BytesCompared{most - 10, most}));
    bytes.add(11);
    bytes.add(most);
    EXPECT_EQ(bytes.now(), (BytesCompared{most, most}));
}

TEST(ComparedBytesTest, ProductsAndSumsSaturate) {
    constexpr std::uint64_t most = 18'446'744'073'709'551'615U;
    EXPECT_EQ(saturatingProduct(9'223'372'036'854'775'808U, 2), most);
    EXPECT_EQ(saturatingProduct(9'223'372'036'854'775'807U, 2), most - 1);
    EXPECT_EQ(saturatingProduct(most, 1), most);
    EXPECT_EQ(saturatingProduct(most, 0), 0U);
    EXPECT_EQ(saturatingProduct(0, most), 0U);
    EXPECT_EQ(saturatingSum(most, 0), most);
    EXPECT_EQ(saturatingSum(most - 1, 1), most);
    EXPECT_EQ(saturatingSum(most, 1), most);
}

class BytesLeftTest : public ::testing::Test {
 protected:
    BytesLeftTest() { bytes_.addList(300); }

    ComparedBytes bytes_{1};
    BytesLeft left_{bytes_, 3, 100};
};

TEST_F(BytesLeftTest, CountsBytesAsTheyAreCompared) {
    left_.compared(0, 40);
    left_.compared(1, 10);
    left_.compared(0, 20);
    EXPECT_EQ(bytes_.now().done, 70U);
}

TEST_F(BytesLeftTest, FinishedFileCountsInFull) {
    left_.compared(0, 40);
    left_.finish(0);
    EXPECT_EQ(bytes_.now().done, 100U);
}

TEST_F(BytesLeftTest, FinishedFileCountsOnce) {
    left_.finish(0);
    left_.finish(0);
    left_.compared(0, 40);
    EXPECT_EQ(bytes_.now().done, 100U);
}

TEST_F(BytesLeftTest, IgnoresBytesBeyondTheRecordedSize) {
    left_.compared(0, 70);
    left_.compared(0, 70);
    EXPECT_EQ(bytes_.now().done, 100U);
}

TEST_F(BytesLeftTest, FinishingAllEndsWithTheTotal) {
    left_.compared(1, 99);
    left_.finish(2);
    left_.finishAll();
    EXPECT_EQ(bytes_.now(), (BytesCompared{300, 300}));
}

TEST(BytesLeft, ManyThreadsCountEachByteOnce) {
    ComparedBytes bytes(1);
    bytes.addList(4 * 1'000'000);
    BytesLeft left(bytes, 4, 1'000'000);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&left] {
            for (int round = 0; round < 20'000; ++round) {
                left.compared(static_cast<std::uint32_t>(round % 4), 37);
            }
            left.finish(3);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    // 4 threads of 5,000 rounds for each file; the last file is finished.
    EXPECT_EQ(bytes.now().done, 3U * 740'000 + 1'000'000);
}

}  // namespace
}  // namespace tarvin
