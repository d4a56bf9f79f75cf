#include "cli/pipe.h"
#include "cli/program_run.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <map>
#include <string>

namespace tarvin {
namespace {

using testing::HasSubstr;

std::string joined(const ProgramRun::Words& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

TEST(Version, IsThatOfTheBuild) {
    for (const char* option : {"--version", "-V"}) {
        const ProgramResult result = runTarvin({option});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, std::string("tarvin ") + TARVIN_VERSION + "\n");
        EXPECT_EQ(result.errors, "");
    }
}

TEST(Help, OfTheProgramNamesItsCommandsWithExamples) {
    const ProgramResult result = runTarvin({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output,
              R"(Finds byte-for-byte identical files and moves copies to the Trash.
'tarvin help COMMAND' explains a command.

Usage: tarvin COMMAND [OPTION]...

Options:
  -h,--help                   Print this text, or that of a command, and exit
  -V,--version                Print the version and exit
  --color auto|always|never   Whether to use colour; auto, the default, uses it
                              on a terminal that has it

Commands:
  scan                        Finds the files in FOLDER... whose contents are identical.
  clean                       Moves the duplicates in FOLDER... to the Trash; one file of each set stays.
  restore                     Puts the files of a clean-up back from the Trash to where they were.
  exceptions                  Shows or changes the list of files that no scan looks at.
  totals                      Tells how many files were moved to the Trash over all runs.
  help                        Explains the program or one of its commands.

Examples:
  tarvin scan ~/Pictures ~/Downloads
  tarvin scan --format json --output duplicates.json ~/Pictures
  tarvin clean --dry-run ~/Pictures
  tarvin restore
  tarvin exceptions add ~/Pictures/keep-both.jpg
)");
}

TEST(Help, OfScanExplainsItWithExamples) {
    const ProgramResult result = runTarvin({"scan", "--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, R"(Finds the files in FOLDER... whose contents are identical.

Usage: tarvin scan [OPTION]... FOLDER...

Arguments:
  FOLDER                      Where to look, everything below included

Options:
  -h,--help                   Print this text, or that of a command, and exit
  -f,--format text|json|csv   How the result is written; text, the default,
                              is meant to be read by people
  -o,--output FILE            Write the result to FILE instead of standard
                              output
  --no-exceptions             Look at every file, also at those on the
                              exceptions list
  --exceptions FILE           Leave out the files on the list in FILE instead
                              of those on your own list
  --progress auto|always|never
                              Whether to show progress on standard error; auto,
                              the default, shows it if that is a terminal
  --color auto|always|never   Whether to use colour; auto, the default, uses it
                              on a terminal that has it

Examples:
  tarvin scan ~/Pictures ~/Downloads
  tarvin scan --format json --output duplicates.json ~/Pictures

Nothing is changed or removed. Ctrl-C stops the scan; what has been proven by
then is written. A second Ctrl-C ends the program at once.

Exit status:
  0    the scan is done
  1    it is done, but a folder or file could not be read, there was not enough
       memory or the result could not be written
  2    the command line is wrong, or a list of exceptions or the place of the
       result is of no use; nothing was done
  130  the scan was stopped by Ctrl-C or by the signal TERM or HUP
  141  the reader of the result, such as 'head', went away before its end
)");
}

TEST(Help, OfCleanExplainsItWithExamples) {
    EXPECT_EQ(runTarvin({"clean", "--help"}).output,
              R"(Moves the duplicates in FOLDER... to the Trash; one file of each set stays.

Usage: tarvin clean [OPTION]... FOLDER...

Arguments:
  FOLDER                      Where to look, everything below included

Options:
  -h,--help                   Print this text, or that of a command, and exit
  -n,--dry-run                Only tell what would be moved
  -y,--yes                    Move without asking
  -f,--format text|json|csv   How the result is written; text, the default,
                              is meant to be read by people
  -o,--output FILE            Write the result to FILE instead of standard
                              output
  --no-exceptions             Look at every file, also at those on the
                              exceptions list
  --exceptions FILE           Leave out the files on the list in FILE instead
                              of those on your own list
  --progress auto|always|never
                              Whether to show progress on standard error; auto,
                              the default, shows it if that is a terminal
  --color auto|always|never   Whether to use colour; auto, the default, uses it
                              on a terminal that has it

Examples:
  tarvin clean --dry-run ~/Pictures ~/Downloads
  tarvin clean ~/Pictures
  tarvin clean --yes --format json ~/Pictures

The first file of each set, as 'tarvin scan' lists it, stays. A file is moved
only if it is still what the scan saw and another file of its set is still
there. Nothing is ever deleted outright. Ctrl-C stops between two files.

Exit status:
  0    all duplicates were moved, or would be, or you said no
  1    a folder or file could not be read, a file was not moved, there was not
       enough memory or something could not be written
  2    the command line is wrong, there is nobody to ask and no --yes, or the
       exceptions list or the place of the result is of no use; nothing was done
  130  stopped by Ctrl-C or by the signal TERM or HUP
  141  the reader of the report, such as 'head', went away before its end; all
       duplicates were moved, and standard error has the rest of the report
)");
}

TEST(Help, OfRestoreExplainsItWithExamples) {
    EXPECT_EQ(runTarvin({"restore", "--help"}).output,
              R"(Puts the files of a clean-up back from the Trash to where they were.

Usage: tarvin restore [OPTION]... [CLEAN-UP]

Arguments:
  CLEAN-UP                    Its number, as --list tells it; without one, the
                              last clean-up that has something to put back

Options:
  -h,--help                   Print this text, or that of a command, and exit
  -l,--list                   Only list the clean-ups that are known, newest
                              first
  -n,--dry-run                Only tell what would be put back
  -y,--yes                    Put back without asking
  -f,--format text|json       How the result is written; text, the default,
                              is meant to be read by people
  -o,--output FILE            Write the result to FILE instead of standard
                              output
  --color auto|always|never   Whether to use colour; auto, the default, uses it
                              on a terminal that has it

Examples:
  tarvin restore --list
  tarvin restore --dry-run
  tarvin restore
  tarvin restore --yes 12

Nothing that is there now is replaced: a file whose name is taken comes back as
'NAME (put back).EXT'. Folders that are gone are made again. What cannot come
back stays in the Trash, for another try. Ctrl-C stops between two files.

Exit status:
  0    all files were put back, or would be, or you said no, or there is nothing
       to put back
  1    a file could not be put back, or something could not be read or written
  2    the command line is wrong, there is nobody to ask and no --yes, or the
       place of the result is of no use; nothing was done
  130  stopped by Ctrl-C or by the signal TERM or HUP
  141  the reader of the report, such as 'head', went away before its end; all
       that can be was put back, and standard error has the rest of the report
)");
}

TEST(Help, OfExceptionsExplainsThem) {
    EXPECT_EQ(runTarvin({"exceptions", "--help"}).output,
              R"(Shows or changes the list of files that no scan looks at.

Usage: tarvin exceptions COMMAND [OPTION]...

Options:
  -h,--help                   Print this text, or that of a command, and exit
  --color auto|always|never   Whether to use colour; auto, the default, uses it
                              on a terminal that has it

Commands:
  list                        Prints the files on the list.
  add                         Puts FILE... on the list.
  clear                       Empties the list.

Examples:
  tarvin exceptions add ~/Pictures/keep-both.jpg
  tarvin exceptions list

A file that is moved or renamed is looked at again.

Exit status:
  0    done
  1    a file is not there, or the list could not be read or written
  2    the command line is wrong; nothing was done
)");
}

TEST(Help, OfTotalsExplainsThem) {
    EXPECT_EQ(runTarvin({"totals", "--help"}).output,
              R"(Tells how many files were moved to the Trash over all runs.

Usage: tarvin totals [OPTION]...

Options:
  -h,--help                   Print this text, or that of a command, and exit
  --color auto|always|never   Whether to use colour; auto, the default, uses it
                              on a terminal that has it

Exit status:
  0    done
  1    the totals could not be read, or not be printed
  2    the command line is wrong; nothing was done
)");
}

TEST(Help, OfAWordIsThatOfItsOption) {
    using Words = ProgramRun::Words;
    for (const Words& words :
         {Words{}, Words{"scan"}, Words{"clean"}, Words{"restore"}, Words{"exceptions"},
          Words{"exceptions", "add"}, Words{"totals"}, Words{"help"}}) {
        Words first{"help"};
        first.insert(first.end(), words.begin(), words.end());
        Words last = words;
        last.emplace_back("--help");
        const ProgramResult result = runTarvin(first);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.output, runTarvin(last).output);
        Words usage{"Usage: tarvin"};
        usage.insert(usage.end(), words.begin(), words.end());
        EXPECT_THAT(result.output, HasSubstr(joined(usage) + (words.empty() ? " COMMAND" : " ")));
    }
}

TEST(Help, OfAnUnknownCommandIsRefused) {
    for (const auto& [words, errors] : std::map<ProgramRun::Words, std::string>{
             {{"help", "purge"}, "tarvin: purge is no command\nTry 'tarvin --help'.\n"},
             {{"help", "exceptions", "forget"},
              "tarvin: forget is no command\nTry 'tarvin exceptions --help'.\n"},
             {{"help", "scan", "clean"},
              "tarvin: clean is no command\nTry 'tarvin scan --help'.\n"}}) {
        const ProgramResult result = runTarvin(words);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, errors);
    }
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
