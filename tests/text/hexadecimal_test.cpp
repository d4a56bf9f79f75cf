#include "text/hexadecimal.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

using namespace std::string_view_literals;

TEST(Hexadecimal, HasTwoLowerCaseDigitsForEachByte) {
    EXPECT_EQ(hexadecimal("\x00\x0F/\xAB\xFF"sv), "000f2fabff");
    EXPECT_EQ(hexadecimal(""), "");
}

TEST(BytesOfHexadecimal, ReadsDigitsInBothCases) {
    EXPECT_EQ(bytesOfHexadecimal("000f2fabFF"), "\x00\x0F/\xAB\xFF"sv);
    EXPECT_EQ(bytesOfHexadecimal(""), "");
}

TEST(BytesOfHexadecimal, RefusesOtherTexts) {
    EXPECT_EQ(bytesOfHexadecimal("0"), std::nullopt);
    EXPECT_EQ(bytesOfHexadecimal("0g"), std::nullopt);
    EXPECT_EQ(bytesOfHexadecimal("-1"), std::nullopt);
    EXPECT_EQ(bytesOfHexadecimal("0x"), std::nullopt);
    EXPECT_EQ(bytesOfHexadecimal(" 1"), std::nullopt);
}

}  // namespace
}  // namespace tarvin
