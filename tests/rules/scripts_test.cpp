#include "rules/project_files.h"
#include "support/shell_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using testing::IsSupersetOf;

TEST(Scripts, WhatAPersonStartsIsExecutable) {
    for (const char* script : {"run", "test", ".ci/run", "bench/compare"}) {
        const auto status = std::filesystem::status(projectRoot() / script);
        ASSERT_TRUE(std::filesystem::is_regular_file(status)) << script;
        const auto wanted = std::filesystem::perms::owner_exec |
                            std::filesystem::perms::group_exec |
                            std::filesystem::perms::others_exec;
        EXPECT_EQ(status.permissions() & wanted, wanted) << script;
    }
}

TEST(Scripts, BashAcceptsEveryScript) {
    const std::vector<std::filesystem::path> scripts = bashScripts();
    ASSERT_THAT(scripts, IsSupersetOf({"run", "test", ".ci/run", "scripts/packages.sh"}));
    for (const std::filesystem::path& script : scripts) {
        const CommandResult result = runCommand("bash -n '" + script.string() + "'");
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.status, 0) << script;
    }
}

TEST(Scripts, ShellcheckFindsNothingInThem) {
    for (const std::filesystem::path& script : bashScripts()) {
        const CommandResult result = runCommand("shellcheck -x '" + script.string() + "'");
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.status, 0) << script;
    }
}

TEST(Scripts, FindTheirShellThoughAnotherBeganThem) {
    const CommandResult result = runCommand("sh ./test --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, testing::StartsWith("Usage: ./test [OPTION]...\n"));
}

/// Installs packages with a copy of the script, as that user ID, with no package installed and with
/// a fake apt-get that reports a download of 3 MB and fails on --assume-no like the real one.
CommandResult installAs(const std::string& user, const std::string& packages) {
    return runCommand(
        "place=$(mktemp -d) && trap 'rm -r \"$place\"' EXIT && bin=$place/bin &&"
        " mkdir \"$bin\" \"$place/scripts\" && cp scripts/packages.sh \"$place/scripts\" &&"
        " for tool in bash dirname env mkdir readlink sed tail; do"
        " ln -s \"$(command -v \"$tool\")\" \"$bin\"; done &&"
        " printf '#!/bin/sh\\nexit 1\\n' >\"$bin/dpkg-query\" &&"
        " printf '#!/bin/sh\\necho " +
        user +
        "\\n' >\"$bin/id\" &&"
        " printf '#!/bin/sh\\ncase \"$*\" in *--assume-no*)"
        " echo Need to get 3 MB of archives.; exit 1;; esac\\n' >\"$bin/apt-get\" &&"
        " chmod +x \"$bin/id\" \"$bin/dpkg-query\" \"$bin/apt-get\" && cd \"$place\" &&"
        " told=$(PATH=$bin bash -euo pipefail -c 'source scripts/packages.sh; ensurePackages " +
        packages +
        "' 2>&1); status=$?; printf '%s\\n' \"$told\" | sed \"s|$place|DIR|\"; exit $status");
}

TEST(Scripts, PrintTheInstallCommandWithoutRootOrSudo) {
    const CommandResult result = installAs("1000", "one two");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output,
              "Missing packages: one two\n"
              "Installing them requires root or sudo. As root, run:\n"
              "  apt-get update && apt-get install --no-install-recommends one two\n");
}

TEST(Scripts, PrintTheDownloadSizeAndTheLog) {
    const CommandResult result = installAs("0", "one two");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output,
              "Missing packages: one two\n"
              "Downloading and installing 3 MB; log: DIR/build/packages.log\n");
}

TEST(Scripts, TestHasHelp) {
    const CommandResult result = runCommand("./test --help");
    EXPECT_EQ(result.status, 0);
    for (const char* option :
         {"--quick", "--sanitizers", "--tidy", "--clang", "--format", "--help"}) {
        EXPECT_THAT(result.output, testing::HasSubstr(option));
    }
}

TEST(Scripts, TestRefusesUnknownOptions) {
    const CommandResult result = runCommand("./test --no-such-step");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, testing::HasSubstr("--no-such-step"));
}

CommandResult onAFakeMac(const std::string& command) {
    return runCommand("tests/rules/on_a_fake_mac " + command);
}

TEST(ScriptsOnAMac, RunInstallsBuildsAndOpensTheWindowOfTheBundle) {
    const CommandResult result = onAFakeMac("./run");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(
        result.output,
        "Missing packages: cli11 libheif libplist nlohmann-json openjpeg pkgconf qt sqlite "
        "utf8proc xxhash\n"
        "Building tarvin ...\n"
        "the window\n"
        "brew list --formula -1\n"
        "brew install --quiet cli11 libheif libplist nlohmann-json openjpeg pkgconf qt sqlite "
        "utf8proc xxhash\n"
        "brew --prefix\n"
        "cmake --preset release -B DIR/build/run -DTARVIN_BUILD_TESTS=OFF "
        "-DTARVIN_BUILD_BENCH=OFF, /opt/homebrew, /opt/homebrew/opt/sqlite/lib/pkgconfig\n"
        "cmake --build DIR/build/run, /opt/homebrew, "
        "/opt/homebrew/opt/sqlite/lib/pkgconfig\n");
}

TEST(ScriptsOnAMac, RunStartsTheTerminalWithArgumentsAlsoByALink) {
    const CommandResult result = onAFakeMac("./started-by-a-link scan 'my photos'");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, testing::HasSubstr("\nthe terminal: scan my photos\n"));
}

TEST(ScriptsOnAMac, RunEndsIfHomebrewCannotInstall) {
    const CommandResult result = runCommand("FAKE_REFUSAL=1 tests/rules/on_a_fake_mac ./run");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, testing::HasSubstr("\nCannot install: cli11 "));
    EXPECT_THAT(result.output, testing::Not(testing::HasSubstr("cmake --")));
}

TEST(ScriptsOnAMac, RunSaysThatHomebrewIsMissing) {
    const CommandResult result = onAFakeMac("bash -c 'rm \"${PATH%%:*}/brew\" && exec ./run'");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output,
              "Homebrew is missing. Install it as https://brew.sh says, then run this again.\n");
}

TEST(ScriptsOnAMac, TestRunsTheTestsOfTheReleaseBuild) {
    const CommandResult result = onAFakeMac("./test");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, testing::HasSubstr("\n== release\ntests on 3 processors\n"));
    EXPECT_THAT(result.output, testing::HasSubstr(" xxhash ccache googletest\n"));
    EXPECT_THAT(result.output, testing::HasSubstr("\ncmake --workflow --preset release, "));
}

TEST(ScriptsOnAMac, TestRefusesTheStepsThatNeedDebian) {
    const CommandResult result = onAFakeMac("./test --quick");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output,
              "test: a Mac has the step release only; start ./test without options\n");
}

/// Marks that are not in bash 3.2, outside comments.
std::string newBashIn(const std::string& script) {
    static const std::regex constructs(
        "\\bmapfile\\b|\\breadarray\\b|\\bcoproc\\b|(declare|local|readonly|typeset) -[aigrx]*[An]|"
        "\\[\\[ (! )?-v |exec \\{|&>>|\\|&|\\$\\{[A-Za-z_]+(\\^|,|@[A-Za-z])|%\\([^)]*\\)T|wait -n|"
        "\\$\\{[A-Za-z_]+:[^}]*:-[0-9]");
    std::istringstream lines(readProjectFile(script));
    std::string found;
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        const std::string code = line.substr(0, line.find("# "));
        if (std::regex_search(code, match, constructs)) {
            found += match.str() + '\n';
        }
    }
    return found;
}

// shellcheck does not know versions of bash, and Debian has no such old one.
TEST(ScriptsOnAMac, UseTheBashOfMacs) {
    EXPECT_EQ(newBashIn("run"), "");
    EXPECT_EQ(newBashIn("scripts/homebrew.sh"), "");
    // The step that checks the format is not for Macs.
    EXPECT_EQ(newBashIn("test"), "mapfile\n");
    EXPECT_THAT(newBashIn("scripts/packages.sh"),
                testing::AllOf(testing::HasSubstr("local -A"), testing::HasSubstr("[[ ! -v "),
                               testing::HasSubstr("mapfile")));
}

}  // namespace
}  // namespace tarvin
