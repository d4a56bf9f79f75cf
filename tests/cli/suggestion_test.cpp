#include "cli/suggestion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvin {
namespace {

const std::vector<std::string> commands{"scan", "clean", "exceptions", "totals", "help"};
const std::vector<std::string> options{"--format", "--output",     "--no-exceptions",
                                       "--yes",    "--exceptions", "--progress"};

TEST(Suggestion, AcceptsOneEdit) {
    EXPECT_EQ(nearest("scn", commands), "scan");
    EXPECT_EQ(nearest("scann", commands), "scan");
    EXPECT_EQ(nearest("skan", commands), "scan");
    EXPECT_EQ(nearest("csan", commands), "scan");
    EXPECT_EQ(nearest("--fromat", options), "--format");
    EXPECT_EQ(nearest("cvs", {"text", "json", "csv"}), "csv");
}

TEST(Suggestion, AcceptsTwoEditsInALongWord) {
    EXPECT_EQ(nearest("exeptoins", commands), "exceptions");
    EXPECT_EQ(nearest("cleen-", commands), "clean");
    EXPECT_EQ(nearest("sn", {"scan"}), "");
    EXPECT_EQ(nearest("snac", {"scan"}), "");
    EXPECT_EQ(nearest("exeptoin", commands), "");
}

TEST(Suggestion, AcceptsAPrefix) {
    EXPECT_EQ(nearest("ex", commands), "exceptions");
    EXPECT_EQ(nearest("--form", options), "--format");
    EXPECT_EQ(nearest("--no", options), "--no-exceptions");
}

TEST(Suggestion, IgnoresCaseAndDashes) {
    EXPECT_EQ(nearest("JSON", {"text", "json", "csv"}), "json");
    EXPECT_EQ(nearest("-yes", options), "--yes");
    EXPECT_EQ(nearest("---format", options), "--format");
}

TEST(Suggestion, ChoosesTheFirstOfTheClosest) {
    EXPECT_EQ(nearest("exception", {"--exceptional", "--exceptions", "--exception"}),
              "--exception");
    EXPECT_EQ(nearest("tale", {"take", "tall"}), "take");
}

TEST(Suggestion, RejectsDistantWords) {
    for (const char* word : {"purge", "delete", "x", "s", "", "-", "--", "--x", "h", "es", "\xFF",
                             "scanscanscanscanscanscanscanscanscanscan"}) {
        EXPECT_EQ(nearest(word, commands), "") << word;
    }
    EXPECT_EQ(nearest("--recursive", options), "");
    EXPECT_EQ(nearest("sometimes", {"auto", "always", "never"}), "");
    EXPECT_EQ(nearest("xml", {"text", "json", "csv"}), "");
    EXPECT_EQ(nearest("scan", {}), "");
    EXPECT_EQ(nearest("-n", {"-y"}), "");
    // As many edits as letters but one.
    EXPECT_EQ(nearest("na", {"no"}), "");
    EXPECT_EQ(nearest("casev", {"csv"}), "");
}

TEST(Suggestion, RejectsAKnownWord) {
    EXPECT_EQ(nearest("--format", options), "");
    EXPECT_EQ(nearest("scan", {"scans", "scan"}), "");
}

TEST(Suggestion, IsTheEndOfAMessage) {
    EXPECT_EQ(suggestionFor("scna", commands), "; did you mean 'scan'?");
    EXPECT_EQ(suggestionFor("purge", commands), "");
}

}  // namespace
}  // namespace tarvin
