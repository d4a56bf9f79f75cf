#include "preview/limits.h"

#include <gtest/gtest.h>

#include <QSize>

namespace tarvin {
namespace {

TEST(MayBeDecoded, ComparesWithTheLimit) {
    // 384 * 1024 * 1024 bytes are 100,663,296 pixels of four.
    EXPECT_TRUE(mayBeDecoded({10'000, 10'000}, 4));
    EXPECT_TRUE(mayBeDecoded({12'288, 8'192}, 4));
    EXPECT_FALSE(mayBeDecoded({12'288, 8'193}, 4));
    EXPECT_FALSE(mayBeDecoded({12'289, 8'192}, 4));
    EXPECT_FALSE(mayBeDecoded({10'000, 10'000}, 8));
}

TEST(MayBeDecoded, DoesNotOverflow) {
    EXPECT_FALSE(mayBeDecoded({2'147'483'647, 2'147'483'647}, 4));
    EXPECT_FALSE(mayBeDecoded({2'147'483'647, 1}, 4));
    EXPECT_FALSE(mayBeDecoded({}, 4));
    EXPECT_FALSE(mayBeDecoded({-5, 5}, 4));
}

}  // namespace
}  // namespace tarvin
