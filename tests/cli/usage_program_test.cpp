#include "cli/program_run.h"
#include "support/file_content.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarvin {
namespace {

using Words = ProgramRun::Words;

/// A wrong command line and its error message.
struct WrongUsage {
    Words arguments;
    std::string errors;
};

/// Runs in an empty folder, which must stay empty.
void expectRefusal(const WrongUsage& wrong) {
    const TemporaryFolder current;
    const ProgramResult result = runTarvin(wrong.arguments, {.folder = current.path()});
    EXPECT_EQ(result.status, 2) << wrong.errors;
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, wrong.errors);
    EXPECT_TRUE(std::filesystem::is_empty(current.path())) << wrong.errors;
}

TEST(Usage, AMissingCommandIsReported) {
    for (const Words& arguments : {Words{}, Words{"--"}}) {
        expectRefusal({arguments, "tarvin: missing command\nTry 'tarvin --help'.\n"});
    }
}

TEST(Usage, AnUnknownCommandIsNamed) {
    expectRefusal({{"purge", "/"}, "tarvin: unknown command 'purge'\nTry 'tarvin --help'.\n"});
    expectRefusal(
        {{"sc\x1B[31man"}, "tarvin: unknown command $'sc\\x1b[31man'\nTry 'tarvin --help'.\n"});
    expectRefusal({{""}, "tarvin: unknown command $''\nTry 'tarvin --help'.\n"});
}

TEST(Usage, AnUnknownCommandIsNamedWhateverFollowsIt) {
    for (const char* word : {"--help", "--version", "scan", "totals", "--nonsense"}) {
        expectRefusal({{"purge", word}, "tarvin: unknown command 'purge'\nTry 'tarvin --help'.\n"});
    }
}

TEST(Usage, AMisspellingIsSuggestedNotRun) {
    const TemporaryFolder folder;
    folder.writeFile("a.jpg", "photo");
    folder.writeFile("b.jpg", "photo");
    expectRefusal(
        {{"claen", "--yes", folder.path()},
         "tarvin: unknown command 'claen'; did you mean 'clean'?\nTry 'tarvin --help'.\n"});
    expectRefusal({{"help", "exeption"},
                   "tarvin: unknown command 'exeption'; did you mean 'exceptions'?\n"
                   "Try 'tarvin --help'.\n"});
    expectRefusal({{"exceptions", "lsit"},
                   "tarvin: unknown command 'lsit'; did you mean 'list'?\n"
                   "Try 'tarvin exceptions --help'.\n"});
    for (const char* word : {"--fromat=json", "--form"}) {
        expectRefusal({{"scan", word, folder.path()},
                       std::string("tarvin: unexpected argument '") + word +
                           "'; did you mean '--format'?\n"
                           "Try 'tarvin scan --help'.\n"});
    }
    expectRefusal({{"clean", "--yse", folder.path()},
                   "tarvin: unexpected argument '--yse'; did you mean '--yes'?\n"
                   "Try 'tarvin clean --help'.\n"});
    expectRefusal({{"--vresion"},
                   "tarvin: unexpected argument '--vresion'; did you mean '--version'?\n"
                   "Try 'tarvin --help'.\n"});
    expectRefusal({{"scan", "--format", "jsno", folder.path()},
                   "tarvin: invalid value 'jsno' for --format: expected text, json or csv; did you "
                   "mean 'json'?\n"
                   "Try 'tarvin scan --help'.\n"});
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("b.jpg")));
}

TEST(Usage, AnUnknownOptionIsNamed) {
    expectRefusal(
        {{"--recursive"}, "tarvin: unexpected argument '--recursive'\nTry 'tarvin --help'.\n"});
    expectRefusal({{"--format", "json", "scan", "/"},
                   "tarvin: unexpected argument '--format'\nTry 'tarvin scan --help'.\n"});
    expectRefusal({{"scan", "/nonexistent", "--re\ncursive"},
                   "tarvin: unexpected argument $'--re\\ncursive'\nTry 'tarvin scan --help'.\n"});
}

TEST(Usage, ScanRequiresAFolder) {
    for (const Words& arguments : {Words{"scan"}, Words{"scan", "--format", "json"}}) {
        expectRefusal({arguments, "tarvin: missing argument: FOLDER\nTry 'tarvin scan --help'.\n"});
    }
}

TEST(Usage, CleanRequiresAFolder) {
    expectRefusal(
        {{"clean", "--yes"}, "tarvin: missing argument: FOLDER\nTry 'tarvin clean --help'.\n"});
}

TEST(Usage, AListTakesThePlaceOfFolders) {
    expectRefusal({{"clean", "--yes", "--from", "/nonexistent", "/tmp"},
                   "tarvin: FOLDER and --from cannot be combined\n"
                   "Try 'tarvin clean --help'.\n"});
    expectRefusal({{"clean", "--keep", "newest", "--from", "/nonexistent"},
                   "tarvin: --keep and --from cannot be combined\n"
                   "Try 'tarvin clean --help'.\n"});
    expectRefusal({{"clean", "--yes", "--from"},
                   "tarvin: missing value for --from\nTry 'tarvin clean --help'.\n"});
    expectRefusal({{"scan", "--from", "/nonexistent", "/tmp"},
                   "tarvin: unexpected argument '--from'\nTry 'tarvin scan --help'.\n"});
}

TEST(Usage, ExceptionsRequireACommand) {
    expectRefusal(
        {{"exceptions"},
         "tarvin: missing command: list, add, remove or clear\nTry 'tarvin exceptions --help'.\n"});
    expectRefusal({{"exceptions", "forget"},
                   "tarvin: unknown command 'forget'\nTry 'tarvin exceptions --help'.\n"});
    expectRefusal({{"exceptions", "add"},
                   "tarvin: missing argument: FILE\nTry 'tarvin exceptions add --help'.\n"});
    expectRefusal({{"exceptions", "remove"},
                   "tarvin: missing argument: FILE\nTry 'tarvin exceptions remove --help'.\n"});
    expectRefusal({{"exceptions", "clear", "--mising"},
                   "tarvin: unexpected argument '--mising'; did you mean '--missing'?\n"
                   "Try 'tarvin exceptions clear --help'.\n"});
    expectRefusal({{"exceptions", "list", "--format", "xml"},
                   "tarvin: invalid value 'xml' for --format: expected text, json or csv\n"
                   "Try 'tarvin exceptions list --help'.\n"});
}

TEST(Usage, TotalsTakeNoArguments) {
    expectRefusal(
        {{"totals", "x"}, "tarvin: unexpected argument 'x'\nTry 'tarvin totals --help'.\n"});
}

TEST(Usage, AnInvalidValueIsNamed) {
    expectRefusal({{"scan", "--format", "xml", "/nonexistent"},
                   "tarvin: invalid value 'xml' for --format: expected text, json or csv\n"
                   "Try 'tarvin scan --help'.\n"});
    expectRefusal(
        {{"scan", "--progress", "sometimes", "/nonexistent"},
         "tarvin: invalid value 'sometimes' for --progress: expected auto, always or never\n"
         "Try 'tarvin scan --help'.\n"});
}

TEST(Usage, AnEmptyValueDoesNotTakeTheNextWord) {
    const TemporaryFolder folder;
    folder.writeFile("photos/a.jpg", "photo");
    const std::string kept = folder.writeFile("kept", "not to be lost");
    for (const char* option : {"--output", "--exceptions", "--format", "--progress"}) {
        expectRefusal(
            {{"scan", option + std::string("="), kept, folder.pathOf("photos")},
             "tarvin: missing value for " + std::string(option) + "\nTry 'tarvin scan --help'.\n"});
        EXPECT_EQ(contentOf(kept), "not to be lost") << option;
    }
    expectRefusal({{"clean", "--dry-run", "--output=", kept, folder.pathOf("photos")},
                   "tarvin: missing value for --output\nTry 'tarvin clean --help'.\n"});
    EXPECT_EQ(contentOf(kept), "not to be lost");
    for (const char* option : {"--output", "--exceptions"}) {
        expectRefusal(
            {{"scan", option, "", folder.pathOf("photos")},
             "tarvin: missing value for " + std::string(option) + "\nTry 'tarvin scan --help'.\n"});
    }
}

TEST(Usage, AMissingValueAtTheEndIsNamed) {
    for (const char* option : {"--output", "--exceptions", "--format", "--progress"}) {
        expectRefusal(
            {{"scan", "/nonexistent", option},
             "tarvin: missing value for " + std::string(option) + "\nTry 'tarvin scan --help'.\n"});
    }
}

TEST(Usage, AMissingFileDoesNotTakeTheNextOption) {
    expectRefusal({{"clean", "--output", "--dry-run", "--yes", "/nonexistent"},
                   "tarvin: invalid value '--dry-run' for --output: looks like an option; write "
                   "'./--dry-run' for a file of that name\nTry 'tarvin clean --help'.\n"});
    expectRefusal(
        {{"scan", "--exceptions", "-x", "/nonexistent"},
         "tarvin: invalid value '-x' for --exceptions: looks like an option; write './-x' "
         "for a file of that name\n"
         "Try 'tarvin scan --help'.\n"});
}

TEST(Usage, ALongNameAfterOneDashIsRefused) {
    const TemporaryFolder folder;
    const ProgramResult result =
        runTarvin({"scan", "-output", "result", folder.path()}, {.folder = folder.path()});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: unexpected argument '-output'; did you mean '--output'?\n"
              "Try 'tarvin scan --help'.\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    expectRefusal({{"scan", "-format", "json", "/nonexistent"},
                   "tarvin: unexpected argument '-format'; did you mean '--format'?\n"
                   "Try 'tarvin scan --help'.\n"});
}

TEST(Usage, CombinedShortOptionsMustBeLetters) {
    for (const char* word : {"-n-", "-y-n", "-n=1", "-y /"}) {
        expectRefusal({{"clean", word, "/nonexistent"},
                       std::string("tarvin: unexpected argument '") + word +
                           "'\nTry 'tarvin clean --help'.\n"});
    }
    expectRefusal({{"clean", "-nx", "/nonexistent"},
                   "tarvin: unexpected argument '-x'\nTry 'tarvin clean --help'.\n"});
}

TEST(Usage, AFlagTakesNoValue) {
    for (const char* word : {"--yes=", "--yes=no", "--yes=1"}) {
        expectRefusal({{"clean", word, "/nonexistent"},
                       "tarvin: --yes takes no value\nTry 'tarvin clean --help'.\n"});
    }
    expectRefusal({{"scan", "--no-exceptions=false", "/nonexistent"},
                   "tarvin: --no-exceptions takes no value\nTry 'tarvin scan --help'.\n"});
    expectRefusal({{"exceptions", "add", "--help=yes"},
                   "tarvin: --help takes no value\nTry 'tarvin exceptions add --help'.\n"});
    expectRefusal({{"--version=2"}, "tarvin: --version takes no value\nTry 'tarvin --help'.\n"});
}

TEST(Usage, TheExceptionsOptionsCannotBeCombined) {
    const ProgramResult result =
        runTarvin({"scan", "--no-exceptions", "--exceptions", "list", "/nonexistent"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "tarvin: --no-exceptions and --exceptions cannot be combined\n"
              "Try 'tarvin scan --help'.\n");
}

TEST(Usage, AnUnwritableOutputIsRefusedBeforeTheScan) {
    const TemporaryFolder folder;
    const std::string path = folder.pathOf("no folder/result");
    expectRefusal({{"scan", "--output", path, "/nonexistent"},
                   "tarvin: cannot write '" + path + "': No such file or directory\n"});
    expectRefusal({{"scan", "--output", folder.path(), "/nonexistent"},
                   "tarvin: cannot write '" + folder.path() + "': Is a directory\n"});
}

TEST(Usage, AWriteProtectedOutputIsRefusedAndNotReplaced) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("result", "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    const ProgramResult result = runTarvin({"scan", "--output", path, "/nonexistent"},
                                           {.folder = folder.path(), .obeysPermissions = true});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, "tarvin: cannot write '" + path + "': Permission denied\n");
    EXPECT_EQ(contentOf(path), "old");
}

TEST(Usage, WrongUsageLeavesAnOutputAlone) {
    const TemporaryFolder folder;
    expectRefusal(
        {{"scan", "--output", folder.pathOf("result"), "--exceptions", "/nonexistent",
          "/nonexistent"},
         "tarvin: cannot read exceptions list '/nonexistent': No such file or directory\n"});
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace tarvin
