#include "scan/concurrency_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarvin {
namespace {

using Counts = std::vector<std::size_t>;

/// How many are made at once in `rounds` rounds, if `useful` of them are answered at a time.
Counts atOnce(ConcurrencySearch search, std::size_t useful, int rounds) {
    Counts counts;
    for (int round = 0; round < rounds; ++round) {
        counts.push_back(search.atOnce());
        search.report(100.0 * static_cast<double>(std::min(search.atOnce(), useful)));
    }
    return counts;
}

TEST(ConcurrencySearch, DoublesWhileThatIsFaster) {
    EXPECT_EQ(atOnce(ConcurrencySearch(64), 64, 7), (Counts{2, 4, 8, 16, 32, 64, 64}));
}

TEST(ConcurrencySearch, GoesBackIfItIsNot) {
    EXPECT_EQ(atOnce(ConcurrencySearch(64), 8, 7), (Counts{2, 4, 8, 16, 8, 8, 8}));
}

TEST(ConcurrencySearch, StaysAtTwoIfTheyAreAnsweredOneByOne) {
    EXPECT_EQ(atOnce(ConcurrencySearch(64), 1, 5), (Counts{2, 4, 2, 2, 2}));
}

TEST(ConcurrencySearch, TriesAgainLater) {
    EXPECT_EQ(atOnce(ConcurrencySearch(64), 2, 12), (Counts{2, 4, 2, 2, 2, 2, 2, 2, 2, 2, 4, 2}));
}

TEST(ConcurrencySearch, TakesUpWhatHasBecomeFasterSince) {
    ConcurrencySearch search(64);
    search.report(100);
    ASSERT_EQ(search.atOnce(), 4u);
    search.report(100);
    for (int round = 0; round < 8; ++round) {
        ASSERT_EQ(search.atOnce(), 2u);
        search.report(100);
    }
    ASSERT_EQ(search.atOnce(), 4u);
    search.report(200);
    EXPECT_EQ(search.atOnce(), 8u);
}

TEST(ConcurrencySearch, AGainOfLessThanAThirdIsNotWorthIt) {
    ConcurrencySearch search(64);
    search.report(100);
    search.report(129);
    EXPECT_EQ(search.atOnce(), 2u);
    ConcurrencySearch other(64);
    other.report(100);
    other.report(131);
    EXPECT_EQ(other.atOnce(), 8u);
}

TEST(ConcurrencySearch, NeverExceedsTheMost) {
    EXPECT_EQ(atOnce(ConcurrencySearch(1), 64, 12), Counts(12, 1));
    EXPECT_EQ(atOnce(ConcurrencySearch(2), 64, 12), Counts(12, 2));
    EXPECT_EQ(atOnce(ConcurrencySearch(5), 64, 4), (Counts{2, 4, 5, 4}));
}

}  // namespace
}  // namespace tarvin
