#include "text/shown_name.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(ShownName, KeepsSafeNames) {
    EXPECT_EQ(shownName("/home/ann/My 'best' photo \\ $1.jpg"),
              "/home/ann/My 'best' photo \\ $1.jpg");
    EXPECT_EQ(shownName("/home/\u00C4nn\u00E9/\u5199\u771F \U0001F600.jpg"),
              "/home/\u00C4nn\u00E9/\u5199\u771F \U0001F600.jpg");
}

TEST(ShownName, EscapesNewlines) {
    EXPECT_EQ(shownName("/a/two\nlines"), R"($'/a/two\nlines')");
    EXPECT_EQ(shownName("/a\r\tb"), R"($'/a\r\tb')");
    EXPECT_EQ(shownName("/a\u2028b"), R"($'/a\xe2\x80\xa8b')");
}

TEST(ShownName, NoControlCharacterReachesTheTerminal) {
    EXPECT_EQ(shownName("/\x1B[31mred\x07\x7F"), R"($'/\x1b[31mred\x07\x7f')");
    EXPECT_EQ(shownName("/\u009B31m"), R"($'/\xc2\x9b31m')");
}

TEST(ShownName, EscapesBidirectionalCharacters) {
    EXPECT_EQ(shownName("/a\u202Egpj.exe"), R"($'/a\xe2\x80\xaegpj.exe')");
    EXPECT_EQ(shownName("/a\u2066b\u200Fc\u061C"), R"($'/a\xe2\x81\xa6b\xe2\x80\x8fc\xd8\x9c')");
}

TEST(ShownName, EscapesInvalidBytes) {
    EXPECT_EQ(shownName("/\xFFz\xE2\x82\u00E4"), "$'/\\xffz\\xe2\\x82\u00E4'");
}

TEST(ShownName, EscapesQuotesAndBackslashesInsideQuotes) {
    EXPECT_EQ(shownName("/it's\\\n"), R"($'/it\'s\\\n')");
}

TEST(ShownName, ANameThatLooksQuotedIsQuoted) {
    EXPECT_EQ(shownName("$'a'"), R"($'$\'a\'')");
}

TEST(ShownName, TheEmptyNameIsVisible) {
    EXPECT_EQ(shownName(""), "$''");
}

TEST(Printable, ReplacesUnsafeCharactersByQuestionMarks) {
    EXPECT_EQ(printable("a\n\x1B[0m\xFF\u202E\u00E4"), "a??[0m??\u00E4");
    EXPECT_EQ(printable(""), "");
}

TEST(QuotedName, UsesQuotationMarksOrTheShellNotation) {
    EXPECT_EQ(quotedName("/a b.jpg"), "'/a b.jpg'");
    EXPECT_EQ(quotedName("/back\\slash"), "'/back\\slash'");
    EXPECT_EQ(quotedName("/it's"), R"($'/it\'s')");
    EXPECT_EQ(quotedName("/two\nlines"), R"($'/two\nlines')");
    EXPECT_EQ(quotedName(""), "$''");
}

}  // namespace
}  // namespace tarvin
