#include "support/shell_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace tarvin {
namespace {

/// The completions of the last of `words`, one per line. The first word is the program. `folder` is
/// the current folder, relative to the project root.
std::string bashOffers(const std::string& words, std::size_t position,
                       const std::string& folder = ".") {
    const std::string program = words.substr(0, words.find(' '));
    const std::string script =
        "source packaging/completions/$1.bash\n"
        "function=$(complete -p \"$1\") || exit 3\n"
        "function=${function#complete -F }\n"
        "cd \"$0\" || exit 4\n"
        "COMP_WORDS=(" +
        words + ")\nCOMP_CWORD=" + std::to_string(position) +
        "\n\"${function% *}\" \"$1\"\n"
        "((${#COMPREPLY[@]} == 0)) || printf \"%s\\n\" \"${COMPREPLY[@]}\" | sort\n";
    const CommandResult result = runCommand("bash -c '" + script + "' " + folder + ' ' + program);
    EXPECT_EQ(result.status, 0) << result.output;
    return result.output;
}

TEST(ManPage, IsWrittenWithoutMistake) {
    for (const char* program : {"tarvin", "tarvin-duplicate-file-remover"}) {
        const CommandResult result =
            runCommand(std::string("LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 "
                                   "man --warnings -E UTF-8 -l -Tutf8 -Z packaging/man/") +
                       program + ".1 >/dev/null");
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.status, 0);
    }
}

/// Users rely on these sentences.
TEST(ManPage, ExplainsHardLinks) {
    const CommandResult result = runCommand(
        "LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man -E UTF-8 --no-hyphenation "
        "--no-justification -l -Tutf8 packaging/man/tarvin.1 | col -bx | tr -s '\\n ' ' '");
    EXPECT_THAT(result.output,
                testing::HasSubstr("Hard links, which are several names of one file, are files of "
                                   "one set"));
    EXPECT_THAT(result.output, testing::HasSubstr("Removing one frees nothing as long as another "
                                                  "name of the file is left"));
}

TEST(ZshCompletion, IsAcceptedByZsh) {
    for (const char* program : {"tarvin", "tarvin-duplicate-file-remover"}) {
        const CommandResult result =
            runCommand(std::string("zsh -n packaging/completions/_") + program);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.status, 0);
    }
}

TEST(BashCompletion, CompletesACommand) {
    EXPECT_EQ(bashOffers("tarvin sc", 1), "scan\n");
}

TEST(BashCompletion, OffersCommandsAndOptionsFirst) {
    EXPECT_EQ(bashOffers("tarvin \"\"", 1),
              "--help\n--version\nclean\nexceptions\nforget\nhelp\nrestore\nscan\ntotals\n");
}

TEST(BashCompletion, OffersTheOptionsOfScan) {
    EXPECT_EQ(
        bashOffers("tarvin scan --", 2),
        "--color\n--exceptions\n--exclude\n--files-from\n--format\n--help\n--keep\n--max-size\n"
        "--min-size\n--no-exceptions\n--null\n--one-file-system\n--output\n--prefer\n"
        "--progress\n--protect\n--remember\n--skip-hidden\n");
    EXPECT_EQ(bashOffers("tarvin scan --color al", 3), "always\n");
}

TEST(BashCompletion, OffersTheOptionsOfClean) {
    EXPECT_EQ(
        bashOffers("tarvin clean --", 2),
        "--color\n--dry-run\n--exceptions\n--exclude\n--files-from\n--format\n--from\n--help\n--"
        "keep\n"
        "--max-size\n--min-size\n--no-exceptions\n--null\n--one-file-system\n--output\n--prefer\n"
        "--progress\n--protect\n--remember\n--skip-hidden\n--yes\n");
    EXPECT_EQ(bashOffers("tarvin clean --format js", 3), "json\n");
}

TEST(BashCompletion, OffersTheRulesOfKeep) {
    EXPECT_EQ(bashOffers("tarvin clean --keep \"\"", 3),
              "first\nlongest\nnewest\noldest\npreferred\nshortest\n");
    EXPECT_EQ(bashOffers("tarvin scan --protect sr", 3), "src\n");
}

TEST(BashCompletion, OffersTheOptionsOfRestore) {
    EXPECT_EQ(bashOffers("tarvin restore --", 2),
              "--color\n--dry-run\n--format\n--help\n--list\n--output\n--yes\n");
    EXPECT_EQ(bashOffers("tarvin restore --format \"\"", 3), "json\ntext\n");
    EXPECT_EQ(bashOffers("tarvin restore --list -o LIC", 4), "LICENSE\n");
    EXPECT_EQ(bashOffers("tarvin restore LIC", 2), "");
}

TEST(BashCompletion, OffersTheCommandsOfExceptions) {
    EXPECT_EQ(bashOffers("tarvin exceptions \"\"", 2),
              "--color\n--help\nadd\nclear\nlist\nremove\n");
    EXPECT_EQ(bashOffers("tarvin exceptions add LIC", 3), "LICENSE\n");
    EXPECT_EQ(bashOffers("tarvin exceptions remove LIC", 3), "LICENSE\n");
    EXPECT_EQ(bashOffers("tarvin exceptions clear LIC", 3), "");
    EXPECT_EQ(bashOffers("tarvin exceptions clear --", 3), "--color\n--help\n--missing\n");
    EXPECT_EQ(bashOffers("tarvin exceptions list --", 3), "--color\n--format\n--help\n");
    EXPECT_EQ(bashOffers("tarvin exceptions list --format \"\"", 4), "csv\njson\ntext\n");
    EXPECT_EQ(bashOffers("tarvin totals LIC", 2), "");
}

TEST(BashCompletion, OffersTheCommandsThatCanBeExplained) {
    EXPECT_EQ(bashOffers("tarvin help \"\"", 2),
              "clean\nexceptions\nforget\nhelp\nrestore\nscan\ntotals\n");
    EXPECT_EQ(bashOffers("tarvin help scan \"\"", 3), "");
    EXPECT_EQ(bashOffers("tarvin help --", 2), "--color\n--help\n");
    EXPECT_EQ(bashOffers("tarvin totals -", 2), "--color\n--help\n");
}

TEST(BashCompletion, OffersTheFormats) {
    EXPECT_EQ(bashOffers("tarvin scan --format \"\"", 3), "csv\njson\ntext\n");
    EXPECT_EQ(bashOffers("tarvin scan --format = js", 4), "json\n");
    EXPECT_EQ(bashOffers("tarvin scan --format =", 3), "csv\njson\ntext\n");
    EXPECT_EQ(bashOffers("tarvin scan -f js", 3), "json\n");
}

TEST(BashCompletion, OffersWhenToShowProgress) {
    EXPECT_EQ(bashOffers("tarvin scan --progress a", 3), "always\nauto\n");
}

TEST(BashCompletion, OffersFoldersAndFilesToScan) {
    EXPECT_EQ(bashOffers("tarvin scan co", 2, "packaging"), "completions\n");
    EXPECT_EQ(bashOffers("tarvin scan CMakeL", 2), "CMakeLists.txt\n");
}

TEST(BashCompletion, OffersFilesForOptionsThatTakeAFile) {
    EXPECT_EQ(bashOffers("tarvin scan --output LIC", 3), "LICENSE\n");
    EXPECT_EQ(bashOffers("tarvin scan --exceptions LIC", 3), "LICENSE\n");
    EXPECT_EQ(bashOffers("tarvin scan -o LIC", 3), "LICENSE\n");
    EXPECT_EQ(bashOffers("tarvin scan --files-from LIC", 3), "LICENSE\n");
}

TEST(BashCompletion, AfterTheEndOfOptionsOnlyFoldersAndFilesAreOffered) {
    EXPECT_EQ(bashOffers("tarvin scan -- --", 3), "");
    EXPECT_EQ(bashOffers("tarvin scan -- comp", 3, "packaging"), "completions\n");
}

TEST(BashCompletion, OffersFoldersAndOptionsForTheWindow) {
    EXPECT_EQ(bashOffers("tarvin-duplicate-file-remover comp", 1, "packaging"), "completions\n");
    EXPECT_EQ(bashOffers("tarvin-duplicate-file-remover CMakeL", 1), "");
    EXPECT_EQ(bashOffers("tarvin-duplicate-file-remover src --", 2), "--help\n--version\n");
    EXPECT_EQ(bashOffers("tarvin-duplicate-file-remover -- --", 2), "");
}

}  // namespace
}  // namespace tarvin
