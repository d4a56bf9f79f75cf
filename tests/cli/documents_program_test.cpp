#include "cli/program_run.h"
#include "support/shell_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace tarvin {
namespace {

using testing::HasSubstr;
using Words = std::set<std::string>;

/// The options that a command's help lists: "-o" and "--output" for "  -o, --output FILE".
Words optionsOf(const std::string& command) {
    std::istringstream lines(runTarvin({command, "--help"}).output);
    Words options;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.starts_with("  -") ? line : std::string());
        for (std::string name; words >> name && name.starts_with('-');) {
            options.insert(name.substr(0, name.find(',')));
        }
    }
    return options;
}

/// Completions that bash offers after "tarvin COMMAND --".
Words offeredByBash(const std::string& command) {
    std::istringstream offers(
        runCommand("bash -c 'source packaging/completions/tarvin.bash; COMP_WORDS=(tarvin " +
                   command + " --); COMP_CWORD=2; _tarvin; printf \"%s\\n\" \"${COMPREPLY[@]}\"'")
            .output);
    Words words;
    for (std::string word; offers >> word;) {
        words.insert(word);
    }
    return words;
}

class Documents : public testing::TestWithParam<std::string> {};

TEST_P(Documents, NameEveryOptionOfTheCommand) {
    // Formatted, on one line.
    const std::string manual = runCommand(
                                   "GROFF_NO_SGR=1 MANROFFSEQ='' MANWIDTH=80 man -E UTF-8 -l "
                                   "-Tutf8 packaging/man/tarvin.1 "
                                   "| col -bx | sed -n '/^OPTIONS/,/^OUTPUT/p' | tr -s '\\n ' ' '")
                                   .output;
    const std::string zsh = runCommand("cat packaging/completions/_tarvin").output;
    const Words options = optionsOf(GetParam());
    const Words offered = offeredByBash(GetParam());
    ASSERT_TRUE(options.contains("--help"));
    for (const std::string& option : options) {
        EXPECT_THAT(manual, testing::ContainsRegex("[ ,]" + option + "[ ,=]"));
        EXPECT_THAT(zsh, testing::ContainsRegex("[^a-z-]" + option + "[^a-z-]"));
        EXPECT_TRUE(!option.starts_with("--") || offered.contains(option)) << option;
    }
    for (const std::string& option : offered) {
        EXPECT_TRUE(options.contains(option)) << option;
    }
}

INSTANTIATE_TEST_SUITE_P(EachCommand, Documents,
                         testing::Values("scan", "clean", "restore", "exceptions", "totals",
                                         "help"),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace tarvin
