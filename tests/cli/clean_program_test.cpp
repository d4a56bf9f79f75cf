#include "cli/program_run.h"
#include "cli/result_json.h"
#include "store/exception_file.h"
#include "store/property_list.h"
#include "support/file_content.h"
#include "support/loop_volume.h"
#include "support/mount.h"
#include "support/pipe.h"
#include "support/pseudo_terminal.h"
#include "support/temporary_folder.h"
#include "support/test_seeds.h"
#include "support/waiting.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

constexpr const char* ownFolder = "data/Tarvin Software/Tarvin Duplicate File Remover/";

/// Photos and a separate data folder with its Trash.
class Clean : public testing::Test {
 protected:
    ProgramSetting setting() const {
        return {.environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}}};
    }

    ProgramResult tarvin(const ProgramRun::Words& arguments) const {
        return runTarvin(arguments, setting());
    }

    [[nodiscard]] std::string photos() const { return folder_.pathOf("photos"); }

    [[nodiscard]] bool isThere(const std::string& name) const {
        return std::filesystem::exists(folder_.pathOf("photos/" + name));
    }

    /// Names of the files in the Trash.
    [[nodiscard]] std::set<std::string> trashed() const {
        std::set<std::string> names;
        std::error_code missing;
        for (const auto& entry :
             std::filesystem::directory_iterator(folder_.pathOf("data/Trash/files"), missing)) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    /// A set of three files, a set of two, and a single file.
    void writePhotos() const {
        for (const char* name : {"photos/a.jpg", "photos/b/b.jpg", "photos/c.jpg"}) {
            folder_.writeFile(name, "three equal photos");
        }
        for (const char* name : {"photos/d.txt", "photos/e.txt"}) {
            folder_.writeFile(name, "two papers");
        }
        folder_.writeFile("photos/f.txt", "alone");
    }

    /// The number of these files that still exist.
    [[nodiscard]] int left(const std::vector<std::string>& names) const {
        int count = 0;
        for (const std::string& name : names) {
            count += isThere(name) ? 1 : 0;
        }
        return count;
    }

    [[nodiscard]] int leftOfThree() const { return left({"a.jpg", "b/b.jpg", "c.jpg"}); }
    [[nodiscard]] int leftOfTwo() const { return left({"d.txt", "e.txt"}); }

    TemporaryFolder folder_;
};

TEST_F(Clean, MovesAllButOneOfEachSetToTheTrash) {
    writePhotos();
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(leftOfThree(), 1);
    EXPECT_EQ(leftOfTwo(), 1);
    EXPECT_TRUE(isThere("f.txt"));
    EXPECT_EQ(trashed().size(), 3U);
    EXPECT_NE(result.output.find("Moved to the Trash: " + photos()), std::string::npos);
    EXPECT_TRUE(result.output.ends_with("Duplicates Cleaned: 3\nSpace Regained: 0.05 KB \n"))
        << result.output;
}

TEST_F(Clean, ShortOptionsDoWhatTheLongOnesDo) {
    writePhotos();
    const ProgramResult planned = tarvin({"clean", "-n", "-f", "json", photos()});
    EXPECT_EQ(parsedJson(planned.output)["dryRun"], true);
    const ProgramResult both = tarvin({"clean", "-ny", photos()});
    EXPECT_TRUE(both.output.ends_with("Dry run: nothing was moved.\n")) << both.output;
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 5);
    const ProgramResult moved = tarvin({"clean", "-y", "-o", folder_.pathOf("report"), photos()});
    EXPECT_EQ(moved.status, 0);
    EXPECT_EQ(moved.output, "");
    EXPECT_TRUE(contentOf(folder_.pathOf("report")).starts_with("Moved to the Trash: "));
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 2);
}

TEST_F(Clean, LeavesTheFileThatTheScanListsFirst) {
    writePhotos();
    const Json scan = parsedJson(tarvin({"scan", "--format", "json", photos()}).output);
    tarvin({"clean", "--yes", photos()});
    for (const Json& category : scan["categories"]) {
        for (const Json& extension : category["extensions"]) {
            for (const Json& set : extension["sets"]) {
                EXPECT_TRUE(
                    std::filesystem::exists(set["files"][0]["filePath"].get<std::string>()));
                EXPECT_FALSE(
                    std::filesystem::exists(set["files"][1]["filePath"].get<std::string>()));
            }
        }
    }
}

/// The locks and, between transactions, the journal are empty, and so are equal.
TEST_F(Clean, NeverMovesItsOwnFiles) {
    writePhotos();
    ASSERT_EQ(tarvin({"clean", "--yes", photos()}).status, 0);
    ASSERT_TRUE(std::filesystem::exists(folder_.pathOf(ownFolder) + "clean-ups.lock"));
    folder_.writeFile("photos/empty.lock", "");
    folder_.writeFile("photos/b/empty.turn", "");
    const ProgramResult result =
        tarvin({"clean", "--dry-run", folder_.pathOf("data"), photos(), folder_.path()});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output.find(ownFolder), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("Marked Duplicate Files: 1\n"), std::string::npos)
        << result.output;
    const std::string list = folder_.writeFile(
        "list.json", R"({"categories": [{"extensions": [{"sets": [{"files": [{"filePath": ")" +
                         folder_.pathOf("photos/empty.lock") + R"("}, {"filePath": ")" +
                         folder_.pathOf(ownFolder) + R"(clean-ups.lock"}]}]}]}]})");
    const ProgramResult listed = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(listed.status, 1);
    EXPECT_EQ(listed.errors, "tarvin: cannot use '" + folder_.pathOf(ownFolder) +
                                 "clean-ups.lock' of the list: it is a file of this program\n");
    EXPECT_TRUE(std::filesystem::exists(folder_.pathOf(ownFolder) + "clean-ups.lock"));
}

TEST_F(Clean, DryRunMovesNothing) {
    writePhotos();
    const ProgramResult result = tarvin({"clean", "--dry-run", photos()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 5);
    EXPECT_TRUE(trashed().empty());
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf(ownFolder)));
    EXPECT_TRUE(
        result.output.ends_with("Marked Duplicate Files: 3\nMarked File Size: 0.05 KB\n"
                                "Dry run: nothing was moved.\n"))
        << result.output;
    EXPECT_NE(result.output.find("Would move to the Trash: " + photos()), std::string::npos);
}

TEST_F(Clean, WithoutATerminalRefusesBeforeScanning) {
    writePhotos();
    const ProgramResult result = tarvin({"clean", photos()});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: cannot ask for confirmation: standard input or standard error is not a "
              "terminal; use --yes to move files, or --dry-run to list them\n");
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 5);
}

TEST_F(Clean, ReportsTheOutcomeOfEachFileInJson) {
    writePhotos();
    const ProgramResult result = tarvin({"clean", "--yes", "--format", "json", photos()});
    const Json json = parsedJson(result.output);
    EXPECT_EQ(json["dryRun"], false);
    EXPECT_EQ(json["stopped"], false);
    EXPECT_EQ(json["deletedFilesCount"], 3);
    EXPECT_EQ(json["deletedFilesSize"], 46);
    ASSERT_EQ(json["files"].size(), 3U);
    for (const Json& file : json["files"]) {
        EXPECT_EQ(file["outcome"], "moved");
        EXPECT_FALSE(std::filesystem::exists(file["filePath"].get<std::string>()));
    }
}

TEST_F(Clean, ReportsThePlanInJsonAndCsv) {
    writePhotos();
    const Json json =
        parsedJson(tarvin({"clean", "--dry-run", "--format", "json", photos()}).output);
    EXPECT_EQ(json["dryRun"], true);
    EXPECT_EQ(json["files"].size(), 3U);
    EXPECT_EQ(json["files"][0]["outcome"], "planned");
    const std::string csv = tarvin({"clean", "--dry-run", "--format", "csv", photos()}).output;
    EXPECT_TRUE(csv.starts_with("outcome,size,path,path_bytes\r\nplanned,")) << csv;
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 4);
}

TEST_F(Clean, MovesFilesWithNamesOfAnyBytes) {
    folder_.writeFile("photos/\xFF one.jpg", "same");
    folder_.writeFile("photos/two\nlines.jpg", "same");
    const ProgramResult result = tarvin({"clean", "--yes", "--format", "json", photos()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(parsedJson(result.output)["files"].size(), 1U);
    EXPECT_EQ(left({"\xFF one.jpg", "two\nlines.jpg"}), 1);
}

TEST_F(Clean, WithoutDuplicatesMovesNothing) {
    folder_.writeFile("photos/a.jpg", "one");
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
}

TEST_F(Clean, AddsToTheTotals) {
    writePhotos();
    EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 0 (0.00 KB)\n");
    tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 3 (0.05 KB)\n");
    writePhotos();
    tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 6 (0.09 KB)\n");
}

TEST_F(Clean, SkipsExcludedFiles) {
    writePhotos();
    const ProgramResult added = tarvin(
        {"exceptions", "add", folder_.pathOf("photos/d.txt"), folder_.pathOf("photos/a.jpg")});
    EXPECT_EQ(added.status, 0);
    EXPECT_EQ(added.output, "Successfully added 2 files to exceptions.\n");
    tarvin({"clean", "--yes", photos()});
    EXPECT_TRUE(isThere("a.jpg"));
    EXPECT_TRUE(isThere("d.txt"));
    EXPECT_EQ(leftOfTwo(), 2);
    EXPECT_EQ(leftOfThree(), 2);
}

TEST_F(Clean, RefusesWhenTheExceptionsCannotBeRead) {
    writePhotos();
    folder_.writeFile(std::string(ownFolder) + "exception.plist", "damaged");
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("exception.plist"), std::string::npos);
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 5);
}

TEST_F(Clean, ReportsEachFileThatTheTrashRefuses) {
    writePhotos();
    folder_.writeFile("data/Trash", "no folder");
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 5);
    EXPECT_NE(result.errors.find("' to the Trash: " + folder_.pathOf("data/Trash") +
                                 " is not a folder\n"),
              std::string::npos)
        << result.errors;
    EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
}

TEST_F(Clean, CleansReadableFoldersAndReportsTheOthers) {
    writePhotos();
    const ProgramResult result = tarvin({"clean", "--yes", folder_.pathOf("missing"), photos()});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("missing': No such file or directory"), std::string::npos);
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 2);
}

/// With a user at a terminal.
class CleanAsking : public Clean {
 protected:
    ProgramResult answer(const std::string& text) {
        PseudoTerminal terminal;
        ProgramSetting asking = setting();
        asking.input = terminal.programsEnd();
        asking.errors = terminal.programsEnd();
        ProgramRun run({"clean", "--progress", "never", photos()}, asking);
        terminal.type(text);
        ProgramResult result = run.wait();
        terminal.closeProgramsEnd();
        asked_ = terminal.readAll();
        return result;
    }

    std::string asked_;
};

TEST_F(CleanAsking, YesMoves) {
    writePhotos();
    EXPECT_EQ(answer("y\n").status, 0);
    EXPECT_NE(asked_.find("Move 3 duplicate files (0.05 KB) to the Trash? [y/N] "),
              std::string::npos)
        << asked_;
    EXPECT_EQ(trashed().size(), 3U);
}

TEST_F(CleanAsking, TheWordYesMovesInAnyUsualCase) {
    for (const char* text : {"Y\n", "yes\n", "Yes\n", "YES\n"}) {
        writePhotos();
        EXPECT_EQ(answer(text).status, 0);
        EXPECT_EQ(leftOfThree() + leftOfTwo(), 2) << text;
    }
}

TEST_F(CleanAsking, CountsOneFileInTheSingular) {
    folder_.writeFile("photos/a.jpg", "equal");
    folder_.writeFile("photos/b.jpg", "equal");
    EXPECT_EQ(answer("n\n").status, 0);
    EXPECT_NE(asked_.find("Move 1 duplicate file (0.00 KB) to the Trash? [y/N] "),
              std::string::npos)
        << asked_;
}

TEST_F(CleanAsking, AnyOtherAnswerMovesNothing) {
    writePhotos();
    for (const char* text : {"n\n", "\n", "yesterday\n", "\x04"}) {
        EXPECT_EQ(answer(text).status, 0);
        EXPECT_EQ(leftOfThree() + leftOfTwo(), 5) << text;
    }
}

TEST_F(CleanAsking, WithoutDuplicatesDoesNotAsk) {
    folder_.writeFile("photos/a.jpg", "one");
    EXPECT_EQ(answer("").status, 0);
    EXPECT_EQ(asked_, "");
}

TEST_F(CleanAsking, CtrlCAtTheQuestionEndsIt) {
    writePhotos();
    PseudoTerminal terminal;
    ProgramSetting asking = setting();
    asking.input = terminal.programsEnd();
    asking.errors = terminal.programsEnd();
    ProgramRun run({"clean", "--progress", "never", photos()}, asking);
    terminal.readUntil("[y/N] ");
    run.send(SIGINT);
    EXPECT_EQ(run.wait().status, 130);
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 5);
}

TEST_F(Clean, CtrlCStopsBetweenFilesAndTotalsCountTheMovedOnes) {
    for (int number = 0; number < 3000; ++number) {
        folder_.writeFile("photos/" + std::to_string(number) + ".jpg", "same");
    }
    ProgramRun run({"clean", "--yes", "--format", "json", photos()}, setting());
    EXPECT_TRUE(waitUntil([this] { return !trashed().empty(); }));
    run.send(SIGINT);
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 130);
    const Json json = parsedJson(result.output);
    EXPECT_EQ(json["stopped"], true);
    const auto moved = json["deletedFilesCount"].get<std::size_t>();
    EXPECT_LT(moved, 2999U);
    EXPECT_EQ(trashed().size(), moved);
    EXPECT_NE(tarvin({"totals"}).output.find(": " + std::to_string(moved) + " ("),
              std::string::npos);
}

TEST_F(Clean, AfterAStopReportsEveryFileAndSumsOfMovedOnes) {
    constexpr std::size_t sets = 4;
    constexpr std::size_t copies = 800;
    for (std::size_t number = 0; number < sets * copies; ++number) {
        folder_.writeFile("photos/" + std::to_string(number) + ".jpg",
                          "same " + std::to_string(number % sets));
    }
    ProgramRun run({"clean", "--yes", "--format", "json", photos()}, setting());
    EXPECT_TRUE(waitUntil([this] { return !trashed().empty(); }));
    run.send(SIGTERM);
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 130);
    const Json json = parsedJson(result.output);
    EXPECT_EQ(json["files"].size(), sets * (copies - 1));
    std::map<std::string, std::size_t> outcomes;
    for (const Json& file : json["files"]) {
        ++outcomes[file["outcome"].get<std::string>()];
    }
    EXPECT_EQ(outcomes["moved"] + outcomes["stopped"], sets * (copies - 1));
    EXPECT_EQ(outcomes["moved"], trashed().size());
    EXPECT_EQ(json["deletedFilesCount"].get<std::size_t>(), outcomes["moved"]);
    EXPECT_EQ(json["deletedFilesSize"].get<std::size_t>(), 6 * outcomes["moved"]);
}

TEST_F(Clean, SecondSignalEndsADryRunWithABlockedReport) {
    for (int number = 0; number < 3000; ++number) {
        folder_.writeFile("photos/" + std::to_string(number) + ".jpg", "same");
    }
    const Pipe full;
    ProgramSetting unread = setting();
    unread.output = full.writing();
    ProgramRun run({"clean", "--dry-run", photos()}, unread);
    EXPECT_TRUE(waitUntil([&] { return full.hasText(); }));
    run.send(SIGTERM);
    run.send(SIGINT);
    EXPECT_EQ(run.wait().status, 130);
}

/// A clean-up of many equal files whose report cannot be written.
class CleanUnread : public Clean {
 protected:
    static constexpr std::size_t moved = 149;

    CleanUnread() {
        for (std::size_t number = 0; number <= moved; ++number) {
            folder_.writeFile("photos/" + std::to_string(number) + ".jpg", "same");
        }
    }

    /// Number of lines that report a moved file. Fails if one of the files still exists.
    [[nodiscard]] std::size_t toldIn(const std::string& text) const {
        const std::string beginning = "Moved to the Trash: ";
        std::istringstream lines(text);
        std::size_t told = 0;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(beginning)) {
                EXPECT_FALSE(std::filesystem::exists(line.substr(beginning.size()))) << line;
                ++told;
            }
        }
        return told;
    }

    void expectAllMovedAndCounted() const {
        EXPECT_EQ(trashed().size(), moved);
        EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 149 (0.60 KB)\n");
    }
};

constexpr const char* sumsOfAll = "Duplicates Cleaned: 149\nSpace Regained: 0.60 KB \n";

TEST_F(CleanUnread, GoesOnWithoutAReaderAndReportsToStandardError) {
    for (const char* format : {"text", "json", "csv"}) {
        for (std::size_t number = 0; number <= moved; ++number) {
            folder_.writeFile("photos/" + std::to_string(number) + ".jpg", "same");
        }
        std::filesystem::remove_all(folder_.pathOf("data"));
        Pipe pipe;
        pipe.closeReading();
        ProgramSetting unread = setting();
        unread.output = pipe.writing();
        const ProgramResult result =
            runTarvin({"clean", "--yes", "--format", format, photos()}, unread);
        EXPECT_EQ(result.status, 141) << format;
        EXPECT_TRUE(result.errors.starts_with(
            "tarvin: cannot write standard output: Broken pipe; the rest of the report follows\n"))
            << result.errors.substr(0, 200);
        EXPECT_EQ(toldIn(result.errors), moved) << format;
        EXPECT_TRUE(result.errors.ends_with(sumsOfAll)) << format;
        expectAllMovedAndCounted();
    }
}

TEST_F(CleanUnread, ContinuesWhenTheReaderClosesThePipe) {
    Pipe pipe;
    // Holds about 40 lines: the program blocks here until the reader has closed the pipe.
    ASSERT_GT(::fcntl(pipe.writing(), F_SETPIPE_SZ, 4096), 0);
    ProgramSetting unread = setting();
    unread.output = pipe.writing();
    ProgramRun run({"clean", "--yes", photos()}, unread);
    pipe.closeWriting();
    const std::string before = pipe.readUntil("\n");
    pipe.closeReading();
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 141);
    EXPECT_GT(toldIn(before), 0U);
    EXPECT_GT(toldIn(result.errors), 0U);
    EXPECT_LT(toldIn(result.errors), moved);
    EXPECT_TRUE(result.errors.ends_with(sumsOfAll)) << result.errors;
    expectAllMovedAndCounted();
}

TEST_F(CleanUnread, WritesTheReportToStandardErrorIfTheDiskIsFull) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ProgramSetting unread = setting();
    unread.output = full;
    const ProgramResult result = runTarvin({"clean", "--yes", photos()}, unread);
    ::close(full);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.starts_with(
        "tarvin: cannot write standard output: No space left on device; the rest of "
        "the report follows\n"))
        << result.errors;
    EXPECT_EQ(toldIn(result.errors), moved);
    expectAllMovedAndCounted();
}

TEST_F(CleanUnread, KeepsAPartialReportAndWritesTheRestToStandardError) {
    const LoopVolume volume;
    if (!volume) {
        return;
    }
    const std::string folder = volume.pathOf("reports");
    std::filesystem::create_directory(folder);
    volume.fillBut(4096);
    const ProgramResult result =
        runTarvin({"clean", "--yes", "--output", folder + "/report", photos()}, setting());
    EXPECT_EQ(result.status, 1);
    EXPECT_FALSE(std::filesystem::exists(folder + "/report"));
    const std::filesystem::directory_iterator kept(folder);
    ASSERT_NE(kept, std::filesystem::directory_iterator());
    const std::string name = kept->path().string();
    EXPECT_TRUE(
        result.errors.starts_with("tarvin: cannot write '" + folder +
                                  "/report': No space left on device; partial report kept as '" +
                                  name + "'; the rest of the report follows\n"))
        << result.errors.substr(0, 300);
    const std::string written = contentOf(name);
    // The last line may be incomplete.
    const std::size_t whole = toldIn(written.substr(0, written.rfind('\n') + 1));
    EXPECT_GT(whole, 0U);
    EXPECT_EQ(whole + toldIn(result.errors), moved);
    expectAllMovedAndCounted();
}

TEST_F(CleanUnread, SecondSignalWhileMovingCompletesReportAndTotals) {
    Pipe pipe;
    // Holds about 40 lines: the program blocks between its moves.
    ASSERT_GT(::fcntl(pipe.writing(), F_SETPIPE_SZ, 4096), 0);
    ProgramSetting unread = setting();
    unread.output = pipe.writing();
    ProgramRun run({"clean", "--yes", "--format", "json", photos()}, unread);
    pipe.closeWriting();
    EXPECT_TRUE(waitUntil([&] { return pipe.hasText(); }));
    run.sendTwo(SIGINT, SIGTERM);
    const Json json = parsedJson(pipe.readAll());
    EXPECT_EQ(run.wait().status, 130);
    ASSERT_TRUE(json.is_object()) << "The report is not whole.";
    EXPECT_EQ(json["stopped"], true);
    EXPECT_EQ(json["files"].size(), moved);
    const auto inTrash = json["deletedFilesCount"].get<std::size_t>();
    EXPECT_EQ(trashed().size(), inTrash);
    EXPECT_LT(inTrash, moved);
    EXPECT_NE(tarvin({"totals"}).output.find(": " + std::to_string(inTrash) + " ("),
              std::string::npos);
}

TEST_F(CleanUnread, DryRunEndsQuietlyWithoutAReader) {
    Pipe pipe;
    pipe.closeReading();
    ProgramSetting unread = setting();
    unread.output = pipe.writing();
    const ProgramResult result = runTarvin({"clean", "--dry-run", photos()}, unread);
    EXPECT_EQ(result.status, 141);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(trashed().empty());
}

TEST_F(Clean, OnAFullVolumeMovesNothing) {
    const LoopVolume volume;
    if (volume) {
        for (const char* name : {"a.jpg", "b.jpg"}) {
            std::ofstream(volume.pathOf(name)) << "equal";
        }
        volume.fill();
        const ProgramResult result = tarvin({"clean", "--yes", volume.pathOf("")});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(contentOf(volume.pathOf("a.jpg")), "equal");
        EXPECT_EQ(contentOf(volume.pathOf("b.jpg")), "equal");
        EXPECT_TRUE(result.output.ends_with("Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n"))
            << result.output;
    }
}

TEST_F(Clean, WithARelativeDataFolderUsesTheHomeTrash) {
    writePhotos();
    ProgramSetting relative;
    relative.folder = folder_.makeFolder("current");
    relative.environment = {{"XDG_DATA_HOME", "relative"}, {"HOME", folder_.makeFolder("home")}};
    EXPECT_EQ(runTarvin({"clean", "--yes", photos()}, relative).status, 0);
    EXPECT_EQ(leftOfThree() + leftOfTwo(), 2);
    EXPECT_TRUE(std::filesystem::exists(folder_.pathOf("home/.local/share/Trash/files")));
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("current/relative")));
}

TEST_F(Clean, MovesDamagedTotalsAsideAndReportsIt) {
    writePhotos();
    const std::string totals = folder_.writeFile(std::string(ownFolder) + "data.plist", "damaged");
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: '" + totals + "' is damaged; kept as '" + totals +
                                 ".unreadable', and a new file was started\n");
    EXPECT_EQ(contentOf(totals + ".unreadable"), "damaged");
    EXPECT_EQ(trashed().size(), 3U);
}

TEST_F(Clean, MovesAnExcludedFileThatHasMoved) {
    writePhotos();
    tarvin({"exceptions", "add", photos() + "/d.txt"});
    std::filesystem::rename(photos() + "/d.txt", photos() + "/g.txt");
    tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(left({"e.txt", "g.txt"}), 1);
}

TEST_F(Clean, TotalsArePrintedOnAReadOnlyVolume) {
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", MS_RDONLY);
    if (mount) {
        const ProgramResult result =
            runTarvin({"totals"}, {.environment = {{"XDG_DATA_HOME", disk}}});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.output, "Files cleaned so far: 0 (0.00 KB)\n");
    }
}

class ExceptionsCommandTest : public Clean {};

TEST_F(ExceptionsCommandTest, ListsWhatWasAdded) {
    writePhotos();
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, "");
    tarvin({"exceptions", "add", folder_.pathOf("photos/a.jpg")});
    tarvin({"exceptions", "add", folder_.pathOf("photos/d.txt"), folder_.pathOf("photos/a.jpg")});
    EXPECT_EQ(tarvin({"exceptions", "list"}).output,
              folder_.pathOf("photos/a.jpg") + "\n" + folder_.pathOf("photos/d.txt") + "\n");
}

TEST_F(ExceptionsCommandTest, TheNextScanSkipsWhatWasAdded) {
    writePhotos();
    tarvin({"exceptions", "add", folder_.pathOf("photos/d.txt")});
    const Json json = parsedJson(tarvin({"scan", "--format", "json", photos()}).output);
    EXPECT_EQ(setsIn(json, photos() + "/"), (Sets{{"a.jpg", "b/b.jpg", "c.jpg"}}));
}

TEST_F(ExceptionsCommandTest, AddsRelativePathsAsAbsoluteOnes) {
    writePhotos();
    ProgramSetting inside = setting();
    inside.folder = photos();
    EXPECT_EQ(runTarvin({"exceptions", "add", "./b/../a.jpg"}, inside).status, 0);
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, photos() + "/a.jpg\n");
}

TEST_F(ExceptionsCommandTest, ReportsMissingFilesAndAddsTheOthers) {
    writePhotos();
    const ProgramResult result = tarvin({"exceptions", "add", folder_.pathOf("photos/a.jpg"),
                                         folder_.pathOf("photos/missing.jpg")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot exclude '" + folder_.pathOf("photos/missing.jpg") +
                                 "': No such file or directory\n");
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, photos() + "/a.jpg\n");
}

TEST_F(ExceptionsCommandTest, ClearEmptiesTheList) {
    writePhotos();
    tarvin({"exceptions", "add", folder_.pathOf("photos/a.jpg")});
    EXPECT_EQ(tarvin({"exceptions", "clear"}).output, "All exceptions has been removed.\n");
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, "");
}

TEST_F(ExceptionsCommandTest, MovesADamagedListAside) {
    folder_.writeFile(std::string(ownFolder) + "exception.plist", "damaged");
    const ProgramResult listing = tarvin({"exceptions", "list"});
    EXPECT_EQ(listing.status, 1);
    EXPECT_NE(listing.errors.find("not a property list"), std::string::npos);
    writePhotos();
    const ProgramResult adding = tarvin({"exceptions", "add", photos() + "/a.jpg"});
    EXPECT_EQ(adding.status, 1);
    const std::string path = folder_.pathOf(std::string(ownFolder) + "exception.plist");
    EXPECT_EQ(adding.errors, "tarvin: '" + path + "' is damaged; kept as '" + path +
                                 ".unreadable', and a new file was started\n");
    EXPECT_EQ(contentOf(path + ".unreadable"), "damaged");
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, photos() + "/a.jpg\n");
}

TEST_F(ExceptionsCommandTest, RefusesFoldersAndLinks) {
    writePhotos();
    const std::string link = folder_.makeLink("photos/link.jpg", "a.jpg");
    const ProgramResult result = tarvin({"exceptions", "add", photos() + "/b", link});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "tarvin: cannot exclude '" + photos() +
                                 "/b': Is a folder\n"
                                 "tarvin: cannot exclude '" +
                                 link + "': not a regular file (scans skip it anyway)\n");
    // Nothing was written.
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf(std::string(ownFolder))));
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, "");
}

TEST_F(ExceptionsCommandTest, ExcludesNamesOfAnyBytes) {
    for (const std::string name : {"line\nend.jpg", "\xff\xfe.jpg", " blanks .jpg"}) {
        folder_.writeFile("photos/" + name, "same");
    }
    EXPECT_EQ(tarvin({"exceptions", "add", photos() + "/line\nend.jpg", photos() + "/\xff\xfe.jpg"})
                  .status,
              0);
    const Json json = parsedJson(tarvin({"scan", "--format", "json", photos()}).output);
    EXPECT_EQ(json["collected"]["Image"], 1);
}

TEST_F(ExceptionsCommandTest, AFileAddedTwiceIsListedOnce) {
    writePhotos();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(tarvin({"exceptions", "add", photos() + "/a.jpg"}).output,
                  "Successfully added 1 files to exceptions.\n");
    }
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, photos() + "/a.jpg\n");
}

TEST_F(ExceptionsCommandTest, RemovesFilesFromTheList) {
    writePhotos();
    tarvin({"exceptions", "add", photos() + "/a.jpg", photos() + "/c.jpg", photos() + "/d.txt"});
    std::filesystem::remove(photos() + "/c.jpg");
    ProgramSetting inside = setting();
    inside.folder = photos();
    const ProgramResult result =
        runTarvin({"exceptions", "remove", "./c.jpg", photos() + "/d.txt", "c.jpg"}, inside);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, "Removed 2 files from the exceptions list.\n");
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, photos() + "/a.jpg\n");
}

TEST_F(ExceptionsCommandTest, ReportsFilesThatAreNotListedAndRemovesTheOthers) {
    writePhotos();
    tarvin({"exceptions", "add", photos() + "/a.jpg"});
    const ProgramResult result =
        tarvin({"exceptions", "remove", photos() + "/d.txt", photos() + "/a.jpg"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "Removed 1 file from the exceptions list.\n");
    EXPECT_EQ(result.errors,
              "tarvin: cannot remove exception '" + photos() + "/d.txt': not on the list\n");
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, "");
    const ProgramResult again = tarvin({"exceptions", "remove", photos() + "/a.jpg"});
    EXPECT_EQ(again.status, 1);
    EXPECT_EQ(again.output, "");
}

TEST_F(ExceptionsCommandTest, ClearMissingKeepsWhatMayStillBeThere) {
    writePhotos();
    tarvin({"exceptions", "add", photos() + "/a.jpg", photos() + "/d.txt"});
    std::filesystem::remove(photos() + "/d.txt");
    const std::string list = std::string(ownFolder) + "exception.plist";
    std::string stored = contentOf(folder_.pathOf(list));
    stored.insert(stored.find("<string>"), "<string>/media/no one/drive/a.jpg</string>");
    folder_.writeFile(list, stored);
    const ProgramResult result = tarvin({"exceptions", "clear", "--missing"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output,
              "Removed 1 missing file from the exceptions list.\n"
              "Kept 1 file on drives that are not attached.\n");
    EXPECT_EQ(tarvin({"exceptions", "list"}).output,
              "/media/no one/drive/a.jpg\n" + photos() + "/a.jpg\n");
    tarvin({"exceptions", "remove", "/media/no one/drive/a.jpg"});
    EXPECT_EQ(tarvin({"exceptions", "clear", "--missing"}).output,
              "Removed 0 missing files from the exceptions list.\n");
}

TEST_F(ExceptionsCommandTest, ClearMissingKeepsWhatItMayNotLookAt) {
    writePhotos();
    tarvin({"exceptions", "add", photos() + "/a.jpg"});
    std::filesystem::remove(photos() + "/a.jpg");
    std::filesystem::permissions(photos(), std::filesystem::perms::none);
    ProgramSetting user = setting();
    user.obeysPermissions = true;
    const ProgramResult result = runTarvin({"exceptions", "clear", "--missing"}, user);
    std::filesystem::permissions(photos(), std::filesystem::perms::owner_all);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(tarvin({"exceptions", "list"}).output, photos() + "/a.jpg\n");
}

TEST_F(ExceptionsCommandTest, ListsThePresenceOfEachFile) {
    writePhotos();
    folder_.writeFile("photos/\xff.jpg", "x");
    tarvin({"exceptions", "add", photos() + "/a.jpg", photos() + "/d.txt", photos() + "/\xff.jpg"});
    std::filesystem::remove(photos() + "/d.txt");
    const ProgramResult result = tarvin({"exceptions", "list", "--format", "json"});
    EXPECT_EQ(result.status, 0);
    const Json files = parsedJson(result.output)["exceptions"];
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0], (Json{{"path", photos() + "/a.jpg"}, {"presence", "present"}}));
    EXPECT_EQ(files[1], (Json{{"path", photos() + "/d.txt"}, {"presence", "missing"}}));
    EXPECT_EQ(files[2]["path"], photos() + "/\ufffd.jpg");
    EXPECT_TRUE(files[2]["pathBytes"].get<std::string>().ends_with("2fff2e6a7067"));
    const std::string csv = tarvin({"exceptions", "list", "-f", "csv"}).output;
    EXPECT_TRUE(csv.starts_with("presence,path,path_bytes\r\npresent," + photos() +
                                "/a.jpg,\r\nmissing," + photos() + "/d.txt,\r\npresent,"));
    EXPECT_TRUE(csv.ends_with("2fff2e6a7067\r\n"));
}

TEST_F(ExceptionsCommandTest, AnEmptyListIsAnEmptyArray) {
    EXPECT_EQ(tarvin({"exceptions", "list", "--format", "json"}).output,
              "{\n  \"exceptions\": []\n}\n");
    EXPECT_EQ(tarvin({"exceptions", "list", "--format", "csv"}).output,
              "presence,path,path_bytes\r\n");
}

TEST_F(ExceptionsCommandTest, LeavesADamagedListWhenThereIsNothingToAdd) {
    const std::string path =
        folder_.writeFile(std::string(ownFolder) + "exception.plist", "damaged");
    for (const ProgramRun::Words& words : {ProgramRun::Words{"exceptions", "remove", "/a.jpg"},
                                           {"exceptions", "clear", "--missing"}}) {
        const ProgramResult result = tarvin(words);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors,
                  "tarvin: cannot read exceptions list '" + path + "': not a property list\n");
        EXPECT_EQ(contentOf(path), "damaged");
    }
}

/// Kills the program at random moments, 200 times.
class Kill : public Clean {
 protected:
    static constexpr int rounds = 200;

    /// Duration of a command, plus a quarter.
    std::chrono::microseconds durationOf(const ProgramRun::Words& arguments) const {
        const auto begin = std::chrono::steady_clock::now();
        tarvin(arguments);
        return std::chrono::duration_cast<std::chrono::microseconds>(
            (std::chrono::steady_clock::now() - begin) * 5 / 4);
    }

    static void killAtRandomMoment(const ProgramRun& run, std::chrono::microseconds longest,
                                   std::mt19937& random) {
        std::uniform_int_distribution<std::int64_t> anyTime(0, longest.count());
        const auto moment =
            std::chrono::steady_clock::now() + std::chrono::microseconds(anyTime(random));
        while (std::chrono::steady_clock::now() < moment) {
            std::this_thread::yield();
        }
        run.send(SIGKILL);
    }

    /// Adapts the range of moments, so that the kills stay spread over the run under any load.
    static void adapt(std::chrono::microseconds& longest, bool ended, bool hasDoneAnything) {
        if (ended) {
            longest -= longest / 20;
        } else if (!hasDoneAnything) {
            longest += longest / 20;
        }
    }

    /// Writes eight sets of three files. Returns the contents by path.
    [[nodiscard]] std::map<std::string, std::string> writeSets() const {
        std::map<std::string, std::string> files;
        for (int number = 0; number < 24; ++number) {
            const std::string content = "set " + std::to_string(number / 3);
            const std::string name = "photos/" + std::to_string(number) + ".jpg";
            files.emplace(folder_.writeFile(name, content), content);
        }
        return files;
    }

    /// The stored count of moved files. Fails if the file is damaged.
    [[nodiscard]] std::uint64_t storedCount() const {
        const auto list =
            PropertyList::parse(contentOf(folder_.pathOf(std::string(ownFolder) + "data.plist")));
        const auto count = list ? list->number("deletedCount") : std::nullopt;
        EXPECT_TRUE(count);
        return count.value_or(0);
    }

    /// Each file is at its path, or in the Trash with a .trashinfo file that has its path.
    void expectNothingLost(const std::map<std::string, std::string>& files) const {
        std::set<std::string> inTrash;
        for (const std::string& name : trashed()) {
            const std::string info = folder_.pathOf("data/Trash/info/" + name + ".trashinfo");
            EXPECT_TRUE(std::filesystem::exists(info)) << name;
            inTrash.insert(contentOf(folder_.pathOf("data/Trash/files/" + name)) + "@" +
                           contentOf(info).substr(0, contentOf(info).find("\nDeletionDate")));
        }
        for (const auto& [path, content] : files) {
            if (!std::filesystem::exists(path)) {
                EXPECT_TRUE(inTrash.contains(content + "@[Trash Info]\nPath=" + path)) << path;
            }
        }
    }
};

TEST_F(Kill, AtAnyMomentLosesNoFile) {
    const std::uint64_t seed = newTestSeed();
    SCOPED_TRACE(seedText(seed));
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    static_cast<void>(writeSets());
    auto longest = durationOf({"clean", "--yes", photos()});
    int killed = 0;
    int movedSome = 0;
    for (int round = 0; round < rounds; ++round) {
        std::filesystem::remove_all(photos());
        std::filesystem::remove_all(folder_.pathOf("data/Trash"));
        const std::map<std::string, std::string> files = writeSets();
        const std::uint64_t before = storedCount();
        ProgramRun run({"clean", "--yes", photos()}, setting());
        killAtRandomMoment(run, longest, random);
        const bool wasKilled = run.wait().status == 128 + SIGKILL;
        killed += wasKilled ? 1 : 0;
        movedSome += trashed().empty() ? 0 : 1;
        adapt(longest, !wasKilled, !trashed().empty());
        // The next start counts the moved files once.
        EXPECT_EQ(tarvin({"totals"}).status, 0);
        EXPECT_EQ(storedCount(), before + trashed().size());
        expectNothingLost(files);
        for (int set = 0; set < 8; ++set) {
            EXPECT_GE(left({std::to_string(set * 3) + ".jpg", std::to_string(set * 3 + 1) + ".jpg",
                            std::to_string(set * 3 + 2) + ".jpg"}),
                      1);
        }
    }
    std::cout << rounds << " rounds, " << killed << " killed before their end, " << movedSome
              << " had moved files\n";
    EXPECT_GT(killed, 0);
    EXPECT_GT(movedSome, 0);
}

TEST_F(Kill, WhileExceptionsAreAddedLeavesAWholeList) {
    const std::uint64_t seed = newTestSeed();
    SCOPED_TRACE(seedText(seed));
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    writePhotos();
    auto longest = durationOf({"exceptions", "add", folder_.pathOf("photos/a.jpg")});
    const std::string list = folder_.pathOf(std::string(ownFolder) + "exception.plist");
    std::size_t most = readExceptionFile(list).paths.size();
    ASSERT_EQ(most, 1U);
    for (int round = 0; round < rounds; ++round) {
        const std::string path = folder_.writeFile("photos/" + std::to_string(round) + ".jpg", "x");
        ProgramRun run({"exceptions", "add", path}, setting());
        killAtRandomMoment(run, longest, random);
        const bool wasKilled = run.wait().status == 128 + SIGKILL;
        const ExceptionList stored = readExceptionFile(list);
        ASSERT_FALSE(stored.error) << stored.error->text;
        const std::size_t now = stored.paths.size();
        EXPECT_TRUE(now == most || (now == most + 1 && stored.paths.back() == path)) << now;
        adapt(longest, !wasKilled, now > most);
        most = std::max(most, now);
    }
    std::cout << rounds << " rounds left " << most << " paths\n";
    EXPECT_GT(most, 1U);
}

}  // namespace
}  // namespace tarvin
