#include "controller/command_line.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvin {
namespace {

using Words = std::vector<std::string>;

CommandLine read(std::vector<const char*> words) {
    words.insert(words.begin(), "program");
    return readCommandLine(words);
}

TEST(CommandLine, WithoutArgumentsIsEmpty) {
    for (const CommandLine& line : {readCommandLine({}), read({})}) {
        EXPECT_FALSE(line.help);
        EXPECT_FALSE(line.version);
        EXPECT_FALSE(line.choosesDisplay);
        EXPECT_EQ(line.unknownOption, "");
        EXPECT_EQ(line.folders, Words{});
    }
}

TEST(CommandLine, RecognisesItsOptionsAnywhere) {
    EXPECT_TRUE(read({"-h"}).help);
    EXPECT_TRUE(read({"/films", "--help"}).help);
    EXPECT_TRUE(read({"--version", "/films"}).version);
    EXPECT_FALSE(read({"--help"}).version);
}

TEST(CommandLine, ReportsTheFirstUnknownOption) {
    const CommandLine line = read({"/films", "-x", "--nonsense"});
    EXPECT_EQ(line.unknownOption, "-x");
    EXPECT_EQ(line.folders, Words{"/films"});
}

TEST(CommandLine, TakesEverythingElseAsFolders) {
    EXPECT_EQ(read({"b", "a", "", "-", "b"}).folders, (Words{"b", "a", "", "-", "b"}));
    const CommandLine line = read({"a", "--", "--help", "-x", "--"});
    EXPECT_EQ(line.folders, (Words{"a", "--help", "-x", "--"}));
    EXPECT_FALSE(line.help);
    EXPECT_EQ(line.unknownOption, "");
}

TEST(CommandLine, RecognisesQtsDisplayOptions) {
    for (const char* option : {"-platform", "--platform", "-display", "--display"}) {
        EXPECT_TRUE(read({option, "name"}).choosesDisplay) << option;
        EXPECT_FALSE(read({"--", option, "name"}).choosesDisplay) << option;
    }
    EXPECT_FALSE(read({"-style", "fusion"}).choosesDisplay);
}

TEST(GivenFolders, AreMadeAbsoluteAndTheRestIsReported) {
    const TemporaryFolder folder;
    const std::string films = folder.makeFolder("films");
    const std::string letter = folder.writeFile("letter", "Dear");
    std::string errors;
    EXPECT_EQ(givenFolders({films, letter, folder.pathOf("gone"), films + "/../films"}, errors),
              (Words{films, films}));
    EXPECT_EQ(errors, "tarvin-duplicate-file-remover: cannot add '" + letter +
                          "': Not a directory\ntarvin-duplicate-file-remover: cannot add '" +
                          folder.pathOf("gone") + "': No such file or directory\n");
}

TEST(GivenFolders, EscapesNamesForTheTerminal) {
    std::string errors;
    EXPECT_EQ(givenFolders({"/gone\x1B[2J"}, errors), Words{});
    EXPECT_EQ(errors,
              "tarvin-duplicate-file-remover: cannot add $'/gone\\x1b[2J': No such file or "
              "directory\n");
}

TEST(GivenFolders, QuoteANameWithAnApostrophe) {
    std::string errors;
    EXPECT_EQ(givenFolders({"/Ann's"}, errors), Words{});
    EXPECT_EQ(errors,
              "tarvin-duplicate-file-remover: cannot add $'/Ann\\'s': No such file or "
              "directory\n");
}

}  // namespace
}  // namespace tarvin
