#include "text/hexadecimal.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

using namespace std::string_view_literals;

TEST(Hexadecimal, HasTwoLowerCaseDigitsForEachByte) {
    EXPECT_EQ(hexadecimal("\x00\x0F/\xAB\xFF"sv), "000f2fabff");
    EXPECT_EQ(hexadecimal(""), "");
}

}  // namespace
}  // namespace tarvin
