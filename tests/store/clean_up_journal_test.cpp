#include "store/clean_up_journal.h"

#include "store/clean_up_totals.h"
#include "store/data_file.h"
#include "store/journal_fixture.h"
#include "store/sync_watch.h"
#include "support/file_content.h"
#include "support/loop_volume.h"
#include "support/mount.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <numeric>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Kind = StoreError::Kind;

class CleanUpJournalTest : public JournalFixture {
 protected:
    /// Runs SQL on the file with SQLite. Returns the first column of the last row as a number.
    std::int64_t sql(const std::string& statements) const {
        sqlite3* database = nullptr;
        std::filesystem::create_directories(own_);
        EXPECT_EQ(sqlite3_open(file_.c_str(), &database), SQLITE_OK);
        std::int64_t number = -1;
        const auto keep = [](void* into, int, char** values, char**) {
            *static_cast<std::int64_t*>(into) = values[0] == nullptr ? -1 : std::atoll(values[0]);
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(database, statements.c_str(), keep, &number, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
        return number;
    }

    void overwrite(std::uint64_t offset, std::size_t count) const {
        std::fstream file(file_, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(offset));
        file << std::string(count, '\xA5');
    }

    /// Writes a journal with 2,000 moves, which has pages of every kind.
    void writeLargeJournal() const {
        CleanUpJournal journal = opened();
        std::vector<std::string> paths;
        for (int number = 0; number < 2000; ++number) {
            paths.push_back("/home/user/folder " + std::to_string(number / 10) + "/file " +
                            std::to_string(number));
        }
        const CleanUpId id = valueOf(journal.begin(Timestamp()));
        valueOf(journal.plan(id, movesOf(paths)));
    }

    /// Expects that opening fails and changes nothing, and that the file can be moved aside.
    void expectRefused(const std::string& text, Kind kind) const {
        const auto content = [this] {
            const bool isFile = std::filesystem::is_regular_file(file_);
            return isFile ? contentOf(file_) : std::string();
        };
        const std::string old = content();
        std::set<std::string> names = namesIn(own_);
        const StoreError error = errorOf(CleanUpJournal::open(own_));
        EXPECT_EQ(error.text, text);
        EXPECT_EQ(error.path, file_);
        EXPECT_EQ(error.kind, kind);
        EXPECT_TRUE(content() == old);
        names.insert("clean-ups.lock");
        EXPECT_EQ(namesIn(own_), names);
    }

    static std::set<std::string> namesIn(const std::string& folder) {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.insert(entry.path().filename().native());
        }
        return names;
    }
};

TEST_F(CleanUpJournalTest, IsPrivateToTheUser) {
    const mode_t old = ::umask(0);
    CleanUpJournal journal = opened();
    oneMove(journal);
    ::umask(old);
    EXPECT_EQ(journal.path(), file_);
    EXPECT_EQ(namesIn(own_), (std::set<std::string>{"clean-ups.lock", "clean-ups.sqlite",
                                                    "clean-ups.sqlite-journal"}));
    for (const std::string& name : namesIn(own_)) {
        EXPECT_EQ(std::filesystem::status(own_ + '/' + name).permissions(),
                  std::filesystem::perms(0600))
            << name;
    }
    EXPECT_EQ(std::filesystem::status(own_).permissions(), std::filesystem::perms(0700));
}

TEST_F(CleanUpJournalTest, CanBeReadByALaterProcess) {
    const Timestamp begun(std::chrono::nanoseconds(1'763'800'000'123'456'789));
    CleanUpId id = 0;
    MoveRow first = 0;
    {
        CleanUpJournal journal = opened();
        id = valueOf(journal.begin(begun));
        first = valueOf(journal.plan(id, movesOf({"/a/one", "/b/two", "/a/three", "/a/four"})));
        EXPECT_FALSE(journal.record(std::vector<RecordedOutcome>{
            movedTo(first, "one"),
            movedTo(first + 1, "two.2"),
            {first + 2, MoveState::left, "", "", "refused: Read-only file system"}}));
    }
    CleanUpJournal journal = opened();
    const auto summaries = valueOf(journal.cleanUps());
    ASSERT_EQ(summaries.size(), 1U);
    EXPECT_EQ(summaries[0].id, id);
    EXPECT_EQ(summaries[0].begun, begun);
    EXPECT_FALSE(summaries[0].finished);
    EXPECT_EQ(summaries[0].plannedFiles, 4U);
    EXPECT_EQ(summaries[0].unsettledFiles, 1U);
    EXPECT_EQ(summaries[0].movedFiles, 2U);
    EXPECT_EQ(summaries[0].movedBytes, 30U);
    EXPECT_EQ(summaries[0].leftFiles, 1U);
    const std::vector<JournalMove> moves = allMoves(journal, id);
    ASSERT_EQ(moves.size(), 4U);
    EXPECT_EQ(moves[0].row, first);
    EXPECT_EQ(moves[0].path, "/a/one");
    EXPECT_EQ(moves[0].inode, 1000U);
    EXPECT_EQ(moves[0].size, 10U);
    EXPECT_EQ(moves[0].modified, Timestamp(std::chrono::nanoseconds(1'700'000'000'000'000'001)));
    EXPECT_EQ(moves[0].state, MoveState::moved);
    EXPECT_EQ(moves[0].trashFolder, "/home/user/.local/share/Trash");
    EXPECT_EQ(moves[0].trashName, "one");
    EXPECT_EQ(moves[0].reason, "");
    EXPECT_EQ(moves[1].row, first + 1);
    EXPECT_EQ(moves[1].trashName, "two.2");
    EXPECT_EQ(moves[2].state, MoveState::left);
    EXPECT_EQ(moves[2].trashFolder, "");
    EXPECT_EQ(moves[2].trashName, "");
    EXPECT_EQ(moves[2].reason, "refused: Read-only file system");
    EXPECT_EQ(moves[3].path, "/a/four");
    EXPECT_EQ(moves[3].state, MoveState::planned);
}

TEST_F(CleanUpJournalTest, StoresNamesOfAllKinds) {
    std::string deep;
    while (deep.size() < 5000) {
        deep += '/' + std::string(249, 'd');
    }
    const std::vector<std::string> paths{"/in the root",
                                         "/a/line\nend \t and \r",
                                         "/a/\xFF\xFE not UTF-8 \xC3",
                                         "/a/" + std::string(255, 'n'),
                                         "/a/" + std::string(255, '\xE9'),
                                         "/b\nc/\x01\x1B[31m",
                                         "/a/'); DROP TABLE move; --",
                                         deep + "/file"};
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf(paths)));
    std::vector<RecordedOutcome> outcomes;
    for (std::size_t index = 0; index < paths.size(); ++index) {
        outcomes.push_back({first + static_cast<MoveRow>(index), MoveState::moved,
                            "/vol\n\xFF/.Trash-1000", "\xFE\n" + std::to_string(index), ""});
    }
    EXPECT_FALSE(journal.record(outcomes));
    const std::vector<JournalMove> moves = allMoves(journal, id);
    ASSERT_EQ(moves.size(), paths.size());
    for (std::size_t index = 0; index < paths.size(); ++index) {
        EXPECT_EQ(moves[index].path, paths[index]);
        EXPECT_EQ(moves[index].trashFolder, "/vol\n\xFF/.Trash-1000");
        EXPECT_EQ(moves[index].trashName, "\xFE\n" + std::to_string(index));
    }
}

TEST_F(CleanUpJournalTest, StoresLargeNumbersAndMissingDates) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp::min()));
    const std::vector<PlannedMove> moves{
        {"/a", 18'446'744'073'709'551'615U, 9'223'372'036'854'775'807U, std::nullopt},
        {"/b", 0, 0, Timestamp::min()},
        {"/c", 1, 9'223'372'036'854'775'807U, Timestamp::max()}};
    const MoveRow first = valueOf(journal.plan(id, moves));
    EXPECT_FALSE(journal.record(std::vector{movedTo(first, "a"), movedTo(first + 2, "c")}));
    const std::vector<JournalMove> read = allMoves(journal, id);
    ASSERT_EQ(read.size(), 3U);
    EXPECT_EQ(read[0].inode, 18'446'744'073'709'551'615U);
    EXPECT_EQ(read[0].size, 9'223'372'036'854'775'807U);
    EXPECT_EQ(read[0].modified, std::nullopt);
    EXPECT_EQ(read[1].modified, Timestamp::min());
    EXPECT_EQ(read[2].modified, Timestamp::max());
    // The sum is capped instead of failing.
    EXPECT_EQ(valueOf(journal.cleanUps())[0].movedBytes, 9'223'372'036'854'775'807U);
}

TEST_F(CleanUpJournalTest, RefusesToPlanARelativePath) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    EXPECT_EQ(errorOf(journal.plan(id, movesOf({"/a", "b/c"}))).text, "Invalid argument");
    EXPECT_TRUE(allMoves(journal, id).empty());
    valueOf(journal.plan(id, movesOf({"/a"})));
    EXPECT_EQ(allMoves(journal, id).size(), 1U);
}

TEST_F(CleanUpJournalTest, StoresEachFolderOnce) {
    {
        CleanUpJournal journal = opened();
        const CleanUpId id = valueOf(journal.begin(Timestamp()));
        for (int batch = 0; batch < 3; ++batch) {
            std::vector<std::string> paths;
            for (int number = 0; number < 6000; ++number) {
                paths.push_back("/home/" + std::to_string(number % 5000) + "/file");
            }
            valueOf(journal.plan(id, movesOf(paths)));
        }
    }
    EXPECT_EQ(sql("SELECT count(*) FROM folder"), 5000);
    EXPECT_EQ(sql("SELECT count(*) FROM move"), 18000);
}

TEST_F(CleanUpJournalTest, KeepsTheFirstOfTwoOutcomes) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b"})));
    const std::vector<RecordedOutcome> outcomes{movedTo(first, "a"),
                                                {first + 1, MoveState::left, "", "", "gone"}};
    EXPECT_FALSE(journal.record(outcomes));
    EXPECT_FALSE(journal.record(outcomes));
    valueOf(journal.cleanUps());
    EXPECT_FALSE(journal.record(std::vector<RecordedOutcome>{
        {first, MoveState::left, "", "", "changed"}, movedTo(first + 1, "b")}));
    const CleanUpSummary summary = valueOf(journal.cleanUps())[0];
    EXPECT_EQ(summary.movedFiles, 1U);
    EXPECT_EQ(summary.movedBytes, 10U);
    EXPECT_EQ(summary.leftFiles, 1U);
    EXPECT_EQ(summary.unsettledFiles, 0U);
    EXPECT_EQ(allMoves(journal, id)[1].reason, "gone");
}

TEST_F(CleanUpJournalTest, ACleanUpBeingPutBackCountsAsCrashed) {
    CleanUpJournal journal = opened();
    oneMove(journal);
    EXPECT_FALSE(journal.claim(1));
    EXPECT_FALSE(journal.beginReturn(1));
    EXPECT_TRUE(valueOf(journal.cleanUps())[0].finished);
    CleanUpJournal other = opened();
    EXPECT_TRUE(valueOf(other.crashed()).empty());
    journal.release(1);
    EXPECT_EQ(valueOf(other.crashed()).size(), 1U);
    EXPECT_FALSE(other.endReturn(1));
    other.release(1);
    EXPECT_TRUE(valueOf(journal.crashed()).empty());
    EXPECT_TRUE(valueOf(journal.cleanUps())[0].finished);
}

TEST_F(CleanUpJournalTest, AnUnfinishedCleanUpStaysUnfinishedWhenPutBack) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    EXPECT_FALSE(journal.beginReturn(id));
    EXPECT_FALSE(valueOf(journal.cleanUps())[0].finished);
    EXPECT_FALSE(journal.endReturn(id));
    EXPECT_FALSE(valueOf(journal.cleanUps())[0].finished);
}

TEST_F(CleanUpJournalTest, StoresTheStayingFile) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    std::vector<PlannedMove> moves = movesOf({"/a/one", "/a/two", "/top"});
    moves[0].staying = {"/b/stays", 77, Timestamp(std::chrono::nanoseconds(5))};
    moves[2].staying = {"/top", 78, std::nullopt};
    valueOf(journal.plan(id, moves));
    const std::vector<JournalMove> read = allMoves(journal, id);
    EXPECT_EQ(read[0].staying, moves[0].staying);
    EXPECT_FALSE(read[1].staying);
    EXPECT_EQ(read[2].staying, moves[2].staying);
    moves[0].staying->path = "relative";
    EXPECT_EQ(errorOf(journal.plan(id, moves)).kind, Kind::passing);
}

TEST_F(CleanUpJournalTest, CountsMovesOfConsecutiveRows) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    std::vector<PlannedMove> moves = movesOf({"/a/0", "/a/1", "/a/2", "/a/3", "/a/4", "/a/5"});
    moves[4].size = 5'000'000'000;
    const MoveRow first = valueOf(journal.plan(id, moves));
    const RecordedOutcome other{first + 2, MoveState::moved, "/other/Trash", "", ""};
    EXPECT_FALSE(
        journal.record(std::vector<RecordedOutcome>{movedTo(first, ""),
                                                    movedTo(first + 1, ""),
                                                    other,
                                                    movedTo(first + 3, ""),
                                                    movedTo(first + 4, ""),
                                                    {first + 5, MoveState::left, "", "", "gone"}}));
    const CleanUpSummary summary = valueOf(journal.cleanUps())[0];
    EXPECT_EQ(summary.movedFiles, 5U);
    EXPECT_EQ(summary.movedBytes, 10U + 20U + 30U + 40U + 5'000'000'000U);
    EXPECT_EQ(summary.leftFiles, 1U);
    const std::vector<JournalMove> read = allMoves(journal, id);
    for (std::size_t at = 0; at < 5; ++at) {
        EXPECT_EQ(read[at].state, MoveState::moved) << at;
        EXPECT_EQ(read[at].trashName, std::to_string(at));
        EXPECT_EQ(read[at].trashFolder, at == 2 ? "/other/Trash" : "/home/user/.local/share/Trash");
    }
    EXPECT_EQ(read[5].state, MoveState::left);
}

TEST_F(CleanUpJournalTest, CountsNoMoveOfARunTwice) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b", "/c"})));
    EXPECT_FALSE(journal.record(
        std::vector<RecordedOutcome>{{first + 1, MoveState::left, "", "", "changed"}}));
    for (int time = 0; time < 2; ++time) {
        EXPECT_FALSE(journal.record(std::vector<RecordedOutcome>{
            movedTo(first, ""), movedTo(first + 1, ""), movedTo(first + 2, "")}));
        const CleanUpSummary summary = valueOf(journal.cleanUps())[0];
        EXPECT_EQ(summary.movedFiles, 2U);
        EXPECT_EQ(summary.movedBytes, 40U);
        EXPECT_EQ(summary.leftFiles, 1U);
    }
    EXPECT_EQ(allMoves(journal, id)[1].reason, "changed");
}

TEST_F(CleanUpJournalTest, ARunWithAnUnplannedRowIsAnError) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b"})));
    EXPECT_FALSE(journal.record(std::vector<RecordedOutcome>{
        movedTo(first, ""), movedTo(first + 1, ""), movedTo(first + 2, "")}));
    EXPECT_EQ(errorOf(journal.cleanUps()).kind, Kind::unusable);
}

TEST_F(CleanUpJournalTest, RecordsNothingBetweenTwoRecordedMoves) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b", "/c"})));
    EXPECT_FALSE(
        journal.record(std::vector<RecordedOutcome>{movedTo(first, ""), movedTo(first + 2, "")}));
    const std::vector<JournalMove> read = allMoves(journal, id);
    EXPECT_EQ(read[0].state, MoveState::moved);
    EXPECT_EQ(read[1].state, MoveState::planned);
    EXPECT_EQ(read[2].state, MoveState::moved);
}

TEST_F(CleanUpJournalTest, CapsTheSizeOfARun) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    std::vector<PlannedMove> moves = movesOf({"/a", "/b", "/c"});
    for (PlannedMove& move : moves) {
        move.size = std::numeric_limits<std::int64_t>::max();
    }
    const MoveRow first = valueOf(journal.plan(id, moves));
    EXPECT_FALSE(journal.record(std::vector<RecordedOutcome>{
        movedTo(first, ""), movedTo(first + 1, ""), movedTo(first + 2, "")}));
    EXPECT_EQ(valueOf(journal.cleanUps())[0].movedBytes,
              static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()));
}

TEST_F(CleanUpJournalTest, AnOutcomeOfAnUnplannedRowIsAnError) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow row = valueOf(journal.plan(id, movesOf({"/a"})));
    EXPECT_FALSE(journal.record(std::vector{movedTo(row + 1, "a")}));
    EXPECT_EQ(errorOf(journal.cleanUps()).kind, Kind::unusable);
}

TEST_F(CleanUpJournalTest, APlanIsSyncedOnReturn) {
    SyncWatch watch;
    CleanUpJournal journal = opened();
    EXPECT_EQ(watch.unsyncedFiles(), 0);
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    EXPECT_EQ(watch.unsyncedFiles(), 0);
    const int syncsBefore = watch.syncs();
    const MoveRow row = valueOf(journal.plan(id, movesOf({"/a", "/b"})));
    EXPECT_EQ(watch.unsyncedFiles(), 0);
    EXPECT_GT(watch.syncs(), syncsBefore);
    // Outcomes are not written until the next plan.
    const int syncsOfPlan = watch.syncs();
    EXPECT_FALSE(journal.record(std::vector{movedTo(row, "a")}));
    EXPECT_EQ(watch.syncs(), syncsOfPlan);
    EXPECT_FALSE(journal.markPutBack(std::vector<MoveRow>{row}));
    EXPECT_EQ(watch.unsyncedFiles(), 0);
    EXPECT_FALSE(journal.finish(id));
    EXPECT_EQ(watch.unsyncedFiles(), 0);
}

TEST_F(CleanUpJournalTest, OutcomesAreWrittenWithTheNextPlanOrWhenMany) {
    CleanUpJournal journal = opened();
    CleanUpJournal reader = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    std::vector<std::string> paths;
    for (int number = 0; number < 5000; ++number) {
        paths.push_back("/a/" + std::to_string(number));
    }
    const MoveRow first = valueOf(journal.plan(id, movesOf(paths)));
    const auto movedFiles = [&] { return valueOf(reader.cleanUps())[0].movedFiles; };
    EXPECT_FALSE(journal.record(std::vector{movedTo(first, "0")}));
    EXPECT_EQ(movedFiles(), 0U);
    valueOf(journal.plan(id, movesOf({"/b"})));
    EXPECT_EQ(movedFiles(), 1U);
    std::vector<RecordedOutcome> many;
    for (MoveRow row = first + 1; row < first + 4097; ++row) {
        many.push_back(movedTo(row, "moved"));
    }
    EXPECT_FALSE(journal.record(many));
    EXPECT_EQ(movedFiles(), 4097U);
}

TEST_F(CleanUpJournalTest, APlanSurvivesAKilledProcess) {
    EXPECT_EQ(inChildProcess([this] {
                  CleanUpJournal journal = opened();
                  const CleanUpId id = valueOf(journal.begin(Timestamp()));
                  const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b"})));
                  static_cast<void>(journal.record(std::vector{movedTo(first, "a")}));
                  valueOf(journal.plan(id, movesOf({"/c"})));
                  static_cast<void>(journal.record(std::vector{movedTo(first + 1, "b")}));
                  return ::kill(::getpid(), SIGKILL) == 0;
              }),
              128 + SIGKILL);
    CleanUpJournal journal = opened();
    const auto crashed = valueOf(journal.crashed());
    ASSERT_EQ(crashed.size(), 1U);
    EXPECT_EQ(crashed[0].plannedFiles, 3U);
    EXPECT_EQ(crashed[0].unsettledFiles, 2U);
    const auto planned = valueOf(journal.moves(crashed[0].id, {MoveState::planned}, 10));
    ASSERT_EQ(planned.size(), 2U);
    EXPECT_EQ(planned[0].path, "/b");
    EXPECT_EQ(planned[1].path, "/c");
}

TEST_F(CleanUpJournalTest, ARunningCleanUpIsNotCrashed) {
    CleanUpJournal running = opened();
    const CleanUpId id = valueOf(running.begin(Timestamp()));
    CleanUpJournal other = opened();
    EXPECT_TRUE(valueOf(other.crashed()).empty());
    EXPECT_TRUE(valueOf(running.crashed()).empty());
    EXPECT_EQ(inChildProcess([this] { return valueOf(opened().crashed()).empty(); }), 0);
    EXPECT_EQ(valueOf(other.cleanUps()).size(), 1U);
    EXPECT_FALSE(running.finish(id));
    EXPECT_TRUE(valueOf(other.crashed()).empty());
    EXPECT_TRUE(valueOf(other.cleanUps())[0].finished);
}

TEST_F(CleanUpJournalTest, ACrashedCleanUpIsReturnedToOneProcessOnly) {
    CleanUpId id = 0;
    {
        CleanUpJournal dead = opened();
        id = valueOf(dead.begin(Timestamp()));
        valueOf(dead.begin(Timestamp()));
    }
    CleanUpJournal one = opened();
    CleanUpJournal other = opened();
    const auto crashed = valueOf(one.crashed());
    ASSERT_EQ(crashed.size(), 2U);
    EXPECT_EQ(crashed[0].id, id);
    EXPECT_TRUE(valueOf(other.crashed()).empty());
    EXPECT_TRUE(valueOf(one.crashed()).empty());  // it has them already
    valueOf(one.plan(id, movesOf({"/a"})));
    EXPECT_FALSE(one.finish(id));
    one.release(crashed[1].id);
    const auto left = valueOf(other.crashed());
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].id, crashed[1].id);
}

TEST_F(CleanUpJournalTest, OnlyTheHolderOfACleanUpPlans) {
    CleanUpJournal one = opened();
    CleanUpJournal other = opened();
    const CleanUpId id = valueOf(one.begin(Timestamp()));
    EXPECT_EQ(errorOf(other.plan(id, movesOf({"/a"}))).text, "No locks available");
    EXPECT_TRUE(allMoves(one, id).empty());
}

TEST_F(CleanUpJournalTest, AFinishedCleanUpIsClaimedByOneProcess) {
    CleanUpJournal one = opened();
    CleanUpJournal other = opened();
    const CleanUpId id = oneMove(one) >> 32;
    EXPECT_FALSE(one.claim(id));
    EXPECT_FALSE(one.claim(id));
    ASSERT_TRUE(other.claim(id));
    EXPECT_EQ(other.claim(id)->text, "in use by another process");
    one.release(id);
    EXPECT_FALSE(other.claim(id));
}

TEST_F(CleanUpJournalTest, KeepsThirtyCleanUps) {
    CleanUpJournal journal = opened();
    DataFile data(own_);
    std::vector<MoveRow> rows;
    for (int number = 0; number < 40; ++number) {
        rows.push_back(oneMove(journal));
        if (number % 10 == 9) {
            EXPECT_FALSE(settleTotals(data, journal));
        }
    }
    const auto kept = valueOf(journal.cleanUps());
    ASSERT_EQ(kept.size(), 30U);
    EXPECT_EQ(kept.front().id, rows[39] >> 32);
    EXPECT_EQ(kept.back().id, rows[10] >> 32);
    EXPECT_EQ(data.alreadyDeletedCount(), 40);
    EXPECT_TRUE(allMoves(journal, rows[9] >> 32).empty());
    EXPECT_EQ(allMoves(journal, rows[10] >> 32).size(), 1U);
    EXPECT_EQ(sql("SELECT count(*) FROM move"), 30);
    EXPECT_EQ(sql("SELECT count(*) FROM folder"), 60);
}

TEST_F(CleanUpJournalTest, NeverDeletesAnUncountedUnfinishedOrClaimedCleanUp) {
    CleanUpJournal journal = opened();
    CleanUpJournal other = opened();
    DataFile data(own_);
    const CleanUpId claimed = oneMove(journal) >> 32;
    EXPECT_FALSE(other.claim(claimed));
    CleanUpId unfinished = 0;
    {
        CleanUpJournal dead = opened();
        unfinished = valueOf(dead.begin(Timestamp()));
    }
    for (int number = 0; number < 32; ++number) {
        oneMove(journal);
    }
    EXPECT_FALSE(settleTotals(data, journal));
    const CleanUpId firstUncounted = oneMove(journal) >> 32;
    for (int number = 0; number < 34; ++number) {
        oneMove(journal);
    }
    const auto kept = valueOf(journal.cleanUps());
    EXPECT_EQ(kept.size(), 37U);
    const auto has = [&](CleanUpId id) {
        return std::any_of(kept.begin(), kept.end(),
                           [id](const CleanUpSummary& summary) { return summary.id == id; });
    };
    EXPECT_TRUE(has(claimed));
    EXPECT_TRUE(has(unfinished));
    EXPECT_TRUE(has(firstUncounted));
    EXPECT_FALSE(settleTotals(data, journal));
    other.release(claimed);
    valueOf(journal.begin(Timestamp()));
    EXPECT_EQ(valueOf(journal.cleanUps()).size(), 32U);  // including the two unfinished ones
}

TEST_F(CleanUpJournalTest, SkipsLockedNumbersOfAJournalMovedAside) {
    CleanUpJournal old = opened();
    EXPECT_EQ(valueOf(old.begin(Timestamp())), 1);
    EXPECT_EQ(valueOf(old.begin(Timestamp())), 2);
    // As after a user has moved the file away by hand.
    std::filesystem::rename(file_, file_ + ".moved");
    CleanUpJournal journal = opened();
    EXPECT_EQ(valueOf(journal.begin(Timestamp())), 3);
    EXPECT_EQ(valueOf(journal.begin(Timestamp())), 4);
}

TEST_F(CleanUpJournalTest, NeverUsesANumberTwice) {
    CleanUpJournal journal = opened();
    oneMove(journal);
    const CleanUpId last = oneMove(journal) >> 32;
    sql("DELETE FROM clean_up; DELETE FROM move");
    EXPECT_EQ(valueOf(journal.begin(Timestamp())), last + 1);
}

// A row has 63 bits; a clean-up has 32 of them for its moves.
TEST_F(CleanUpJournalTest, CountsCleanUpsUpToTheSpaceOfTheirRows) {
    CleanUpJournal journal = opened();
    oneMove(journal);
    sql("UPDATE sqlite_sequence SET seq = 2147483646 WHERE name = 'clean_up'");
    EXPECT_EQ(valueOf(journal.begin(Timestamp())), 2'147'483'647);
    EXPECT_TRUE(std::holds_alternative<StoreError>(journal.begin(Timestamp())));
}

TEST_F(CleanUpJournalTest, VisitsMovesInBothOrders) {
    CleanUpJournal journal = opened();
    oneMove(journal);
    std::vector<std::string> paths;
    for (int number = 0; number < 3000; ++number) {
        paths.push_back("/a/" + std::to_string(number));
    }
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf(paths)));
    oneMove(journal);
    std::vector<MoveRow> expected(3000);
    std::iota(expected.begin(), expected.end(), first);
    for (const auto order : {CleanUpJournal::Order::asPlanned, CleanUpJournal::Order::lastFirst}) {
        std::vector<MoveRow> rows;
        EXPECT_FALSE(
            journal.forEachMove(id, MoveStates::all(), order, [&](const JournalMove& move) {
                EXPECT_EQ(move.path, "/a/" + std::to_string(move.row - first));
                rows.push_back(move.row);
                return true;
            }));
        EXPECT_EQ(rows, expected);
        std::reverse(expected.begin(), expected.end());
    }
    int visits = 0;
    EXPECT_FALSE(journal.forEachMove(id, MoveStates::all(), CleanUpJournal::Order::asPlanned,
                                     [&](const JournalMove&) { return ++visits < 5; }));
    EXPECT_EQ(visits, 5);
}

TEST_F(CleanUpJournalTest, AVisitMayChangeStates) {
    CleanUpJournal journal = opened();
    CleanUpJournal other = opened();
    std::vector<std::string> paths;
    std::vector<RecordedOutcome> outcomes;
    for (int number = 0; number < 2500; ++number) {
        paths.push_back("/a/" + std::to_string(number));
    }
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf(paths)));
    for (MoveRow row = first; row < first + 2500; ++row) {
        outcomes.push_back(movedTo(row, "name"));
    }
    EXPECT_FALSE(journal.record(outcomes));
    std::size_t visited = 0;
    EXPECT_FALSE(journal.forEachMove(
        id, {MoveState::moved}, CleanUpJournal::Order::lastFirst, [&](const JournalMove& move) {
            // Other connections can write meanwhile.
            if (visited % 500 == 0) {
                EXPECT_FALSE(journal.markPutBack(std::vector{move.row}));
                oneMove(other);
            }
            ++visited;
            return true;
        }));
    EXPECT_EQ(visited, 2500U);
    EXPECT_EQ(valueOf(journal.moves(id, {MoveState::putBack}, 10)).size(), 5U);
}

TEST_F(CleanUpJournalTest, ReadsMovesByStateInBatches) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/0", "/1", "/2", "/3", "/4"})));
    EXPECT_FALSE(
        journal.record(std::vector<RecordedOutcome>{movedTo(first, "0"),
                                                    {first + 1, MoveState::left, "", "", "gone"},
                                                    movedTo(first + 3, "3")}));
    const auto pathsOf = [](const std::vector<JournalMove>& moves) {
        std::vector<std::string> paths;
        for (const JournalMove& move : moves) {
            paths.push_back(move.path);
        }
        return paths;
    };
    using Paths = std::vector<std::string>;
    EXPECT_EQ(pathsOf(valueOf(journal.moves(id, {MoveState::moved}, 10))), (Paths{"/0", "/3"}));
    EXPECT_EQ(pathsOf(valueOf(journal.moves(id, {MoveState::planned, MoveState::left}, 2))),
              (Paths{"/1", "/2"}));
    EXPECT_EQ(
        pathsOf(valueOf(journal.moves(id, {MoveState::planned, MoveState::left}, 2, first + 2))),
        (Paths{"/4"}));
    EXPECT_EQ(pathsOf(valueOf(journal.moves(id, MoveStates::all(), 2, first + 3,
                                            CleanUpJournal::Order::lastFirst))),
              (Paths{"/2", "/1"}));
    EXPECT_TRUE(valueOf(journal.moves(id + 1, MoveStates::all(), 10)).empty());
}

TEST_F(CleanUpJournalTest, CountsEachPutBackFileOnce) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/0", "/1", "/2", "/3"})));
    EXPECT_FALSE(
        journal.record(std::vector<RecordedOutcome>{movedTo(first, "0"),
                                                    movedTo(first + 1, "1"),
                                                    {first + 2, MoveState::left, "", "", "gone"}}));
    EXPECT_FALSE(journal.finish(id));
    const std::vector<MoveRow> all{first, first, first + 2, first + 3};
    EXPECT_FALSE(journal.markPutBack(all));
    EXPECT_FALSE(journal.markPutBack(all));
    EXPECT_FALSE(journal.markLost(std::vector<MoveRow>{first, first + 1, first + 2}));
    CleanUpSummary summary = valueOf(journal.cleanUps())[0];
    EXPECT_EQ(summary.movedFiles, 2U);
    EXPECT_EQ(summary.movedBytes, 30U);
    EXPECT_EQ(summary.putBackFiles, 1U);
    EXPECT_EQ(summary.putBackBytes, 10U);
    EXPECT_EQ(summary.lostFiles, 1U);
    EXPECT_EQ(summary.leftFiles, 1U);
    EXPECT_EQ(summary.unsettledFiles, 1U);
    const auto moves = allMoves(journal, id);
    EXPECT_EQ(moves[0].state, MoveState::putBack);
    EXPECT_EQ(moves[0].trashName, "0");
    EXPECT_EQ(moves[1].state, MoveState::lost);
    EXPECT_EQ(moves[2].state, MoveState::left);
    EXPECT_EQ(moves[3].state, MoveState::planned);
    // Lost files can still be put back.
    EXPECT_FALSE(journal.markPutBack(std::vector<MoveRow>{first + 1}));
    summary = valueOf(journal.cleanUps())[0];
    EXPECT_EQ(summary.putBackFiles, 2U);
    EXPECT_EQ(summary.putBackBytes, 30U);
    EXPECT_EQ(summary.lostFiles, 0U);
}

TEST_F(CleanUpJournalTest, KeepsPlansOfConcurrentProcesses) {
    constexpr int processes = 4;
    constexpr int batches = 25;
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const pid_t child = ::fork();
        if (child == 0) {
            CleanUpJournal journal = opened();
            const CleanUpId id = valueOf(journal.begin(Timestamp()));
            bool good = true;
            for (int batch = 0; batch < batches; ++batch) {
                const std::string path =
                    "/" + std::to_string(process) + "/" + std::to_string(batch);
                const MoveRow first = valueOf(journal.plan(id, movesOf({path, path + "b"})));
                good = good &&
                       !journal.record(std::vector{movedTo(first, "a"), movedTo(first + 1, "b")});
            }
            ::_exit(good && !journal.finish(id) ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    CleanUpJournal journal = opened();
    const auto summaries = valueOf(journal.cleanUps());
    ASSERT_EQ(summaries.size(), std::size_t{processes});
    for (const CleanUpSummary& summary : summaries) {
        EXPECT_TRUE(summary.finished);
        EXPECT_EQ(summary.movedFiles, std::uint64_t{2 * batches});
        const auto moves = allMoves(journal, summary.id);
        ASSERT_EQ(moves.size(), std::size_t{2 * batches});
        for (int batch = 0; batch < batches; ++batch) {
            EXPECT_EQ(moves[static_cast<std::size_t>(2 * batch)].path,
                      moves[0].path.substr(0, 3) + std::to_string(batch));
        }
    }
}

TEST_F(CleanUpJournalTest, WithADamagedFirstPageIsRefusedAndCanBeMovedAside) {
    writeLargeJournal();
    overwrite(0, 4096);
    const std::string old = contentOf(file_);
    expectRefused("the file is damaged", Kind::unusable);
    const std::string rollback = file_ + "-journal";
    std::ofstream(rollback) << "of the damaged one";
    EXPECT_EQ(valueOf(CleanUpJournal::moveAside(own_)), file_ + ".unreadable");
    EXPECT_TRUE(contentOf(file_ + ".unreadable") == old);
    EXPECT_EQ(contentOf(rollback + ".unreadable"), "of the damaged one");
    EXPECT_FALSE(std::filesystem::exists(rollback));
    CleanUpJournal journal = opened();
    oneMove(journal);
    EXPECT_EQ(valueOf(journal.cleanUps()).size(), 1U);
}

TEST_F(CleanUpJournalTest, WithAnUnknownTableIsRefused) {
    writeLargeJournal();
    sql("ALTER TABLE move RENAME COLUMN inode TO something");
    CleanUpJournal journal = opened();
    const StoreError error = errorOf(journal.moves(1, MoveStates::all(), 10));
    EXPECT_EQ(error.text, "the file is damaged");
    EXPECT_EQ(error.kind, Kind::unusable);
}

TEST_F(CleanUpJournalTest, WithADamagedMiddlePageFailsWhenRead) {
    writeLargeJournal();
    const auto size = std::filesystem::file_size(file_);
    ASSERT_GT(size, 20U * 4096U);
    const std::string old = contentOf(file_);
    std::size_t failures = 0;
    for (std::uint64_t page = 1; page < size / 4096; ++page) {
        overwrite(page * 4096, 4096);
        const auto open = CleanUpJournal::open(own_);
        StoreError error = errorOf(open);
        if (std::holds_alternative<CleanUpJournal>(open)) {
            auto& journal = const_cast<CleanUpJournal&>(std::get<CleanUpJournal>(open));
            error = errorOf(journal.moves(1, MoveStates::all(), 100'000));
            if (error.kind == Kind::missing) {
                error = errorOf(journal.cleanUps());
            }
        }
        if (error.kind != Kind::missing) {
            ++failures;
            EXPECT_EQ(error.text, "the file is damaged") << page;
            EXPECT_EQ(error.kind, Kind::unusable) << page;
        }
        std::ofstream(file_, std::ios::binary) << old;
    }
    // Nearly all pages contain data that is read; pages of an index are not.
    EXPECT_GT(failures, size / 4096 / 2);
}

TEST_F(CleanUpJournalTest, ThatIsTruncatedIsRefused) {
    writeLargeJournal();
    std::filesystem::resize_file(file_, std::filesystem::file_size(file_) - 4096);
    expectRefused("the file is damaged", Kind::unusable);
    std::filesystem::resize_file(file_, 50);
    expectRefused("the file is damaged", Kind::unusable);
}

TEST_F(CleanUpJournalTest, ThatIsEmptyIsInitialised) {
    std::filesystem::create_directories(own_);
    std::ofstream{file_};
    CleanUpJournal journal = opened();
    oneMove(journal);
}

TEST_F(CleanUpJournalTest, OfANewerVersionIsNotChanged) {
    writeLargeJournal();
    sql("PRAGMA user_version = 3");
    expectRefused("written by a newer version of the program", Kind::passing);
}

TEST_F(CleanUpJournalTest, OfAnotherProgramIsNotChanged) {
    sql("CREATE TABLE theirs (text); INSERT INTO theirs VALUES ('kept')");
    expectRefused("a database of another program", Kind::unusable);
    std::filesystem::remove(file_);
    sql("PRAGMA application_id = 77");
    expectRefused("a database of another program", Kind::unusable);
}

TEST_F(CleanUpJournalTest, OfAnotherProgramWithAWriteAheadLogIsNotChanged) {
    sql("PRAGMA journal_mode = WAL; CREATE TABLE theirs (text)");
    expectRefused("a database of another program", Kind::unusable);
}

TEST_F(CleanUpJournalTest, ThatIsNotADatabaseIsNotChanged) {
    folder_.writeFile("own/clean-ups.sqlite", std::string(5000, 'x'));
    expectRefused("the file is damaged", Kind::unusable);
}

TEST_F(CleanUpJournalTest, ThatIsAFolderOrASymlinkIsRefused) {
    folder_.writeFile("own/clean-ups.sqlite/inside.txt", "kept");
    expectRefused("Is a directory", Kind::unusable);
    EXPECT_EQ(valueOf(CleanUpJournal::moveAside(own_)), file_ + ".unreadable");
    EXPECT_EQ(contentOf(file_ + ".unreadable/inside.txt"), "kept");
    const std::string target = folder_.writeFile("target", "untouched");
    folder_.makeLink("own/clean-ups.sqlite", target);
    expectRefused("is a link", Kind::unusable);
    EXPECT_EQ(contentOf(target), "untouched");
    std::filesystem::remove(target);
    expectRefused("is a link", Kind::unusable);
    EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(CleanUpJournalTest, WithASymlinkAsLockFileIsRefused) {
    folder_.makeLink("own/clean-ups.lock", folder_.pathOf("target"));
    const StoreError error = errorOf(CleanUpJournal::open(own_));
    EXPECT_EQ(error.path, own_ + "/clean-ups.lock");
    EXPECT_EQ(error.text, "Too many levels of symbolic links");
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(CleanUpJournalTest, InAFolderBehindASymlinkIsUsed) {
    folder_.makeFolder("real");
    folder_.makeLink("own", "real");
    CleanUpJournal journal = opened();
    oneMove(journal);
    EXPECT_TRUE(std::filesystem::exists(folder_.pathOf("real/clean-ups.sqlite")));
}

TEST_F(CleanUpJournalTest, InAFolderWithTooLongAPathIsRefused) {
    std::string deep = own_;
    while (deep.size() < 600) {
        deep += '/' + std::string(100, 'd');
    }
    EXPECT_EQ(errorOf(CleanUpJournal::open(deep)).text, "File name too long");
    deep.resize(504 - std::string("/clean-ups.sqlite").size());
    CleanUpJournal journal = valueOf(CleanUpJournal::open(deep));
    oneMove(journal);
}

TEST_F(CleanUpJournalTest, OnAReadOnlyDiskIsRefused) {
    folder_.makeFolder("own");
    const Mount mount("none", own_, "tmpfs");
    if (mount) {
        {
            CleanUpJournal journal = opened();
            oneMove(journal);
        }
        ASSERT_EQ(::mount("none", own_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
        const StoreError error = errorOf(CleanUpJournal::open(own_));
        EXPECT_EQ(error.text, "Read-only file system");
        EXPECT_EQ(error.kind, Kind::passing);
    }
}

TEST_F(CleanUpJournalTest, WithoutWritePermissionIsRefused) {
    {
        CleanUpJournal journal = opened();
        oneMove(journal);
    }
    ::chmod(folder_.path().c_str(), 0777);
    ::chmod(own_.c_str(), 0777);
    ::chmod((own_ + "/clean-ups.lock").c_str(), 0600);
    ::chmod(file_.c_str(), 0444);
    EXPECT_EQ(
        inChildProcess([this] {
            // Root can write everywhere.
            constexpr uid_t nobody = 65534;
            const bool isRoot = ::geteuid() == 0;
            const std::string lock = own_ + "/clean-ups.lock";
            if (isRoot && (::chown(lock.c_str(), nobody, nobody) != 0 || ::seteuid(nobody) != 0)) {
                return false;
            }
            const StoreError error = errorOf(CleanUpJournal::open(own_));
            return error.text == "Permission denied" && error.kind == Kind::passing;
        }),
        0);
}

TEST_F(CleanUpJournalTest, OnAFullDiskKeepsItsContentAndContinuesLater) {
    const LoopVolume volume;
    if (!volume) {
        return;
    }
    const std::string own = volume.pathOf("own");
    CleanUpJournal journal = valueOf(CleanUpJournal::open(own));
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow row = valueOf(journal.plan(id, movesOf({"/a"})));
    volume.fill();
    EXPECT_FALSE(journal.record(std::vector{movedTo(row, "a")}));
    std::vector<std::string> paths(5000, "/b/" + std::string(200, 'b'));
    const StoreError error = errorOf(journal.plan(id, movesOf(paths)));
    EXPECT_EQ(error.text, "No space left on device");
    EXPECT_EQ(error.kind, Kind::passing);
    const StoreError unmade = errorOf(CleanUpJournal::open(volume.pathOf("own/other")));
    EXPECT_EQ(unmade.text, "No space left on device");
    std::filesystem::remove(volume.pathOf("first"));
    EXPECT_EQ(valueOf(journal.plan(id, movesOf(paths))), row + 1);
    EXPECT_FALSE(journal.finish(id));
    const CleanUpSummary summary = valueOf(journal.cleanUps())[0];
    EXPECT_EQ(summary.plannedFiles, 5001U);
    EXPECT_EQ(summary.movedFiles, 1U);
}

/// A process that holds the lock of the file, like a long transaction.
class WritingProcess final {
 public:
    explicit WritingProcess(const std::string& file) {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        child_ = ::fork();
        if (child_ == 0) {
            sqlite3* database = nullptr;
            const bool isLocked =
                sqlite3_open(file.c_str(), &database) == SQLITE_OK &&
                sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK;
            const char answer = isLocked ? '1' : '0';
            while (::write(ends[1], &answer, 1) == 1) {
                ::pause();
            }
            ::_exit(0);
        }
        char answer = '0';
        EXPECT_EQ(::read(ends[0], &answer, 1), 1);
        EXPECT_EQ(answer, '1');
        ::close(ends[0]);
        ::close(ends[1]);
    }
    WritingProcess(const WritingProcess&) = delete;
    WritingProcess& operator=(const WritingProcess&) = delete;
    ~WritingProcess() { kill(); }

    void kill() {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
            child_ = -1;
        }
    }

 private:
    pid_t child_ = -1;
};

TEST_F(CleanUpJournalTest, WaitForALockTimesOut) {
    CleanUpJournal journal = valueOf(CleanUpJournal::open(own_, std::chrono::milliseconds(50)));
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    WritingProcess other(file_);
    const auto begin = std::chrono::steady_clock::now();
    const StoreError error = errorOf(journal.plan(id, movesOf({"/a"})));
    EXPECT_EQ(error.text, "in use by another process");
    EXPECT_EQ(error.kind, Kind::passing);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(40));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(errorOf(journal.cleanUps()).text, "in use by another process");
    EXPECT_EQ(errorOf(CleanUpJournal::open(own_, std::chrono::milliseconds(50))).text,
              "in use by another process");
    other.kill();
    EXPECT_EQ(valueOf(journal.plan(id, movesOf({"/a"}))), (id << 32) + 1);
}

TEST_F(CleanUpJournalTest, ThatIsOpenIsNotMovedAside) {
    {
        CleanUpJournal journal = opened();
        const StoreError error = errorOf(CleanUpJournal::moveAside(own_));
        EXPECT_EQ(error.text, "in use by another process");
        EXPECT_EQ(error.kind, Kind::passing);
        oneMove(journal);
    }
    EXPECT_EQ(valueOf(CleanUpJournal::moveAside(own_)), file_ + ".unreadable");
    EXPECT_TRUE(valueOf(opened().cleanUps()).empty());
}

TEST_F(CleanUpJournalTest, ThatIsMissingCannotBeMovedAside) {
    EXPECT_EQ(errorOf(CleanUpJournal::moveAside(own_)).text, "No such file or directory");
}

/// Returns the resident memory of this process, in bytes.
std::int64_t residentBytes() {
    std::ifstream file("/proc/self/statm");
    std::int64_t total = 0;
    std::int64_t resident = 0;
    file >> total >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

TEST_F(CleanUpJournalTest, UsesBoundedMemoryForManyMoves) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    // Sanitizers do not release freed memory at once.
#ifdef TARVIN_SANITIZED
    constexpr int batches = 40;
    constexpr std::int64_t maxBytes = 200'000'000;
#else
    constexpr int batches = 400;
    constexpr std::int64_t maxBytes = 12'000'000;
#endif
    constexpr int batchFiles = 512;
    std::int64_t before = 0;
    for (int batch = 0; batch < batches; ++batch) {
        std::vector<PlannedMove> moves;
        std::vector<RecordedOutcome> outcomes;
        for (int file = 0; file < batchFiles; ++file) {
            moves.push_back({"/home/user/Pictures/folder " + std::to_string(batch) + "/image " +
                                 std::to_string(file) + ".jpg",
                             1, 100'000, Timestamp()});
        }
        const MoveRow first = valueOf(journal.plan(id, moves));
        for (int file = 0; file < batchFiles; ++file) {
            outcomes.push_back(movedTo(first + file, "image " + std::to_string(file) + ".jpg"));
        }
        EXPECT_FALSE(journal.record(outcomes));
        if (batch == 10) {
            before = residentBytes();
        }
    }
    EXPECT_FALSE(journal.finish(id));
    int visits = 0;
    EXPECT_FALSE(journal.forEachMove(id, MoveStates::all(), CleanUpJournal::Order::lastFirst,
                                     [&](const JournalMove&) { return ++visits > 0; }));
    EXPECT_EQ(visits, batches * batchFiles);
    EXPECT_LT(residentBytes() - before, maxBytes);
    EXPECT_EQ(valueOf(journal.cleanUps())[0].movedFiles, std::uint64_t{batches * batchFiles});
}

}  // namespace
}  // namespace tarvin
