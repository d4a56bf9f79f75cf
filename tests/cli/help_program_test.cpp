#include "cli/pipe.h"
#include "cli/program_run.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

namespace tarvin {
namespace {

using testing::HasSubstr;

TEST(Version, IsThatOfTheBuild) {
    const ProgramResult result = runTarvin({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, std::string("tarvin ") + TARVIN_VERSION + "\n");
    EXPECT_EQ(result.errors, "");
}

TEST(Help, OfTheProgramNamesItsCommandsWithExamples) {
    const ProgramResult result = runTarvin({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output,
              R"(Finds byte-for-byte identical files. 'tarvin COMMAND --help' explains a command.

Usage: tarvin COMMAND [OPTION]...

Options:
  -h,--help                 Print this text, or that of a command, and exit
  --version                 Print the version and exit

Commands:
  scan                      Finds the files in FOLDER... whose contents are identical.

Examples:
  tarvin scan ~/Pictures ~/Downloads
  tarvin scan --format json --output duplicates.json ~/Pictures
)");
}

TEST(Help, OfScanExplainsItWithExamples) {
    const ProgramResult result = runTarvin({"scan", "--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, R"(Finds the files in FOLDER... whose contents are identical.

Usage: tarvin scan [OPTION]... FOLDER...

Arguments:
  FOLDER                    Where to look, everything below included

Options:
  -h,--help                 Print this text, or that of a command, and exit
  --format text|json|csv    How the result is written; text, the default,
                            is meant to be read by people
  --output FILE             Write the result to FILE instead of standard
                            output
  --no-exceptions           Look at every file, also at those on the
                            exceptions list
  --exceptions FILE         Leave out the files on the list in FILE instead
                            of those on your own list
  --progress auto|always|never
                            Whether to show progress on standard error; auto,
                            the default, shows it if that is a terminal

Examples:
  tarvin scan ~/Pictures ~/Downloads
  tarvin scan --format json --output duplicates.json ~/Pictures

Nothing is changed or removed. Ctrl-C stops the scan; what has been proven by
then is written. A second Ctrl-C ends the program at once.

Exit status:
  0    the scan is done
  1    it is done, but a given folder could not be read or the result could not
       be written
  2    the command line is wrong; nothing was done
  130  the scan was stopped by Ctrl-C or by the signal TERM or HUP
)");
}

TEST(Help, IsGivenWhateverElseIsAsked) {
    EXPECT_THAT(runTarvin({"scan", "/nonexistent", "--format", "json", "-h"}).output,
                HasSubstr("Usage: tarvin scan"));
    EXPECT_THAT(runTarvin({"--help", "scan"}).output, HasSubstr("Usage: tarvin"));
}

TEST(Help, ThatCannotBeWrittenIsAFailure) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    const ProgramResult result = runTarvin({"--help"}, {.output = full});
    ::close(full);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: standard output: No space left on device\n");
}

}  // namespace
}  // namespace tarvin
