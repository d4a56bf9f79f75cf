#include "cli/restore_fixture.h"
#include "support/pipe.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

namespace tarvin {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;

class Restore : public RestoreFixture {
 protected:
    /// The path in the Trash of a file that was moved.
    [[nodiscard]] std::string inTrash(const std::string& path) const {
        return trash() + "/files/" + fs::path(path).filename().string();
    }

    /// The outcomes of a dry run by the names of the files.
    [[nodiscard]] std::map<std::string, Json> planned() const {
        const Json json = parsedJson(tarvin({"restore", "--dry-run", "--format", "json"}).output);
        EXPECT_EQ(json["dryRun"], true);
        std::map<std::string, Json> files;
        for (const Json& file : json["files"]) {
            files[fs::path(file["filePath"].get<std::string>()).filename()] = file;
        }
        return files;
    }
};

TEST_F(Restore, RestoresNamesContentsAndDates) {
    writeEqual({"a.jpg", "b/b.jpg", "b/c d/c.jpg"});
    writeEqual({"d.txt", "e.txt"}, "papers");
    const Tree before = treeOf(photos());
    ASSERT_EQ(clean().size(), 3U);
    ASSERT_EQ(treeOf(photos()).size(), 2U);
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.output.ends_with("Files Put Back: 3\nSize: 0.03 KB\n")) << result.output;
    EXPECT_EQ(treeOf(photos()), before);
    EXPECT_EQ(trashed() + trashInfos(), 0U);
    expectTotals(0);
}

TEST_F(Restore, ReportsEachFileAndTheSums) {
    writeEqual({"a.jpg", "b.jpg"});
    const std::string moved = clean().front();
    EXPECT_EQ(tarvin({"restore", "-n"}).output, "Would put back: " + moved +
                                                    "\nFiles To Put Back: 1\nSize: 0.01 KB\n"
                                                    "Dry run: nothing was put back.\n");
    EXPECT_EQ(restore().output, "Put back: " + moved + "\nFiles Put Back: 1\nSize: 0.01 KB\n");
}

TEST_F(Restore, RepeatedTakesTheCleanUpBefore) {
    writeEqual({"a.jpg", "b.jpg"});
    const std::string first = clean().front();
    writeEqual({"c.txt", "d.txt"});
    const std::string second = clean().front();
    ASSERT_EQ(restore().status, 0);
    EXPECT_TRUE(fs::exists(second));
    EXPECT_FALSE(fs::exists(first));
    expectTotals(1);
    ASSERT_EQ(restore().status, 0);
    EXPECT_TRUE(fs::exists(first));
    expectTotals(0);
    const ProgramResult third = restore();
    EXPECT_EQ(third.status, 0);
    EXPECT_EQ(third.output, allIsBack);
}

TEST_F(Restore, TakesTheCleanUpWithTheNumber) {
    writeEqual({"a.jpg", "b.jpg"});
    const std::string first = clean().front();
    writeEqual({"c.txt", "d.txt"});
    const std::string second = clean().front();
    EXPECT_EQ(restoreAsJson({"1"})["cleanUp"], 1);
    EXPECT_TRUE(fs::exists(first));
    EXPECT_FALSE(fs::exists(second));
    const ProgramResult again = restore({"1"});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.output,
              "There is nothing to put back.\nClean-up 1 has been put back already.\n");
}

TEST_F(Restore, AnUnknownNumberIsAUsageError) {
    writeEqual({"a.jpg", "b.jpg"});
    const auto expectRefused = [this](const std::string& number, const std::string& text) {
        const ProgramResult result = restore({number});
        EXPECT_EQ(result.status, 2) << number;
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "tarvin: " + text + "\nTry 'tarvin restore --help'.\n");
    };
    const std::string unknown = "'; 'tarvin restore --list' lists the known ones";
    expectRefused("1", "unknown clean-up '1" + unknown);
    clean();
    for (const std::string number : {"2", "0", "99999999999999999999"}) {
        expectRefused(number, "unknown clean-up '" + number + unknown);
    }
    const std::string expected = "' for CLEAN-UP: expected a number, as shown by --list";
    for (const std::string word : {"x", "1x", "1.0", " 1", "last"}) {
        expectRefused(word, "invalid value '" + word + expected);
    }
    expectRefused("", "invalid value $'" + expected);
    expectRefused("-3", "invalid value '-3" + expected);
    EXPECT_EQ(trashed(), 1U);
}

TEST_F(Restore, ChoosesAnotherNameIfItsOwnIsTaken) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    const std::vector<std::string> moved = clean();
    ASSERT_EQ(moved.size(), 2U);
    const std::string stem = moved[0].substr(0, moved[0].size() - 4);
    std::ofstream(moved[0]) << "mine";
    std::ofstream(stem + " (put back).jpg") << "mine too";
    const Json dryRun = planned()[fs::path(moved[0]).filename()];
    EXPECT_EQ(dryRun["outcome"], "underOtherName");
    EXPECT_EQ(dryRun["putBackPath"], stem + " (put back 2).jpg");
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output,
                HasSubstr("Put back: " + moved[0] + ", now named " +
                          fs::path(stem).filename().string() + " (put back 2).jpg\n"));
    EXPECT_EQ(contentOf(moved[0]), "mine");
    EXPECT_EQ(contentOf(stem + " (put back).jpg"), "mine too");
    EXPECT_EQ(contentOf(stem + " (put back 2).jpg"), "equal file");
    EXPECT_EQ(contentOf(moved[1]), "equal file");
    EXPECT_EQ(restore().output, allIsBack);
}

TEST_F(Restore, CreatesMissingFolders) {
    writeEqual({"a.jpg", "b/c/b.jpg", "b/c/c.jpg"});
    const Tree before = treeOf(photos());
    clean();
    fs::rename(photos() + "/b", photos() + "/gone");
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 0);
    Tree after = treeOf(photos());
    std::erase_if(
        after, [](const auto& entry) { return entry.first.find("/gone/") != std::string::npos; });
    // The file that was not moved was removed with its folder.
    for (const auto& [path, entry] : after) {
        EXPECT_EQ(before.at(path), entry);
    }
    EXPECT_THAT(result.output, HasSubstr(", its folder made again\n"));
    EXPECT_EQ(trashed(), 0U);
}

TEST_F(Restore, LeavesFilesChangedInTheTrash) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    const std::vector<std::string> moved = clean();
    std::ofstream(inTrash(moved[0]), std::ios::app) << "more";
    EXPECT_EQ(planned()[fs::path(moved[0]).filename()]["outcome"], "changed");
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors,
              "tarvin: cannot put back '" + moved[0] + "': file was changed in the Trash\n");
    EXPECT_THAT(result.output, EndsWith("Files Put Back: 1\nSize: 0.01 KB\n"));
    EXPECT_EQ(contentOf(inTrash(moved[0])), "equal filemore");
    EXPECT_EQ(trashInfos(), 1U);
    EXPECT_EQ(contentOf(moved[1]), "equal file");
    expectTotals(1);
    EXPECT_EQ(restore().output, noneInTrash);
    EXPECT_EQ(restore({"1"}).status, 1);
}

TEST_F(Restore, ReportsFilesNoLongerInTheTrash) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    const std::vector<std::string> moved = clean();
    fs::remove(inTrash(moved[1]));
    EXPECT_THAT(tarvin({"restore", "--list"}).output,
                EndsWith("  2 files (0.02 KB), 1 no longer in the Trash\n"));
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors,
              "tarvin: cannot put back '" + moved[1] + "': no longer in the Trash\n");
    EXPECT_TRUE(fs::exists(moved[0]));
    EXPECT_THAT(tarvin({"restore", "--list"}).output,
                EndsWith("  2 files (0.02 KB), 1 put back, 1 no longer in the Trash\n"));
    expectTotals(1);
}

TEST_F(Restore, ReportsAnEmptiedTrash) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    clean();
    fs::remove_all(trash());
    for (const ProgramRun::Words& more : {ProgramRun::Words{}, ProgramRun::Words{"1"}}) {
        const ProgramResult result = restore(more);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, noneInTrash);
    }
    EXPECT_EQ(restoreAsJson()["nothingToPutBack"], "noneInTrash");
    expectTotals(2);
}

TEST_F(Restore, DoesNotFollowAFolderReplacedByALink) {
    writeEqual({"a/a.jpg", "b/b.jpg"});
    const std::string moved = clean().front();
    const fs::path folder = fs::path(moved).parent_path();
    const fs::path other = folder_.pathOf("other");
    fs::rename(folder, other);
    fs::create_directory_symlink(other, folder);
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot put back '" + moved + "': its folder is a link now\n")
        << result.output;
    EXPECT_EQ(trashed(), 1U);
    // It can be restored later.
    fs::remove(folder);
    fs::rename(other, folder);
    EXPECT_EQ(restore().status, 0);
    EXPECT_EQ(contentOf(moved), "equal file");
}

TEST_F(Restore, ReportsWhyAFolderCannotBeWritten) {
    writeEqual({"a/a.jpg", "b/b.jpg"});
    const std::string moved = clean().front();
    const fs::path folder = fs::path(moved).parent_path();
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    ProgramSetting obeying = setting();
    obeying.obeysPermissions = true;
    const ProgramResult result = runTarvin({"restore", "--yes"}, obeying);
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot put back '" + moved + "': Permission denied\n");
    EXPECT_EQ(trashed(), 1U);
    EXPECT_EQ(restore().status, 0);
}

TEST_F(Restore, RestoresNamesOfAnyBytes) {
    const std::vector<std::string> names = {"two\nlines.jpg", "100%25 \xF0\x9F\x98\x80.jpg",
                                            "\xFF\xFE.jpg", std::string(246, 'n') + ".jpg",
                                            "it's \"$HOME\".jpg"};
    writeEqual(names);
    for (const std::string& name : names) {
        writeEqual({"first/" + name}, name);
        writeEqual({"second/" + name}, name);
    }
    const Tree before = treeOf(photos());
    ASSERT_EQ(clean().size(), 2 * names.size() - 1);
    const Json json = restoreAsJson();
    EXPECT_EQ(json["putBackFilesCount"], 2 * names.size() - 1);
    for (const Json& file : json["files"]) {
        EXPECT_EQ(file["outcome"], "toItsPlace") << file;
    }
    EXPECT_EQ(treeOf(photos()), before);
}

TEST_F(Restore, QuotesNamesWithControlCharacters) {
    writeEqual({"a\n.jpg", "b\x1B[2J.jpg"});
    const std::string moved = clean().front();
    std::ofstream(moved) << "mine";
    const std::string output = restore().output;
    EXPECT_EQ(output.find('\x1B'), std::string::npos);
    EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), 3) << output;
    EXPECT_THAT(output, HasSubstr(".jpg', now named $'"));
}

TEST_F(Restore, ReportsTheOutcomeOfEachFileInJson) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    const std::vector<std::string> moved = clean();
    std::ofstream(moved[0]) << "mine";
    fs::remove(trash() + "/files/" + fs::path(moved[1]).filename().string());
    const ProgramResult result = restore({"--format", "json"});
    const Json json = parsedJson(result.output);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(json["dryRun"], false);
    EXPECT_EQ(json["cleanUp"], 1);
    EXPECT_EQ(json["putBackFilesCount"], 1);
    EXPECT_EQ(json["putBackFilesSize"], 10);
    EXPECT_EQ(json["notPutBackFilesCount"], 1);
    EXPECT_EQ(json["stopped"], false);
    EXPECT_EQ(json["files"][0]["outcome"], "underOtherName");
    EXPECT_EQ(json["files"][0]["fileSize"], 10);
    EXPECT_THAT(json["files"][0]["putBackPath"].get<std::string>(), EndsWith(" (put back).jpg"));
    EXPECT_FALSE(json["files"][0].contains("reason"));
    EXPECT_EQ(json["files"][1]["outcome"], "lost");
    EXPECT_EQ(json["files"][1]["reason"], "no longer in the Trash");
    EXPECT_FALSE(json["files"][1].contains("putBackPath"));
}

TEST_F(Restore, DryRunChangesNothing) {
    writeEqual({"a.jpg", "b/b.jpg", "c.jpg", "d.jpg"});
    clean();
    const Tree before = treeOf(folder_.path());
    EXPECT_EQ(tarvin({"restore", "--dry-run", "--yes"}).status, 0);
    EXPECT_EQ(planned().size(), 3U);
    Tree after = treeOf(folder_.path());
    EXPECT_EQ(after.size(), before.size());
    std::erase_if(after, [](const auto& entry) {
        return entry.first.find("/Tarvin Software/") != std::string::npos;
    });
    for (const auto& [path, entry] : after) {
        EXPECT_EQ(before.at(path), entry) << path;
    }
    expectTotals(3);
}

TEST_F(Restore, WithoutAnyCleanUpCreatesNoJournal) {
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, nothingYet);
    EXPECT_EQ(restoreAsJson()["nothingToPutBack"], "neverCleaned");
    EXPECT_EQ(tarvin({"restore", "--list"}).output, "Nothing has been cleaned up yet.\n");
    EXPECT_EQ(parsedJson(tarvin({"restore", "--list", "--format", "json"}).output),
              Json::parse(R"({"cleanUps": []})"));
    EXPECT_FALSE(fs::exists(folder_.pathOf("data")));
}

TEST_F(Restore, ListsTheCleanUpsNewestFirstInLocalTime) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    clean();
    ASSERT_EQ(restore().status, 0);
    clean();
    writeEqual({"d.txt", "e.txt"});
    clean();
    const ProgramResult result = tarvin({"restore", "--list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output,
                MatchesRegex("3  ....-..-.. ..:..:..  1 file \\(0.01 KB\\)\n"
                             "2  ....-..-.. ..:..:..  2 files \\(0.02 KB\\)\n"
                             "1  ....-..-.. ..:..:..  2 files \\(0.02 KB\\), 2 put back\n"));
    const Json json = parsedJson(tarvin({"restore", "--list", "-f", "json"}).output);
    ASSERT_EQ(json["cleanUps"].size(), 3U);
    const Json oldest = json["cleanUps"][2];
    EXPECT_EQ(oldest["cleanUp"], 1);
    EXPECT_EQ(oldest["movedFilesCount"], 2);
    EXPECT_EQ(oldest["movedFilesSize"], 20);
    EXPECT_EQ(oldest["putBackFilesCount"], 2);
    EXPECT_EQ(oldest["lostFilesCount"], 0);
    // UTC+05:30: the minutes show the difference.
    const auto date = oldest["date"].get<std::string>();
    const std::string line = result.output.substr(result.output.rfind("1  20"));
    const int universal = std::stoi(date.substr(14, 2));
    EXPECT_EQ(std::stoi(line.substr(17, 2)), (universal + 30) % 60) << date << ' ' << line;
}

TEST_F(Restore, WithoutATerminalRefusesBeforeScanning) {
    writeEqual({"a.jpg", "b.jpg"});
    clean();
    const ProgramResult result = tarvin({"restore"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: cannot ask for confirmation: standard input or standard error is not a "
              "terminal; use --yes to put files back, or --dry-run to list them\n");
    EXPECT_EQ(trashed(), 1U);
}

TEST_F(Restore, ListCannotBeCombinedWithPuttingBack) {
    writeEqual({"a.jpg", "b.jpg"});
    clean();
    for (const std::string more : {"--dry-run", "--yes", "1"}) {
        const ProgramResult result = tarvin({"restore", "--list", more});
        EXPECT_EQ(result.status, 2) << more;
        EXPECT_THAT(result.errors, HasSubstr(" cannot be combined\n")) << more;
    }
    EXPECT_EQ(trashed(), 1U);
}

TEST_F(Restore, WritesTheReportToAFile) {
    writeEqual({"a.jpg", "b.jpg"});
    const std::string moved = clean().front();
    const std::string report = folder_.pathOf("report");
    EXPECT_EQ(restore({"-o", folder_.pathOf("missing/report")}).status, 2);
    EXPECT_EQ(trashed(), 1U);
    const ProgramResult result = restore({"-o", report});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(contentOf(report), "Put back: " + moved + "\nFiles Put Back: 1\nSize: 0.01 KB\n");
}

TEST_F(Restore, GoesOnWithoutAReaderAndReportsToStandardError) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    const std::vector<std::string> moved = clean();
    Pipe pipe;
    pipe.closeReading();
    ProgramSetting unread = setting();
    unread.output = pipe.writing();
    const ProgramResult result = runTarvin({"restore", "--yes", "-f", "json"}, unread);
    EXPECT_EQ(result.status, 141);
    EXPECT_EQ(result.errors,
              "tarvin: cannot write standard output: Broken pipe; the rest of the report follows\n"
              "Put back: " +
                  moved[0] + "\nPut back: " + moved[1] + "\nFiles Put Back: 2\nSize: 0.02 KB\n");
    EXPECT_EQ(trashed(), 0U);
    expectTotals(0);
}

TEST_F(Restore, DoesNotOfferFilesRestoredByAnotherProgram) {
    writeEqual({"a.jpg", "b.jpg", "c.jpg"});
    const std::vector<std::string> moved = clean();
    // As "gio move" does: it moves the file back and leaves the .trashinfo file.
    fs::rename(inTrash(moved[0]), moved[0]);
    EXPECT_EQ(planned().size(), 1U);
    EXPECT_THAT(tarvin({"restore", "--list"}).output, EndsWith(", 1 put back\n"));
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "Put back: " + moved[1] + "\nFiles Put Back: 1\nSize: 0.01 KB\n");
    EXPECT_EQ(restore().output, allIsBack);
    expectTotals(0);
}

}  // namespace
}  // namespace tarvin
