#include "controller/path_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

TEST(PathText, IsThePathItself) {
    EXPECT_EQ(textOfPath("/home/ann/Gr\xc3\xbc\xc3\x9f"
                         "e \xe6\x97\xa5\xf0\x9f\x93\xb7"),
              QStringLiteral("/home/ann/Gr\u00fc\u00dfe \u65e5\U0001F4F7"));
    EXPECT_EQ(textOfPath(""), QString());
}

TEST(PathText, ReplacesBytesThatAreNotUtf8) {
    EXPECT_EQ(textOfPath("/a\xff/b\xfe\xfe"), QStringLiteral("/a\uFFFD/b\uFFFD\uFFFD"));
}

TEST(PathText, StaysInOneLine) {
    EXPECT_EQ(textOfPath("/a\nb\rc\td\x7f"), QStringLiteral("/a\uFFFDb\uFFFDc\uFFFDd\uFFFD"));
    EXPECT_EQ(textOfPath("/a\xe2\x80\xa8"
                         "b\xe2\x80\xa9"
                         "c\xc2\x85"),
              QStringLiteral("/a\uFFFDb\uFFFDc\uFFFD"));
}

TEST(PathText, ReplacesBidirectionalMarks) {
    // Unescaped, this would look as if it ended in ".png".
    EXPECT_EQ(textOfPath("photo\xe2\x80\xaegnp.exe"), QStringLiteral("photo\uFFFDgnp.exe"));
    EXPECT_EQ(textOfPath("\xe2\x81\xa6x\xe2\x81\xa9"), QStringLiteral("\uFFFDx\uFFFD"));
    // Joiners are kept.
    EXPECT_EQ(textOfPath("\xe2\x80\x8d\xe2\x80\x8f"), QStringLiteral("\u200D\u200F"));
}

TEST(PathText, ShowsAllBytes) {
    const std::string withZero("a\0b", 3);
    EXPECT_EQ(textOfPath(withZero), QStringLiteral("a\uFFFDb"));
}

TEST(PathText, ShortensLongNamesInTheMiddle) {
    EXPECT_EQ(shortTextOfName("12345678", 8), "12345678");
    EXPECT_EQ(shortTextOfName("123456789", 8), QStringLiteral("1234\u2026789"));
    EXPECT_EQ(shortTextOfName("12345678", 7), QStringLiteral("123\u2026678"));
    EXPECT_EQ(shortTextOfName("abcd", 3), QStringLiteral("a\u2026d"));
    EXPECT_EQ(shortTextOfName("", 3), QString());
}

TEST(PathText, ShorteningSeparatesNoCharacterThatIsDrawnAsOne) {
    // Letters with a combining accent, and characters of two code units.
    EXPECT_EQ(shortTextOfName("e\xcc\x81"
                              "e\xcc\x81"
                              "e\xcc\x81"
                              "e\xcc\x81",
                              3),
              QStringLiteral("e\u0301\u2026e\u0301"));
    EXPECT_EQ(shortTextOfName("\xf0\x9f\x98\x80\xf0\x9f\x98\x81\xf0\x9f\x98\x82"
                              "\xf0\x9f\x98\x83",
                              3),
              QStringLiteral("\U0001F600\u2026\U0001F603"));
}

}  // namespace
}  // namespace tarvin
