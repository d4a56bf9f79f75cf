#include "cli/restore_fixture.h"
#include "support/pseudo_terminal.h"
#include "support/waiting.h"

#include <gmock/gmock.h>

#include <csignal>

namespace tarvin {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* ctrlC = "\x03";

/// With a user at a terminal.
class RestoreAsking : public RestoreFixture {
 protected:
    RestoreAsking() {
        writeEqual({"a.jpg", "b.jpg", "c.jpg"});
        moved_ = clean();
    }

    ProgramResult answer(const std::string& text) {
        PseudoTerminal terminal;
        ProgramRun run({"restore"}, at(terminal));
        terminal.type(text);
        ProgramResult result = run.wait();
        terminal.closeProgramsEnd();
        asked_ = terminal.readAll();
        return result;
    }

    [[nodiscard]] ProgramSetting at(const PseudoTerminal& terminal) const {
        ProgramSetting asking = setting();
        asking.input = terminal.programsEnd();
        asking.errors = terminal.programsEnd();
        asking.ownsTerminal = true;
        return asking;
    }

    std::vector<std::string> moved_;
    std::string asked_;
};

TEST_F(RestoreAsking, YesPutsBack) {
    EXPECT_EQ(answer("y\n").status, 0);
    EXPECT_THAT(asked_, testing::ContainsRegex("Put 2 files \\(0.02 KB\\) of the clean-up of "
                                               "....-..-.. ..:..:.. back\\? \\[y/N\\] "));
    EXPECT_EQ(trashed(), 0U);
}

TEST_F(RestoreAsking, AnyOtherAnswerMovesNothing) {
    for (const char* text : {"n\n", "\n", "yesterday\n", "\x04"}) {
        const ProgramResult result = answer(text);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(trashed(), 2U) << text;
    }
}

TEST_F(RestoreAsking, TheQuestionCountsFilesThatCanBePutBack) {
    fs::remove(trash() + "/files/" + fs::path(moved_[0]).filename().string());
    EXPECT_EQ(answer("n\n").status, 0);
    EXPECT_THAT(asked_, HasSubstr("Put 1 of 2 files (0.01 KB) of the clean-up of "));
}

TEST_F(RestoreAsking, DoesNotAskIfNoFileCanBePutBack) {
    for (const std::string& path : moved_) {
        fs::resize_file(trash() + "/files/" + fs::path(path).filename().string(), 1);
    }
    PseudoTerminal terminal;
    ProgramRun run({"restore", "1"}, at(terminal));
    EXPECT_EQ(run.wait().status, 1);
    terminal.closeProgramsEnd();
    const std::string told = terminal.readAll();
    EXPECT_THAT(told, HasSubstr("': file was changed in the Trash"));
    EXPECT_EQ(told.find("[y/N]"), std::string::npos);
}

TEST_F(RestoreAsking, CtrlCAtTheQuestionEndsIt) {
    const PseudoTerminal terminal;
    ProgramRun run({"restore"}, at(terminal));
    terminal.readUntil("[y/N] ");
    terminal.type(ctrlC);
    EXPECT_EQ(run.wait().status, 130);
    EXPECT_EQ(trashed(), 2U);
    expectTotals(2);
}

/// A clean-up of many files.
class RestoreMany : public RestoreFixture {
 protected:
    static constexpr std::size_t files = 3000;

    RestoreMany() {
        for (std::size_t number = 0; number <= files; ++number) {
            folder_.writeFile(
                "photos/" + std::to_string(number % 7) + "/" + std::to_string(number) + ".jpg",
                "same");
        }
        before_ = treeOf(photos());
    }

    [[nodiscard]] std::size_t there() const {
        std::size_t count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(photos())) {
            count += std::size_t{entry.is_regular_file()};
        }
        return count;
    }

    Tree before_;
};

TEST_F(RestoreMany, CtrlCFinishesTheCurrentFileAndReportsTheRestAsStopped) {
    ASSERT_EQ(clean().size(), files);
    const PseudoTerminal terminal;
    ProgramSetting typing = setting();
    typing.input = terminal.programsEnd();
    typing.ownsTerminal = true;
    ProgramRun run({"restore", "--yes", "--format", "json"}, typing);
    EXPECT_TRUE(waitUntil([this] { return there() > 1; }));
    terminal.type(ctrlC);
    run.send(SIGTERM);  // different from the first, so the two cannot be merged
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 130);
    EXPECT_EQ(result.errors, "");
    const Json json = parsedJson(result.output);
    EXPECT_EQ(json["stopped"], true);
    std::map<std::string, std::size_t> outcomes;
    for (const Json& file : json["files"]) {
        ++outcomes[file["outcome"].get<std::string>()];
    }
    EXPECT_GT(outcomes["toItsPlace"], 0U);
    EXPECT_GT(outcomes["stopped"], 0U);
    EXPECT_EQ(outcomes["toItsPlace"] + outcomes["stopped"], files);
    EXPECT_EQ(json["putBackFilesCount"], outcomes["toItsPlace"]);
    EXPECT_EQ(there(), 1 + outcomes["toItsPlace"]);
    expectTotals(outcomes["stopped"]);
    // Repeating it restores the rest.
    EXPECT_EQ(restoreAsJson()["putBackFilesCount"], outcomes["stopped"]);
    EXPECT_EQ(treeOf(photos()), before_);
    expectTotals(0);
}

TEST_F(RestoreMany, TwoProcessesPutEachFileBackOnce) {
    ASSERT_EQ(clean().size(), files);
    ProgramRun first({"restore", "--yes", "--format", "json"}, setting());
    ProgramRun second({"restore", "--yes", "--format", "json"}, setting());
    const ProgramResult results[] = {first.wait(), second.wait()};
    std::size_t back = 0;
    for (const ProgramResult& result : results) {
        const Json json = parsedJson(result.output);
        back += json["putBackFilesCount"].get<std::size_t>();
        if (result.status == 0) {
            EXPECT_EQ(result.errors, "");
        } else {
            EXPECT_EQ(result.status, 1);
            EXPECT_THAT(result.errors, testing::EndsWith(": in use by another process\n"));
        }
    }
    EXPECT_EQ(back, files);
    EXPECT_EQ(treeOf(photos()), before_);
    EXPECT_EQ(trashed() + trashInfos(), 0U);
    expectTotals(0);
}

TEST_F(RestoreMany, AfterAKilledCleanUpTotalsAndRestoreAreCorrect) {
    ProgramRun run({"clean", "--yes", photos()}, setting());
    EXPECT_TRUE(waitUntil([this] { return trashed() > 0; }));
    run.send(SIGKILL);
    ASSERT_EQ(run.wait().status, 128 + SIGKILL);
    const std::size_t moved = trashed();
    expectTotals(moved);
    EXPECT_THAT(tarvin({"restore", "--list"}).output,
                HasSubstr("  " + std::to_string(moved) + (moved == 1 ? " file (" : " files (")));
    const Json json = restoreAsJson();
    EXPECT_EQ(json["putBackFilesCount"], moved);
    EXPECT_EQ(json["notPutBackFilesCount"], 0);
    EXPECT_EQ(treeOf(photos()), before_);
    EXPECT_EQ(trashed(), 0U);
    expectTotals(0);
}

TEST_F(RestoreMany, TheNextOneCompletesAKilledOne) {
    ASSERT_EQ(clean().size(), files);
    ProgramRun run({"restore", "--yes"}, setting());
    EXPECT_TRUE(waitUntil([this] { return there() > 1; }));
    run.send(SIGKILL);
    ASSERT_EQ(run.wait().status, 128 + SIGKILL);
    const std::size_t left = trashed();
    const Json json = restoreAsJson();
    EXPECT_EQ(json["putBackFilesCount"], left);
    EXPECT_EQ(json["notPutBackFilesCount"], 0);
    EXPECT_EQ(treeOf(photos()), before_);
    expectTotals(0);
}

}  // namespace
}  // namespace tarvin
