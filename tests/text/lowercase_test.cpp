#include "text/lowercase.h"

#include "text/utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

TEST(Lowercase, ConvertsLettersOfEveryScript) {
    EXPECT_EQ(lowercase("JPG copy 2_Z"), "jpg copy 2_z");
    EXPECT_EQ(lowercase("\xc3\x84\xc3\x96\xc3\x9c\xc3\x9f"), "\xc3\xa4\xc3\xb6\xc3\xbc\xc3\x9f");
    EXPECT_EQ(lowercase("\xd0\x96\xd0\xaf"), "\xd0\xb6\xd1\x8f");  // ЖЯ
    EXPECT_EQ(lowercase("\xef\xbc\xaa"), "\xef\xbd\x8a");          // wide J
    EXPECT_EQ(lowercase("\xf0\x90\x90\x80"), "\xf0\x90\x90\xa8");  // Deseret long I
    EXPECT_EQ(lowercase("\xc7\x85"), "\xc7\x86");                  // title case Dž
    EXPECT_EQ(lowercase("\xe2\x85\xa3"), "\xe2\x85\xb3");          // Roman numeral IV
    EXPECT_EQ(lowercase("\xe1\xba\x9e"), "\xc3\x9f");              // capital sharp s
    EXPECT_EQ(lowercase("\xe2\x84\xaa"), "k");                     // Kelvin sign
    EXPECT_EQ(lowercase("\xe2\x84\xab"), "\xc3\xa5");              // Angstrom sign
}

TEST(Lowercase, KeepsEverythingElse) {
    EXPECT_EQ(lowercase(""), "");
    EXPECT_EQ(lowercase("jpg 1.2_\n"), "jpg 1.2_\n");
    EXPECT_EQ(lowercase("\xe4\xb8\xad\xe6\x96\x87"), "\xe4\xb8\xad\xe6\x96\x87");
    EXPECT_EQ(lowercase(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
}

TEST(Lowercase, DottedCapitalIBecomesTwoCharacters) {
    EXPECT_EQ(lowercase("\xc4\xb0"), "i\xcc\x87");
    EXPECT_EQ(lowercase("T\xc4\xb0"
                        "F"),
              "ti\xcc\x87"
              "f");
}

TEST(Lowercase, SigmaAtTheEndOfAWordIsFinal) {
    EXPECT_EQ(lowercase("\xce\x9f\xce\x94\xce\x9f\xce\xa3"),
              "\xce\xbf\xce\xb4\xce\xbf\xcf\x82");  // ΟΔΟΣ
    EXPECT_EQ(lowercase("A\xce\xa3 B"), "a\xcf\x82 b");
    EXPECT_EQ(lowercase("A\xce\xa3_"), "a\xcf\x82_");
    EXPECT_EQ(lowercase("A\xce\xa3"
                        "1"),
              "a\xcf\x82"
              "1");
    EXPECT_EQ(lowercase("A\xce\xa3\xff"
                        "A"),
              "a\xcf\x82\xff"
              "a");  // the bad byte ends it
}

TEST(Lowercase, SigmaInsideAWordIsNotFinal) {
    EXPECT_EQ(lowercase("A\xce\xa3"
                        "A"),
              "a\xcf\x83"
              "a");
    EXPECT_EQ(lowercase("\xce\xa3"), "\xcf\x83");
    EXPECT_EQ(lowercase("\xce\xa3"
                        "A"),
              "\xcf\x83"
              "a");
    EXPECT_EQ(lowercase("1\xce\xa3"), "1\xcf\x83");
    EXPECT_EQ(lowercase("A \xce\xa3"), "a \xcf\x83");
    EXPECT_EQ(lowercase("A\xff\xce\xa3"), "a\xff\xcf\x83");
    EXPECT_EQ(lowercase("A\xce\xa3\xce\xa3"), "a\xcf\x83\xcf\x82");
}

TEST(Lowercase, CaseIgnorableCharactersDoNotEndAWord) {
    EXPECT_EQ(lowercase("A'\xce\xa3"), "a'\xcf\x82");
    EXPECT_EQ(lowercase("A\xce\xa3'A"), "a\xcf\x83'a");
    EXPECT_EQ(lowercase("A\xce\xa3.A"), "a\xcf\x83.a");
    EXPECT_EQ(lowercase("A\xce\xa3\xcc\x81"
                        "A"),
              "a\xcf\x83\xcc\x81"
              "a");  // an accent between
    EXPECT_EQ(lowercase("A\xce\xa3\xcc\x81"), "a\xcf\x82\xcc\x81");
    EXPECT_EQ(lowercase("'\xce\xa3"), "'\xcf\x83");
    EXPECT_EQ(lowercase("A\xce\xa3'"), "a\xcf\x82'");
}

TEST(Lowercase, LetterLikeSymbolsAreLettersOfAWord) {
    EXPECT_EQ(lowercase("\xe2\x93\x90\xce\xa3"), "\xe2\x93\x90\xcf\x82");          // in a circle
    EXPECT_EQ(lowercase("\xf0\x9f\x84\xb0\xce\xa3"), "\xf0\x9f\x84\xb0\xcf\x82");  // in a square
    EXPECT_EQ(lowercase("\xe2\x85\xb3\xce\xa3"), "\xe2\x85\xb3\xcf\x82");          // a numeral
    EXPECT_EQ(lowercase("\xc2\xaa\xce\xa3"), "\xc2\xaa\xcf\x82");                  // an ordinal
    EXPECT_EQ(lowercase("\xe2\x91\xa0\xce\xa3"), "\xe2\x91\xa0\xcf\x83");          // 1 in a circle
}

TEST(Lowercase, LettersEndWithTheirRanges) {
    const auto isLetter = [](char32_t code) {
        std::string text;
        appendCharacter(code, text);
        return lowercase(text + "\xce\xa3").ends_with("\xcf\x82");
    };
    for (const auto& [first, last] :
         std::vector<std::pair<char32_t, char32_t>>{{0x2160, 0x217F},
                                                    {0x24B6, 0x24E9},
                                                    {0x1F130, 0x1F149},
                                                    {0x1F150, 0x1F169},
                                                    {0x1F170, 0x1F189}}) {
        EXPECT_FALSE(isLetter(first - 1)) << std::uint32_t{first};
        EXPECT_TRUE(isLetter(first)) << std::uint32_t{first};
        EXPECT_TRUE(isLetter(last)) << std::uint32_t{last};
        EXPECT_FALSE(isLetter(last + 1)) << std::uint32_t{last};
    }
}

TEST(Lowercase, KeepsInvalidBytes) {
    EXPECT_EQ(lowercase("A\xff"
                        "B"),
              "a\xff"
              "b");
    EXPECT_EQ(lowercase("\xc3"
                        "A"),
              "\xc3"
              "a");  // the start of a character
    EXPECT_EQ(lowercase("\x84"
                        "A"),
              "\x84"
              "a");  // the end of one
    EXPECT_EQ(lowercase("\xe2\x84"
                        "A"),
              "\xe2\x84"
              "a");  // two thirds of one
    EXPECT_EQ(lowercase("A\xe2\x84"), "a\xe2\x84");
    EXPECT_EQ(lowercase("\xc1\x81"), "\xc1\x81");                  // A in two bytes is not UTF-8
    EXPECT_EQ(lowercase("\xed\xa0\x80"), "\xed\xa0\x80");          // half of a surrogate pair
    EXPECT_EQ(lowercase("\xf4\x90\x80\x80"), "\xf4\x90\x80\x80");  // beyond the last character
}

}  // namespace
}  // namespace tarvin
