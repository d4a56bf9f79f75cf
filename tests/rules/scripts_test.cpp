#include "rules/project_files.h"
#include "support/shell_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
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

}  // namespace
}  // namespace tarvin
