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

TEST(Arguments, OrdinaryOnesStayAsTheyAre) {
    EXPECT_EQ(after({"scan", "--format=json", "-x", "-", "a b", "/c", "", "+"}),
              (Words{"scan", "--format=json", "-x", "-", "a b", "/c", "", "+"}));
}

TEST(Arguments, APathThatTheParserWouldTakeForAListIsWrittenAsAPath) {
    EXPECT_EQ(after({"[a,b]", "{}", "++"}), (Words{"./[a,b]", "./{}", "./++"}));
}

TEST(Arguments, BehindTheMarkADashIsPartOfAPath) {
    EXPECT_EQ(after({"scan", "--", "-b", "--format", "c", "--"}),
              (Words{"scan", "./-b", "./--format", "c", "./--"}));
}

TEST(Arguments, NoneAreNone) {
    EXPECT_EQ(after({}), Words());
}

}  // namespace
}  // namespace tarvin
