#include "text/glob.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tarvin {
namespace {

bool matches(std::string_view pattern, std::string_view name) {
    const auto parsed = Glob::parse(pattern);
    const Glob* const glob = std::get_if<Glob>(&parsed);
    EXPECT_NE(glob, nullptr) << pattern;
    return glob != nullptr && glob->matches(name);
}

/// Why the pattern is invalid; nullopt if it is valid.
std::optional<GlobError> errorOf(std::string_view pattern) {
    const auto parsed = Glob::parse(pattern);
    const GlobError* const error = std::get_if<GlobError>(&parsed);
    return error == nullptr ? std::nullopt : std::optional(*error);
}

TEST(Glob, ANameMatchesOnlyItself) {
    EXPECT_TRUE(matches("a.jpg", "a.jpg"));
    EXPECT_FALSE(matches("a.jpg", "A.jpg"));
    EXPECT_FALSE(matches("a.jpg", "a.jpgx"));
    EXPECT_FALSE(matches("a.jpg", "xa.jpg"));
    EXPECT_FALSE(matches("a.jpg", "a.jp"));
    EXPECT_FALSE(matches("a.jpg", ""));
}

TEST(Glob, AStarIsAnyText) {
    EXPECT_TRUE(matches("*", ""));
    EXPECT_TRUE(matches("*", ".hidden"));
    EXPECT_TRUE(matches("*.jpg", "a.jpg"));
    EXPECT_TRUE(matches("*.jpg", ".jpg"));
    EXPECT_TRUE(matches("*.jpg", "a.jpg.jpg"));
    EXPECT_FALSE(matches("*.jpg", "a.jpg.txt"));
    EXPECT_TRUE(matches("a*b*c", "axbybzc"));
    EXPECT_TRUE(matches("a***c", "ac"));
    EXPECT_FALSE(matches("a*b*c", "acb"));
    EXPECT_TRUE(matches("a*", "a"));
}

TEST(Glob, AQuestionMarkIsOneCharacter) {
    EXPECT_TRUE(matches("a?c", "abc"));
    EXPECT_TRUE(matches("a?c", "a\u00e9c"));
    EXPECT_TRUE(matches("a?c", "a\U0001f600c"));
    EXPECT_FALSE(matches("a?c", "ac"));
    EXPECT_FALSE(matches("a?c", "abbc"));
}

TEST(Glob, AByteThatIsNotUtf8IsOneCharacter) {
    EXPECT_TRUE(matches("a?c",
                        "a\xe9"
                        "c"));
    EXPECT_TRUE(matches("??", "\xff\xfe"));
    EXPECT_FALSE(matches("?", "\xff\xfe"));
    EXPECT_TRUE(matches("\xff*", "\xff.jpg"));
    // The byte is not the character U+00E9.
    EXPECT_FALSE(matches("\u00e9", "\xe9"));
    EXPECT_FALSE(matches("\xe9", "\u00e9"));
    EXPECT_TRUE(matches("[\xe8-\xea]", "\xe9"));
}

TEST(Glob, BracketsListCharactersAndRanges) {
    EXPECT_TRUE(matches("[abc]", "b"));
    EXPECT_FALSE(matches("[abc]", "d"));
    EXPECT_FALSE(matches("[abc]", ""));
    EXPECT_TRUE(matches("[a-cx-z]9", "y9"));
    EXPECT_FALSE(matches("[a-cx-z]9", "m9"));
    EXPECT_TRUE(matches("[\u00e0-\u00ef]", "\u00e9"));
    EXPECT_TRUE(matches("[a-]", "-"));
    EXPECT_TRUE(matches("[-a]", "-"));
    EXPECT_TRUE(matches("[]a]", "]"));
    EXPECT_TRUE(matches("[*?]", "?"));
    EXPECT_FALSE(matches("[*?]", "x"));
}

TEST(Glob, NegatedBracketsAcceptAllOtherCharacters) {
    for (const char* pattern : {"[!a-c]", "[^a-c]"}) {
        EXPECT_TRUE(matches(pattern, "d"));
        EXPECT_TRUE(matches(pattern, "\xff"));
        EXPECT_FALSE(matches(pattern, "b"));
        EXPECT_FALSE(matches(pattern, "de"));
    }
    EXPECT_FALSE(matches("[!]]", "]"));
    EXPECT_TRUE(matches("[a!]", "!"));
}

TEST(Glob, ABackslashTakesTheMeaningAway) {
    EXPECT_TRUE(matches("a\\*", "a*"));
    EXPECT_FALSE(matches("a\\*", "ab"));
    EXPECT_TRUE(matches("\\[a]", "[a]"));
    EXPECT_TRUE(matches("\\\\", "\\"));
    EXPECT_TRUE(matches("[\\]x]", "]"));
    EXPECT_TRUE(matches("[a\\-z]", "-"));
    EXPECT_FALSE(matches("[a\\-z]", "m"));
}

TEST(Glob, InvalidPatternsAreRefused) {
    EXPECT_EQ(errorOf(""), GlobError::empty);
    for (const char* pattern : {"[", "a[", "[a", "[]", "[!]", "[a-", "[a-z", "x[^"}) {
        EXPECT_EQ(errorOf(pattern), GlobError::openBracket) << pattern;
    }
    for (const char* pattern : {"\\", "a\\", "[\\", "[a-\\"}) {
        EXPECT_EQ(errorOf(pattern), GlobError::danglingBackslash) << pattern;
    }
    EXPECT_EQ(errorOf("[z-a]"), GlobError::reversedRange);
    EXPECT_EQ(errorOf("]"), std::nullopt);
}

TEST(Glob, AHostilePatternTakesNoLongTime) {
    std::string pattern;
    for (int star = 0; star < 1000; ++star) {
        pattern += "*a";
    }
    pattern += "*b";
    const std::string name(10'000, 'a');
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_FALSE(matches(pattern, name));
    // Some milliseconds; trying each division of the name among the stars would not end.
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(10));
}

}  // namespace
}  // namespace tarvin
