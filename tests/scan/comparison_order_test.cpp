#include "scan/comparison_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tarvin {
namespace {

TEST(ComparisonOrder, CoversEveryByteOnce) {
    for (const std::uint64_t size : {0U, 1U, 8'191U, 8'192U, 8'193U, 16'383U, 16'384U, 100'000U}) {
        const ComparisonOrder order(size);
        std::vector<int> seen(size, 0);
        for (std::uint64_t position = 0; position < size;) {
            const ComparisonOrder::Range range = order.rangeAt(position);
            ASSERT_GT(range.length, 0U);
            for (std::uint64_t at = range.offset; at < range.offset + range.length; ++at) {
                ++seen[at];
            }
            position += range.length;
        }
        EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), static_cast<std::ptrdiff_t>(size));
    }
}

TEST(ComparisonOrder, PutsTheEndOfTheFileSecond) {
    const ComparisonOrder order(1'000'000);
    EXPECT_EQ(order.rangeAt(0).offset, 0U);
    EXPECT_EQ(order.rangeAt(8'192).offset, 1'000'000U - 8'192U);
    EXPECT_EQ(order.rangeAt(16'384).offset, 8'192U);
    EXPECT_EQ(order.rangeAt(32'768).length, 1'000'000U - 32'768U);
}

}  // namespace
}  // namespace tarvin
