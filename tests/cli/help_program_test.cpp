#include "cli/program_run.h"
#include "support/pipe.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <map>
#include <sstream>
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

TEST(Version, MatchesTheBuild) {
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
              R"(Find byte-for-byte identical files and move copies to the Trash.
'tarvin help COMMAND' explains a command.

Usage: tarvin COMMAND [OPTION]...

Options:
  -h, --help                  Print help and exit
  -V, --version               Print the version and exit
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]

Commands:
  scan                        Find identical files
  clean                       Move duplicates to the Trash, keep one of each set
  restore                     Put the files of a clean-up back from the Trash
  exceptions                  Show or edit the list of excluded files
  totals                      Show how many files have been moved to the Trash
  forget                      Remove what scans with --remember have stored
  help                        Show help for the program or a command

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
    EXPECT_EQ(result.output, R"(Find identical files

Usage: tarvin scan [OPTION]... FOLDER...

Arguments:
  FOLDER                      Folder to scan, with all subfolders, or file

Options:
  -h, --help                  Print help and exit
  --keep first|newest|oldest|shortest|longest|preferred
                              Which file of each set stays [default: first, or
                              preferred with --prefer]
  --prefer FOLDER             Keep the file in FOLDER or below; the first FOLDER
                              that has one counts
  --protect FOLDER            Keep all files in FOLDER or below
  -f, --format text|json|csv  Output format [default: text]
  -o, --output FILE           Write to FILE [default: standard output]
  --no-exceptions             Ignore the exceptions list
  --exceptions FILE           Read exceptions from FILE instead of your own list
  --exclude GLOB              Skip files and folders that match GLOB; may be
                              repeated
  --min-size SIZE             Skip smaller files; SIZE is in bytes, or such as
                              100KB or 1.5GiB
  --max-size SIZE             Skip larger files
  --one-file-system           Skip folders on other file systems
  --skip-hidden               Skip files and folders whose name begins with a
                              period
  --files-from FILE           Scan also the folders and files listed in FILE,
                              one a line; - is standard input; may be
                              repeated
  -0, --null                  Names of --files-from end with a null character
  --remember                  Remember what was compared, and do not read files
                              again that are unchanged
  --progress auto|always|never
                              When to show progress on standard error
                              [default: auto, if it is a terminal]
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]

Examples:
  tarvin scan ~/Pictures ~/Downloads
  tarvin scan --format json --output duplicates.json ~/Pictures
  tarvin scan --keep newest ~/Documents

Scanning changes nothing. Ctrl-C stops and prints the sets confirmed so far; a
second Ctrl-C quits at once. With --keep, --prefer or --protect the result shows
which files stay.

Exit status:
  0    finished
  1    finished, but a folder or file could not be read, memory ran out or the
       result could not be written
  2    usage error, or a list, the output file or a folder of a rule cannot be
       used; nothing was done
  130  stopped by Ctrl-C, SIGTERM or SIGHUP
  141  the reader of the result, such as 'head', closed the pipe early
)");
}

TEST(Help, OfCleanExplainsItWithExamples) {
    EXPECT_EQ(runTarvin({"clean", "--help"}).output,
              R"(Move duplicates to the Trash, keep one of each set

Usage: tarvin clean [OPTION]... FOLDER...

Arguments:
  FOLDER                      Folder to scan, with all subfolders, or file

Options:
  -h, --help                  Print help and exit
  -n, --dry-run               List what would be moved, and move nothing
  -y, --yes                   Do not ask for confirmation
  --keep first|newest|oldest|shortest|longest|preferred
                              Which file of each set stays [default: first, or
                              preferred with --prefer]
  --prefer FOLDER             Keep the file in FOLDER or below; the first FOLDER
                              that has one counts
  --protect FOLDER            Keep all files in FOLDER or below
  -f, --format text|json|csv  Output format [default: text]
  -o, --output FILE           Write to FILE [default: standard output]
  --no-exceptions             Ignore the exceptions list
  --exceptions FILE           Read exceptions from FILE instead of your own list
  --exclude GLOB              Skip files and folders that match GLOB; may be
                              repeated
  --min-size SIZE             Skip smaller files; SIZE is in bytes, or such as
                              100KB or 1.5GiB
  --max-size SIZE             Skip larger files
  --one-file-system           Skip folders on other file systems
  --skip-hidden               Skip files and folders whose name begins with a
                              period
  --files-from FILE           Scan also the folders and files listed in FILE,
                              one a line; - is standard input; may be
                              repeated
  -0, --null                  Names of --files-from end with a null character
  --remember                  Remember what was compared, and do not read files
                              again that are unchanged
  --progress auto|always|never
                              When to show progress on standard error
                              [default: auto, if it is a terminal]
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]
  --from FILE                 Clean the sets of a list instead of folders;
                              - is standard input

Examples:
  tarvin clean --dry-run ~/Pictures ~/Downloads
  tarvin clean ~/Pictures
  tarvin clean --yes --format json ~/Pictures
  tarvin clean --prefer ~/Pictures --protect ~/Archive ~
  tarvin clean --from edited.json

The first file of each set, as 'tarvin scan' lists it, stays, unless --keep or
--prefer chooses another. Files in protected folders stay as well. A file is
moved only if it and another file of its set have not changed since the scan.
Nothing is deleted permanently. Ctrl-C stops between two files.

The list for --from is one that 'tarvin scan --format json' has written, edited
or not. Of each set the files with "keep": true stay, or else the first. All
files are read and compared again.

Exit status:
  0    all duplicates were moved, or would be, or you said no
  1    a folder or file could not be read, a file was not moved, memory ran out
       or something could not be written
  2    usage error, confirmation impossible without a terminal or --yes, or a
       list, the output file or a folder of a rule cannot be used; nothing was
       done
  130  stopped by Ctrl-C, SIGTERM or SIGHUP
  141  the reader of the report, such as 'head', closed the pipe early; all
       duplicates were moved, and the rest of the report is on standard error
)");
}

TEST(Help, OfRestoreExplainsItWithExamples) {
    EXPECT_EQ(runTarvin({"restore", "--help"}).output,
              R"(Put the files of a clean-up back from the Trash

Usage: tarvin restore [OPTION]... [CLEAN-UP]

Arguments:
  CLEAN-UP                    Number of the clean-up, as shown by --list
                              [default: the last one with files to put back]

Options:
  -h, --help                  Print help and exit
  -l, --list                  List the known clean-ups, newest first, and exit
  -n, --dry-run               List what would be put back, and put back
                              nothing
  -y, --yes                   Do not ask for confirmation
  -f, --format text|json      Output format [default: text]
  -o, --output FILE           Write to FILE [default: standard output]
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]

Examples:
  tarvin restore --list
  tarvin restore --dry-run
  tarvin restore
  tarvin restore --yes 12

Existing files are never replaced: a file whose name is taken is put back as
'NAME (put back).EXT'. Missing folders are created. A file that cannot be put
back stays in the Trash. Ctrl-C stops between two files.

Exit status:
  0    all files were put back, or would be, or you said no, or there is nothing
       to put back
  1    a file could not be put back, or something could not be read or written
  2    usage error, confirmation impossible without a terminal or --yes, or the
       output file cannot be used; nothing was done
  130  stopped by Ctrl-C, SIGTERM or SIGHUP
  141  the reader of the report, such as 'head', closed the pipe early; the
       files were put back, and the rest of the report is on standard error
)");
}

TEST(Help, OfExceptionsExplainsThem) {
    EXPECT_EQ(runTarvin({"exceptions", "--help"}).output,
              R"(Show or edit the list of excluded files

Usage: tarvin exceptions COMMAND [OPTION]...

Options:
  -h, --help                  Print help and exit
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]

Commands:
  list                        Print the excluded files
  add                         Exclude files
  remove                      Take files off the list
  clear                       Empty the list

Examples:
  tarvin exceptions add ~/Pictures/keep-both.jpg
  tarvin exceptions list
  tarvin exceptions remove ~/Pictures/keep-both.jpg
  tarvin exceptions clear --missing

An exception is a path: a moved or renamed file is scanned again.

Exit status:
  0    done
  1    a file to add does not exist, a file to remove is not on the list, or the
       list could not be read or written
  2    usage error; nothing was done
)");
}

TEST(Help, OfCommandsOfExceptionsExplainsTheirOptions) {
    EXPECT_THAT(runTarvin({"exceptions", "list", "--help"}).output,
                HasSubstr("  -f, --format text|json|csv  Output format [default: text]; json and "
                          "csv tell\n                              whether each file is there\n"));
    EXPECT_THAT(runTarvin({"exceptions", "remove", "--help"}).output,
                HasSubstr("  FILE                        File to remove, which need not exist\n"));
    EXPECT_THAT(runTarvin({"exceptions", "clear", "--help"}).output,
                HasSubstr("  --missing                   Remove only the files that do not exist, "
                          "but not\n                              those on drives that are not "
                          "attached\n"));
}

TEST(Help, OfTotalsExplainsThem) {
    EXPECT_EQ(runTarvin({"totals", "--help"}).output,
              R"(Show how many files have been moved to the Trash

Usage: tarvin totals [OPTION]...

Options:
  -h, --help                  Print help and exit
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]

Exit status:
  0    done
  1    the totals could not be read or printed
  2    usage error; nothing was done
)");
}

TEST(Help, OfForgetExplainsIt) {
    EXPECT_EQ(runTarvin({"forget", "--help"}).output,
              R"(Remove what scans with --remember have stored

Usage: tarvin forget [OPTION]...

Options:
  -h, --help                  Print help and exit
  --color auto|always|never   When to use colour [default: auto, on a terminal
                              that supports it]

Exit status:
  0    done
  1    the remembered scans could not be removed
  2    usage error; nothing was done
)");
}

TEST(Help, OfACommandMatchesItsHelpOption) {
    using Words = ProgramRun::Words;
    for (const Words& words :
         {Words{}, Words{"scan"}, Words{"clean"}, Words{"restore"}, Words{"exceptions"},
          Words{"exceptions", "add"}, Words{"exceptions", "remove"}, Words{"totals"},
          Words{"forget"}, Words{"help"}}) {
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

TEST(Help, FitsIntoEightyColumns) {
    for (const char* command :
         {"help", "scan", "clean", "restore", "exceptions", "totals", "forget"}) {
        std::istringstream lines(runTarvin({"help", command}).output + runTarvin({"help"}).output);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 80U) << line;
        }
    }
}

TEST(Help, OfAnUnknownCommandIsRefused) {
    for (const auto& [words, errors] : std::map<ProgramRun::Words, std::string>{
             {{"help", "purge"}, "tarvin: unknown command 'purge'\nTry 'tarvin --help'.\n"},
             {{"help", "exceptions", "forget"},
              "tarvin: unknown command 'forget'\nTry 'tarvin exceptions --help'.\n"},
             {{"help", "scan", "clean"},
              "tarvin: unknown command 'clean'\nTry 'tarvin scan --help'.\n"}}) {
        const ProgramResult result = runTarvin(words);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, errors);
    }
}

TEST(Help, WinsOverOtherArguments) {
    EXPECT_THAT(runTarvin({"scan", "/nonexistent", "--format", "json", "-h"}).output,
                HasSubstr("Usage: tarvin scan"));
    EXPECT_THAT(runTarvin({"--help", "scan"}).output, HasSubstr("Usage: tarvin"));
}

TEST(Help, ThatCannotBeWrittenIsAFailure) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    const ProgramResult result = runTarvin({"--help"}, {.output = full});
    ::close(full);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot write standard output: No space left on device\n");
}

}  // namespace
}  // namespace tarvin
