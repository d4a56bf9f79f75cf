#include "text/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tarvin {
namespace {

using namespace std::string_view_literals;

TEST(Utf8, AsciiIsValid) {
    EXPECT_TRUE(isValidUtf8("plain text\n\x7F"));
}

TEST(Utf8, EmptyTextIsValid) {
    EXPECT_TRUE(isValidUtf8(""));
}

TEST(Utf8, NulByteIsACharacter) {
    EXPECT_TRUE(isValidUtf8("a\0b"sv));
}

TEST(Utf8, CharactersOfEveryLengthAreValid) {
    EXPECT_TRUE(isValidUtf8("\u00E4 \u20AC \U0001F600"));
    EXPECT_TRUE(isValidUtf8("\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xEF\xBF\xBF"));
    EXPECT_TRUE(isValidUtf8("\xED\x9F\xBF \xEE\x80\x80 \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF"));
}

TEST(Utf8, BytesThatDoNotBeginACharacterAreInvalid) {
    for (const std::string_view text : {"\x80", "\xBF", "\xC0", "\xC1", "\xF5", "\xFF"}) {
        EXPECT_FALSE(isValidUtf8(text));
    }
}

TEST(Utf8, TruncatedCharacterIsInvalid) {
    for (const std::string_view text :
         {"\xC3", "\xC3z", "\xE2\x82", "\xE2\x82z", "\xF0\x9F\x98", "\xF0\x9F\x98z"}) {
        EXPECT_FALSE(isValidUtf8(text));
    }
}

TEST(Utf8, OverlongEncodingIsInvalid) {
    for (const std::string_view text :
         {"\xC0\xAF", "\xE0\x80\xAF", "\xE0\x9F\xBF", "\xF0\x80\x80\xAF", "\xF0\x8F\xBF\xBF"}) {
        EXPECT_FALSE(isValidUtf8(text));
    }
}

TEST(Utf8, SurrogatesAndCodePointsAbove10FFFFAreInvalid) {
    for (const std::string_view text : {"\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80"}) {
        EXPECT_FALSE(isValidUtf8(text));
    }
}

TEST(Utf8, FirstCharacterReturnsCodePointAndLength) {
    const Utf8Character euro = firstCharacter("\u20ACx");
    EXPECT_TRUE(euro.valid);
    EXPECT_EQ(euro.codePoint, U'\u20AC');
    EXPECT_EQ(euro.length, 3U);
}

TEST(Utf8, InvalidByteIsACharacterOfItsOwn) {
    const Utf8Character bad = firstCharacter("\xE2\x82");
    EXPECT_FALSE(bad.valid);
    EXPECT_EQ(bad.codePoint, char32_t{0xE2});
    EXPECT_EQ(bad.length, 1U);
}

TEST(Utf8, ReplacesEachInvalidByte) {
    EXPECT_EQ(withBadBytesReplaced("a\xFF\xFE\u00E4\xE2\x82"), "a\uFFFD\uFFFD\u00E4\uFFFD\uFFFD");
    EXPECT_EQ(withBadBytesReplaced("fine"), "fine");
}

TEST(Utf8, AppendsCharactersAsUtf8) {
    std::string text = "a";
    for (const char32_t code : {U'\u00E4', U'\u20AC', U'\U0001F600', U'b'}) {
        appendCharacter(code, text);
    }
    EXPECT_EQ(text, "a\u00E4\u20AC\U0001F600b");
}

TEST(Utf8, ReturnsTerminalColumns) {
    EXPECT_EQ(columnsOf(U'a'), 1U);
    EXPECT_EQ(columnsOf(U'\u00E4'), 1U);
    EXPECT_EQ(columnsOf(U'\u5199'), 2U);
    EXPECT_EQ(columnsOf(U'\uAC00'), 2U);
    EXPECT_EQ(columnsOf(U'\U0001F600'), 2U);
    EXPECT_EQ(columnsOf(U'\u0308'), 0U);
}

}  // namespace
}  // namespace tarvin
