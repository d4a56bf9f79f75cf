#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvin {
namespace {

using Words = std::vector<std::string>;

Words after(const std::vector<const char*>& arguments) {
    return escapedForParser(arguments);
}

TEST(Arguments, KeepsOrdinaryArguments) {
    EXPECT_EQ(after({"scan", "--format=json", "-x", "-", "a b", "/c", "", "+"}),
              (Words{"scan", "--format=json", "-x", "-", "a b", "/c", "", "+"}));
}

TEST(Arguments, EscapesPathsThatTheParserWouldInterpret) {
    EXPECT_EQ(after({"[a,b]", "{}", "++"}), (Words{"./[a,b]", "./{}", "./++"}));
}

TEST(Arguments, EscapesADashAfterTheEndOfOptions) {
    EXPECT_EQ(after({"scan", "--", "-b", "--format", "c", "--"}),
              (Words{"scan", "./-b", "./--format", "c", "./--"}));
}

TEST(Arguments, JoinsAPatternToItsOption) {
    EXPECT_EQ(after({"scan", "--exclude", "[a,b]", "--exclude=[c]", "[d]"}),
              (Words{"scan", "--exclude=[a,b]", "--exclude=[c]", "./[d]"}));
    EXPECT_EQ(after({"--exclude", "{}", "--exclude", ""}), (Words{"--exclude={}", "--exclude="}));
    EXPECT_EQ(after({"--", "--exclude", "[a]"}), (Words{"./--exclude", "./[a]"}));
    EXPECT_EQ(after({"a", "--exclude"}), (Words{"a", "--exclude"}));
}

TEST(Arguments, NoneAreNone) {
    EXPECT_EQ(after({}), Words());
}

}  // namespace
}  // namespace tarvin
