#include "cli/program_run.h"
#include "support/shell_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace tarvin {
namespace {

using testing::HasSubstr;
using Words = std::set<std::string>;

Words wordsOf(std::string text, char separator) {
    std::replace(text.begin(), text.end(), separator, ' ');
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// The options that a command's help lists, "-o" and "--output" for "  -o, --output FILE", each
/// with the alternatives it accepts, such as "a|b"; "" if the help has none.
std::map<std::string, std::string> optionsOf(const std::string& command) {
    std::istringstream lines(runTarvin({command, "--help"}).output);
    std::map<std::string, std::string> options;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.starts_with("  -") ? line : std::string());
        std::string name;
        std::string word;
        while (words >> word && word.starts_with('-')) {
            name = word.substr(0, word.find(','));
            options[name] = "";
        }
        if (word.find('|') != std::string::npos) {
            options[name] = word;
        }
    }
    return options;
}

/// Completions that bash offers for the last of `words`, which begin with "tarvin".
Words offeredByBash(const std::string& words) {
    const CommandResult result = runCommand(
        "bash -c 'source packaging/completions/tarvin.bash; COMP_WORDS=(" + words +
        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _tarvin; printf \"%s\\n\" \"${COMPREPLY[@]}\"'");
    return wordsOf(result.output, '\n');
}

/// The options in the manual, formatted, on one line.
std::string manualOfOptions() {
    return runCommand(
               "GROFF_NO_SGR=1 MANROFFSEQ='' MANWIDTH=80 man -E UTF-8 -l -Tutf8 "
               "packaging/man/tarvin.1 | col -bx | sed -n '/^OPTIONS/,/^OUTPUT/p' "
               "| tr -s '\\n ' ' '")
        .output;
}

std::string zshCompletion() {
    return runCommand("cat packaging/completions/_tarvin").output;
}

class Documents : public testing::TestWithParam<std::string> {};

TEST_P(Documents, NameEveryOptionOfTheCommand) {
    const std::string manual = manualOfOptions();
    const std::string zsh = zshCompletion();
    const std::map<std::string, std::string> options = optionsOf(GetParam());
    const Words offered = offeredByBash("tarvin " + GetParam() + " --");
    ASSERT_TRUE(options.contains("--help"));
    for (const auto& [option, choices] : options) {
        EXPECT_THAT(manual, testing::ContainsRegex("[ ,]" + option + "[ ,=]"));
        EXPECT_THAT(zsh, testing::ContainsRegex("[^a-z-]" + option + "[^a-z-]"));
        EXPECT_TRUE(!option.starts_with("--") || offered.contains(option)) << option;
    }
    for (const std::string& option : offered) {
        EXPECT_TRUE(options.contains(option)) << option;
    }
}

TEST_P(Documents, NameEveryWordThatAnOptionAccepts) {
    const std::string manual = manualOfOptions();
    const std::string zsh = zshCompletion();
    for (const auto& [option, choices] : optionsOf(GetParam())) {
        if (choices.empty()) {
            continue;
        }
        std::string inZsh = choices;
        std::replace(inZsh.begin(), inZsh.end(), '|', ' ');
        EXPECT_THAT(manual, HasSubstr(option + " " + choices));
        EXPECT_THAT(zsh, testing::ContainsRegex(option + "=[^\n]*\\(" + inZsh + "\\)"));
        EXPECT_EQ(offeredByBash("tarvin " + GetParam() + " " + option + " \"\""),
                  wordsOf(choices, '|'))
            << option;
    }
}

INSTANTIATE_TEST_SUITE_P(EachCommand, Documents,
                         testing::Values("scan", "clean", "restore", "exceptions", "totals",
                                         "forget", "help"),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace tarvin
