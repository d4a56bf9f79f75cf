#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/pipe.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using CommandLine = ProgramRun::Words;

/// A tree with copies of one photo; the program runs in its folder.
class FilteredScan : public testing::Test {
 protected:
    FilteredScan() {
        for (const char* name : {"a.jpg", "b.jpg", ".hidden/c.jpg", "raw/d.jpg", "raw/e,f.jpg"}) {
            folder_.writeFile(name, "ten bytes!");
        }
        folder_.writeFile("large/g.jpg", "more than ten bytes");
        folder_.writeFile("large/h.jpg", "more than ten bytes");
    }

    [[nodiscard]] ProgramSetting setting(int input = -1) const {
        return {.folder = folder_.path(),
                .environment = {{"XDG_DATA_HOME", folder_.pathOf(".data")}},
                .input = input};
    }

    [[nodiscard]] ProgramResult scan(const CommandLine& words, int input = -1) const {
        CommandLine all{"scan", "--format", "json"};
        all.insert(all.end(), words.begin(), words.end());
        return runTarvin(all, setting(input));
    }

    /// The sets, as names in the folder.
    [[nodiscard]] Sets sets(const CommandLine& words) const {
        const ProgramResult result = scan(words);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.status, 0);
        return setsIn(parsedJson(result.output), folder_.path() + "/");
    }

    void expectRefusal(const CommandLine& words, const std::string& reason) const {
        for (const char* command : {"scan", "clean"}) {
            CommandLine all{command, "--output", "result"};
            if (std::string(command) == "clean") {
                all.emplace_back("--yes");
            }
            all.insert(all.end(), words.begin(), words.end());
            const ProgramResult result = runTarvin(all, setting());
            EXPECT_EQ(result.status, 2) << reason;
            EXPECT_EQ(result.output, "");
            EXPECT_EQ(result.errors,
                      "tarvin: " + reason + "\nTry 'tarvin " + command + " --help'.\n");
        }
        EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("result")));
        EXPECT_FALSE(std::filesystem::exists(folder_.pathOf(".data")));
    }

    TemporaryFolder folder_;
};

TEST_F(FilteredScan, SkipsWhatPatternsExclude) {
    EXPECT_EQ(sets({"--exclude", "raw/", "--exclude=.h*", "--exclude", "large", "."}),
              (Sets{{"a.jpg", "b.jpg"}}));
    EXPECT_EQ(sets({"--exclude", folder_.pathOf("raw/*,*"), "--exclude", "[ab].jpg", "raw", "."}),
              (Sets{{"raw/d.jpg", ".hidden/c.jpg"}, {"large/g.jpg", "large/h.jpg"}}));
}

TEST_F(FilteredScan, APatternInBracketsIsOnePattern) {
    folder_.writeFile("[a,b]/i.jpg", "ten bytes!");
    EXPECT_EQ(sets({"--exclude", "[g,l]*", "--exclude=[a,b].jpg", "--exclude", "raw", "."}),
              (Sets{{".hidden/c.jpg", "[a,b]/i.jpg"}}));
}

TEST_F(FilteredScan, SkipsHiddenFilesAndFolders) {
    EXPECT_EQ(sets({"--skip-hidden", "--exclude", "raw", "--max-size", "10", "."}),
              (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, SkipsSmallerAndLargerFiles) {
    EXPECT_EQ(sets({"--min-size", "11", "."}), (Sets{{"large/g.jpg", "large/h.jpg"}}));
    EXPECT_EQ(sets({"--min-size=0.0109KiB", "--max-size", "1 KB", "."}),
              (Sets{{"large/g.jpg", "large/h.jpg"}}));
    EXPECT_EQ(sets({"--max-size", "18", "--exclude", "raw", "--skip-hidden", "."}),
              (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, TheLastOfRepeatedSizesCounts) {
    EXPECT_EQ(sets({"--min-size", "1MB", "--min-size", "19", "."}),
              (Sets{{"large/g.jpg", "large/h.jpg"}}));
    EXPECT_EQ(sets({"--max-size=1", "--max-size=18", "--exclude", "raw", "--skip-hidden", "."}),
              (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, EqualLimitsTakeFilesOfThatSize) {
    EXPECT_EQ(sets({"--min-size", "19", "--max-size", "19", "."}),
              (Sets{{"large/g.jpg", "large/h.jpg"}}));
    EXPECT_EQ(sets({"--min-size", "18446744073709551615", "."}), Sets());
    EXPECT_EQ(sets({"--min-size", "0", "--max-size", "18446744073709551615", "large"}),
              (Sets{{"large/g.jpg", "large/h.jpg"}}));
    folder_.writeFile("none/1.jpg", "");
    folder_.writeFile("none/2.jpg", "");
    EXPECT_EQ(sets({"--max-size", "0", "."}), (Sets{{"none/1.jpg", "none/2.jpg"}}));
}

TEST_F(FilteredScan, AStarExcludesEverythingInsideALocation) {
    EXPECT_EQ(sets({"--exclude", "*", ".", "raw"}), Sets());
    EXPECT_EQ(sets({"--exclude", "**", ".", "raw"}), Sets());
    EXPECT_EQ(sets({"--exclude", "*", "a.jpg", "b.jpg"}), Sets());
    EXPECT_EQ(sets({"--exclude", "*.JPG", "--skip-hidden", "--max-size=10", "raw"}),
              (Sets{{"raw/d.jpg", "raw/e,f.jpg"}}));
}

TEST_F(FilteredScan, APatternMayHaveBytesThatAreNotUtf8) {
    folder_.writeFile("raw/x\xe9.jpg", "ten bytes!");
    EXPECT_EQ(sets({"--exclude", "*\xe9*", "raw"}), (Sets{{"raw/d.jpg", "raw/e,f.jpg"}}));
    // A character is not its byte in another encoding.
    const Sets all = sets({"--exclude", "*\u00e9*", "raw"});
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all.begin()->size(), 3U);
}

TEST_F(FilteredScan, ScansFilesGivenByName) {
    EXPECT_EQ(sets({"a.jpg", "raw/d.jpg", ".hidden"}),
              (Sets{{"a.jpg", "raw/d.jpg", ".hidden/c.jpg"}}));
    EXPECT_EQ(sets({"--skip-hidden", "a.jpg", ".hidden/c.jpg"}),
              (Sets{{"a.jpg", ".hidden/c.jpg"}}));
    EXPECT_EQ(sets({"a.jpg", "./a.jpg", folder_.pathOf("a.jpg")}), Sets());
}

TEST_F(FilteredScan, ReadsPathsFromAFile) {
    folder_.writeFile("list", "a.jpg\n\n" + folder_.pathOf("raw") + "\nlarge/g.jpg");
    EXPECT_EQ(sets({"--files-from", "list"}), (Sets{{"a.jpg", "raw/d.jpg", "raw/e,f.jpg"}}));
    EXPECT_EQ(sets({"--files-from", "list", "b.jpg"}),
              (Sets{{"b.jpg", "a.jpg", "raw/d.jpg", "raw/e,f.jpg"}}));
    folder_.writeFile("list", "");
    EXPECT_EQ(sets({"--files-from", "list"}), Sets());
}

TEST_F(FilteredScan, ReadsPathsFromSeveralFiles) {
    folder_.writeFile("one", "b.jpg\n");
    folder_.writeFile("two", "a.jpg\n");
    EXPECT_EQ(sets({"--files-from", "one", "--files-from", "two"}), (Sets{{"b.jpg", "a.jpg"}}));
    EXPECT_EQ(sets({"--files-from=two", "--files-from", "one"}), (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, ReadsStandardInputOnce) {
    Pipe pipe;
    ASSERT_EQ(::write(pipe.writing(), "a.jpg\nb.jpg\n", 12), 12);
    pipe.closeWriting();
    const ProgramResult result = scan({"--files-from", "-", "--files-from", "-"}, pipe.reading());
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path() + "/"), (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, AFileGivenAsAFolderIsReported) {
    for (const char* given : {"a.jpg/", "a.jpg/."}) {
        const ProgramResult result = scan({given, "b.jpg", "raw/"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.errors, "tarvin: cannot read folder '" + folder_.pathOf("a.jpg") +
                                     "': Not a directory\n");
        EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path() + "/"),
                  (Sets{{"b.jpg", "raw/d.jpg", "raw/e,f.jpg"}}));
    }
}

TEST_F(FilteredScan, LinksToFilesAreRefusedHoweverTheyAreNamed) {
    folder_.makeLink("link.jpg", "a.jpg");
    for (const std::string& given :
         {std::string("link.jpg"), std::string("raw/../link.jpg"), folder_.pathOf("link.jpg")}) {
        const ProgramResult result = scan({"a.jpg", "b.jpg", given});
        EXPECT_EQ(result.status, 1) << given;
        EXPECT_EQ(result.errors, "tarvin: cannot scan '" + folder_.pathOf("link.jpg") +
                                     "': neither a folder nor a regular file\n");
        EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path() + "/"),
                  (Sets{{"a.jpg", "b.jpg"}}));
    }
}

TEST_F(FilteredScan, LinksToFoldersAreFollowedHoweverTheyAreNamed) {
    folder_.makeLink("link", "raw");
    for (const char* given : {"link", "link/", "large/../link"}) {
        EXPECT_EQ(sets({given}), (Sets{{"link/d.jpg", "link/e,f.jpg"}})) << given;
    }
}

TEST_F(FilteredScan, ReadsNullTerminatedPathsFromStandardInput) {
    Pipe pipe;
    const std::string list("a.jpg\0raw/e,f.jpg\0new\nline.jpg\0", 31);
    folder_.writeFile("new\nline.jpg", "ten bytes!");
    ASSERT_EQ(::write(pipe.writing(), list.data(), list.size()), static_cast<ssize_t>(list.size()));
    pipe.closeWriting();
    const ProgramResult result = scan({"-0", "--files-from", "-"}, pipe.reading());
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path() + "/"),
              (Sets{{"a.jpg", "raw/e,f.jpg", "new\nline.jpg"}}));
}

TEST_F(FilteredScan, ReportsListedPathsThatAreMissing) {
    folder_.writeFile("list", "a.jpg\nmissing.jpg\nb.jpg\n");
    const ProgramResult result = scan({"--files-from", "list"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot read '" + folder_.pathOf("missing.jpg") +
                                 "': No such file or directory\n");
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path() + "/"), (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, ReportsGivenPathsThatAreNeitherFolderNorFile) {
    folder_.makeLink("link.jpg", "a.jpg");
    const ProgramResult result = scan({"a.jpg", "b.jpg", "link.jpg"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot scan '" + folder_.pathOf("link.jpg") +
                                 "': neither a folder nor a regular file\n");
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path() + "/"), (Sets{{"a.jpg", "b.jpg"}}));
}

TEST_F(FilteredScan, CleanMovesOnlyWhatTheFiltersLeave) {
    folder_.writeFile("list", "a.jpg\nb.jpg\nraw\n");
    const ProgramResult result =
        runTarvin({"clean", "--yes", "--exclude", "d.*", "--files-from", "list"}, setting());
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_TRUE(std::filesystem::exists(folder_.pathOf("a.jpg")));
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("b.jpg")));
    EXPECT_TRUE(std::filesystem::exists(folder_.pathOf("raw/d.jpg")));
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("raw/e,f.jpg")));
    EXPECT_TRUE(std::filesystem::exists(folder_.pathOf(".hidden/c.jpg")));
}

TEST_F(FilteredScan, CleanCannotAskWhenStandardInputIsTheList) {
    const ProgramResult result = runTarvin({"clean", "--files-from", "-"}, setting());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: --files-from - requires --yes or --dry-run: standard input cannot answer as "
              "well\nTry 'tarvin clean --help'.\n");
    Pipe pipe;
    ASSERT_EQ(::write(pipe.writing(), "a.jpg\nb.jpg\n", 12), 12);
    pipe.closeWriting();
    const ProgramResult planned =
        runTarvin({"clean", "--dry-run", "--files-from", "-"}, setting(pipe.reading()));
    EXPECT_EQ(planned.status, 0);
    EXPECT_TRUE(planned.output.starts_with("Would move to the Trash: " + folder_.pathOf("b.jpg")))
        << planned.output;
}

TEST_F(FilteredScan, RefusesInvalidPatterns) {
    for (const auto& [pattern, reason] : std::vector<std::pair<std::string, std::string>>{
             {"[a", "'[' without ']'"},
             {"a\\", "nothing after the last backslash"},
             {"[z-a]", "the first character of a range comes after the last"},
             {"../a", "'..' matches no name"},
             {"/", "matches no name"}}) {
        for (const CommandLine& words :
             {CommandLine{"--exclude", pattern, "."},
              CommandLine{"--exclude=" + pattern, "--exclude", "valid", "."}}) {
            expectRefusal(words, "invalid value '" + pattern + "' for --exclude: " + reason);
        }
    }
    expectRefusal({"--exclude", "", "."}, "missing value for --exclude");
    expectRefusal({"--exclude=", "."}, "missing value for --exclude");
    expectRefusal({".", "--exclude"}, "missing value for --exclude");
    expectRefusal({"--exclude", "--min-size", "1", "."},
                  "invalid value '--min-size' for --exclude: looks like an option; write "
                  "'[-]-min-size' for names that begin with a dash");
}

TEST_F(FilteredScan, RefusesInvalidSizes) {
    const std::string expected =
        "expected a number of bytes, or one with KB, MB, GB, TB, KiB, MiB, GiB or TiB";
    for (const char* option : {"--min-size", "--max-size"}) {
        expectRefusal({option, "-5", "."},
                      std::string("invalid value '-5' for ") + option + ": " + expected);
        for (const char* size : {"1.5M", "10G", "+5", "5  KB", " 5", "1e3"}) {
            expectRefusal({option, size, "."}, "invalid value '" + std::string(size) + "' for " +
                                                   option + ": " + expected);
        }
        expectRefusal(
            {option, "18446744073709551616", "."},
            std::string("invalid value '18446744073709551616' for ") + option + ": too large");
        expectRefusal({option, "10k", "."},
                      std::string("invalid value '10k' for ") + option + ": " + expected);
        expectRefusal({option, "99999999999TB", "."},
                      std::string("invalid value '99999999999TB' for ") + option + ": too large");
        expectRefusal({option, "", "."}, std::string("missing value for ") + option);
    }
    const ProgramResult result = scan({"--min-size", "2KB", "--max-size", "1KB", "."});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "tarvin: --min-size is larger than --max-size: no file would be scanned\n");
}

TEST_F(FilteredScan, RefusesAListThatCannotBeUsed) {
    folder_.writeFile("list", std::string("a.jpg\0b.jpg\0", 12));
    for (const auto& [list, errors] : std::vector<std::pair<std::string, std::string>>{
             {"none", "cannot read list 'none': No such file or directory"},
             {"raw", "cannot read list 'raw': Is a directory"},
             {"list", "cannot use list 'list': it has null characters; use --null"}}) {
        const ProgramResult result = scan({"--files-from", list, "--output", "result", "."});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "tarvin: " + errors + "\n");
        EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("result")));
    }
    expectRefusal({"--null", "."}, "--null requires --files-from");
    expectRefusal({}, "missing argument: FOLDER");
}

}  // namespace
}  // namespace tarvin
