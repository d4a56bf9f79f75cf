#include "cli/program_run.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

namespace tarvin {
namespace {

/// The program in an environment without a display.
class StartWithoutADisplay : public testing::Test {
 protected:
    StartWithoutADisplay() {
        constexpr std::array names{"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET",
                                   "QT_QPA_PLATFORM"};
        for (const char* name : names) {
            ::unsetenv(name);  // NOLINT(concurrency-mt-unsafe)
        }
    }
};

TEST_F(StartWithoutADisplay, PrintsTheVersion) {
    const ProgramResult result = runTarvin({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "tarvin-duplicate-file-remover " TARVIN_VERSION "\n");
    EXPECT_EQ(result.errors, "");
}

TEST_F(StartWithoutADisplay, PrintsHelp) {
    for (const char* option : {"-h", "--help"}) {
        const ProgramResult result = runTarvin({option, "/films"});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.output,
                  R"(Find byte-for-byte identical files and move copies to the Trash.

Usage: tarvin-duplicate-file-remover [OPTION]... [FOLDER]...

Adds each FOLDER to the list of locations, checked.

Options:
  -h, --help   Print help and exit
  --version    Print the version and exit

Qt options such as -platform and -style are also accepted.
'tarvin' does the same work in a terminal.
)");
    }
}

TEST_F(StartWithoutADisplay, ReportsThatThereIsNoDisplay) {
    const ProgramResult result = runTarvin({});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "tarvin-duplicate-file-remover: cannot open a window: no display (DISPLAY and "
              "WAYLAND_DISPLAY are not set)\n"
              "'tarvin' does the same work in a terminal.\n");
}

TEST_F(StartWithoutADisplay, LeavesAnUnreachableDisplayToQt) {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) {
        const ProgramResult result =
            runTarvin({"--nonsense"}, {.environment = {{name, "unreachable"}}});
        EXPECT_NE(result.status, 0) << name;
        EXPECT_EQ(result.errors.find("no display (DISPLAY and"), std::string::npos)
            << name << ": " << result.errors;
    }
}

TEST_F(StartWithoutADisplay, ReportsAnUnknownOption) {
    const TemporaryFolder folder;
    const std::string refusal =
        "tarvin-duplicate-file-remover: unknown option '--nonsense'\n"
        "Try 'tarvin-duplicate-file-remover --help'.\n";
    for (const ProgramRun::Words& words :
         {ProgramRun::Words{"-platform", "offscreen", "--nonsense"},
          ProgramRun::Words{"--nonsense", "/", "-style", "fusion", "-platform", "offscreen"}}) {
        const ProgramResult result =
            runTarvin(words, {.environment = {{"XDG_RUNTIME_DIR", folder.path()}}});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, refusal);
    }
}

TEST_F(StartWithoutADisplay, EscapesAnUnknownOptionForTheTerminal) {
    const TemporaryFolder folder;
    const ProgramResult result = runTarvin({"-platform", "offscreen", "--red\x1B[31m\xC3\xBC\n"},
                                           {.environment = {{"XDG_RUNTIME_DIR", folder.path()}}});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin-duplicate-file-remover: unknown option $'--red\\x1b[31m\xC3\xBC\\n'\n"
              "Try 'tarvin-duplicate-file-remover --help'.\n");
}

TEST_F(StartWithoutADisplay, ReportsThatHelpOrVersionCannotBeWritten) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    for (const char* option : {"--help", "--version"}) {
        const ProgramResult result = runTarvin({option}, {.output = full});
        EXPECT_EQ(result.status, 1) << option;
        EXPECT_EQ(result.errors,
                  "tarvin-duplicate-file-remover: cannot write standard output: No space left on "
                  "device\n");
    }
    ::close(full);
}

}  // namespace
}  // namespace tarvin
