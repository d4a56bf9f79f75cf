#include "cli/program_run.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

namespace tarvin {
namespace {

/// The program where there is no display to be found.
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

TEST_F(StartWithoutADisplay, TellsTheVersion) {
    const ProgramResult result = runTarvin({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "tarvin-duplicate-file-remover " TARVIN_VERSION "\n");
    EXPECT_EQ(result.errors, "");
}

TEST_F(StartWithoutADisplay, Helps) {
    for (const char* option : {"-h", "--help"}) {
        const ProgramResult result = runTarvin({option, "/films"});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.output,
                  R"(Finds byte-for-byte identical files and moves copies to the Trash.

Usage: tarvin-duplicate-file-remover [OPTION]... [FOLDER]...

Each FOLDER is put on the list of what can be scanned, and checked.

Options:
  -h,--help    Print this text and exit
  --version    Print the version and exit

Options of Qt, such as -platform and -style, are taken too.
'tarvin' does the same work in a terminal.
)");
    }
}

TEST_F(StartWithoutADisplay, SaysThatThereIsNone) {
    const ProgramResult result = runTarvin({});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "tarvin-duplicate-file-remover: there is no display to open a window on\n"
              "'tarvin' does the same work in a terminal.\n");
}

TEST_F(StartWithoutADisplay, NamesAnUnknownOption) {
    const TemporaryFolder folder;
    const std::string refusal =
        "tarvin-duplicate-file-remover: --nonsense is no option\n"
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

}  // namespace
}  // namespace tarvin
