#include "store/clean_up_totals.h"

#include "store/data_file.h"
#include "store/journal_fixture.h"
#include "store/plist_text.h"
#include "store/property_list.h"
#include "support/add_to_totals.h"
#include "support/file_content.h"
#include "support/mount.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

class CleanUpTotalsTest : public JournalFixture {
 protected:
    [[nodiscard]] StoredTotals stored() const {
        const auto list = PropertyList::parse(contentOf(data_));
        if (!list) {
            return {-1, 0};
        }
        return {list->signedNumber("deletedCount").value_or(-1),
                list->number("deletedSize").value_or(0)};
    }

    void write(const std::string& count, const std::string& size) const {
        folder_.writeFile("own/data.plist",
                          plistText("<dict><key>deletedCount</key><integer>" + count +
                                    "</integer><key>deletedSize</key><integer>" + size +
                                    "</integer><key>other</key><string>kept</string></dict>"));
    }

    /// Settles and returns the stored totals, which must equal those in memory.
    StoredTotals settled(CleanUpJournal& journal) const {
        DataFile data(own_);
        const auto error = settleTotals(data, journal);
        EXPECT_FALSE(error) << error->text;
        EXPECT_EQ(data.alreadyDeletedCount(), stored().count);
        EXPECT_EQ(data.alreadyDeletedSize(), stored().size);
        return stored();
    }

    /// Settles in a child process that kills itself before step `step`. Returns false if there is
    /// no such step.
    [[nodiscard]] bool isKilledAt(int step) const {
        const int end = inChildProcess([&] {
            CleanUpJournal journal = opened();
            DataFile data(own_);
            int steps = 0;
            return !settleTotals(data, journal, [&] {
                if (steps++ == step) {
                    ::kill(::getpid(), SIGKILL);
                }
            });
        });
        EXPECT_TRUE(end == 0 || end == 128 + SIGKILL) << end;
        return end != 0;
    }

    const std::string data_ = own_ + "/data.plist";
};

TEST_F(CleanUpTotalsTest, CountEachMovedFileOnce) {
    CleanUpJournal journal = opened();
    write("3", "500");
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b", "/c"})));
    EXPECT_FALSE(journal.record(std::vector<RecordedOutcome>{
        movedTo(first, "a"), {first + 1, MoveState::left, "", "", "gone"}}));
    // Also while it runs.
    EXPECT_EQ(settled(journal), (StoredTotals{4, 510}));
    EXPECT_EQ(settled(journal), (StoredTotals{4, 510}));
    EXPECT_FALSE(journal.record(std::vector{movedTo(first + 2, "c")}));
    EXPECT_FALSE(journal.finish(id));
    EXPECT_EQ(settled(journal), (StoredTotals{5, 540}));
    oneMove(journal, 100);
    oneMove(journal, 200);
    EXPECT_EQ(settled(journal), (StoredTotals{7, 840}));
    EXPECT_NE(contentOf(data_).find("<string>kept</string>"), std::string::npos);
}

TEST_F(CleanUpTotalsTest, FallByThePutBackFiles) {
    CleanUpJournal journal = opened();
    write("3", "500");
    const MoveRow one = oneMove(journal, 40);
    const MoveRow other = oneMove(journal, 5);
    EXPECT_EQ(settled(journal), (StoredTotals{5, 545}));
    EXPECT_FALSE(journal.markPutBack(std::vector{one}));
    EXPECT_EQ(settled(journal), (StoredTotals{4, 505}));
    // Lost files still count as moved.
    EXPECT_FALSE(journal.markLost(std::vector{other}));
    EXPECT_EQ(settled(journal), (StoredTotals{4, 505}));
    // Moved and put back before it was counted.
    const MoveRow third = oneMove(journal, 7);
    EXPECT_FALSE(journal.markPutBack(std::vector{third}));
    EXPECT_EQ(settled(journal), (StoredTotals{4, 505}));
}

TEST_F(CleanUpTotalsTest, NeverFallBelowZero) {
    CleanUpJournal journal = opened();
    const CleanUpId id = valueOf(journal.begin(Timestamp()));
    const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b", "/c"})));
    for (MoveRow row = first; row < first + 3; ++row) {
        EXPECT_FALSE(journal.record(std::vector{movedTo(row, "name")}));
    }
    EXPECT_FALSE(journal.finish(id));
    EXPECT_EQ(settled(journal), (StoredTotals{3, 60}));
    write("1", "15");
    EXPECT_FALSE(journal.markPutBack(std::vector{first, first + 1}));
    EXPECT_EQ(settled(journal), (StoredTotals{0, 0}));
    EXPECT_FALSE(journal.markPutBack(std::vector{first + 2}));
    EXPECT_EQ(settled(journal), (StoredTotals{0, 0}));
    oneMove(journal, 8);
    EXPECT_EQ(settled(journal), (StoredTotals{1, 8}));
}

TEST_F(CleanUpTotalsTest, BelowZeroRiseAndAreNotLowered) {
    CleanUpJournal journal = opened();
    write("-5", "10");
    const MoveRow row = oneMove(journal, 8);
    EXPECT_EQ(settled(journal), (StoredTotals{-4, 18}));
    EXPECT_FALSE(journal.markPutBack(std::vector{row}));
    EXPECT_EQ(settled(journal), (StoredTotals{-4, 10}));
}

TEST_F(CleanUpTotalsTest, AreCappedAtTheLargestNumbers) {
    CleanUpJournal journal = opened();
    write("9223372036854775807", "18446744073709551610");
    const MoveRow row = oneMove(journal, 8);
    EXPECT_EQ(settled(journal),
              (StoredTotals{9'223'372'036'854'775'807, 18'446'744'073'709'551'615U}));
    // Files that did not count at the limit are subtracted when put back.
    EXPECT_FALSE(journal.markPutBack(std::vector{row}));
    EXPECT_EQ(settled(journal),
              (StoredTotals{9'223'372'036'854'775'806, 18'446'744'073'709'551'607U}));
    write("9223372036854775807", "18446744073709551615");
    oneMove(journal, 8);
    EXPECT_EQ(settled(journal),
              (StoredTotals{9'223'372'036'854'775'807, 18'446'744'073'709'551'615U}));
    write("1", "1");
    EXPECT_EQ(settled(journal), (StoredTotals{1, 1}));
}

TEST_F(CleanUpTotalsTest, AreExactWhereverSettlingIsKilled) {
    std::int64_t files = 0;
    std::uint64_t bytes = 0;
    int step = 0;
    for (bool isKilled = true; isKilled; ++step) {
        {
            CleanUpJournal journal = opened();
            oneMove(journal, 3);
            oneMove(journal, 20);
        }
        files += 2;
        bytes += 23;
        isKilled = isKilledAt(step);
        CleanUpJournal journal = opened();
        EXPECT_EQ(settled(journal), (StoredTotals{files, bytes})) << step;
    }
    // Three writes for each of two clean-ups, and one step at the end.
    EXPECT_EQ(step, 8);
}

TEST_F(CleanUpTotalsTest, AreExactWhereverPuttingBackIsKilled) {
    std::int64_t files = 100;
    std::uint64_t bytes = 1000;
    write("100", "1000");
    int step = 0;
    for (bool isKilled = true; isKilled; ++step) {
        CleanUpJournal journal = opened();
        const MoveRow row = oneMove(journal, 7);
        oneMove(journal, 5);
        files += 2;
        bytes += 12;
        EXPECT_EQ(settled(journal), (StoredTotals{files, bytes}));
        EXPECT_FALSE(journal.markPutBack(std::vector{row}));
        files -= 1;
        bytes -= 7;
        isKilled = isKilledAt(step);
        EXPECT_EQ(settled(journal), (StoredTotals{files, bytes})) << step;
    }
    EXPECT_EQ(step, 5);
}

TEST_F(CleanUpTotalsTest, AreExactWhereverTheRecoveryIsKilled) {
    std::int64_t files = 0;
    // Killed after the intent, then after the data file was written, then at every step.
    for (const int firstDeath : {1, 2}) {
        int step = 0;
        for (bool isKilled = true; isKilled; ++step) {
            {
                CleanUpJournal journal = opened();
                oneMove(journal, 10);
            }
            files += 1;
            EXPECT_TRUE(isKilledAt(firstDeath));
            isKilled = isKilledAt(step);
            CleanUpJournal journal = opened();
            EXPECT_EQ(settled(journal),
                      (StoredTotals{files, static_cast<std::uint64_t>(files) * 10}))
                << firstDeath << ' ' << step;
        }
        EXPECT_GE(step, 2);
    }
}

TEST_F(CleanUpTotalsTest, ChangedByAnotherProgramAreTakenAsCounted) {
    CleanUpJournal journal = opened();
    write("3", "500");
    oneMove(journal, 10);
    EXPECT_TRUE(isKilledAt(2));  // the data file is written, the journal does not know yet
    EXPECT_EQ(stored(), (StoredTotals{4, 510}));
    DataFile other(own_);
    EXPECT_FALSE(other.loadDataFile());
    EXPECT_FALSE(addToTotals(other, 6, 90));
    EXPECT_EQ(settled(journal), (StoredTotals{10, 600}));
}

TEST_F(CleanUpTotalsTest, CountAnUnfinishedCleanUpOnceItsMovesAreKnown) {
    EXPECT_EQ(inChildProcess([this] {
                  CleanUpJournal journal = opened();
                  const CleanUpId id = valueOf(journal.begin(Timestamp()));
                  const MoveRow first = valueOf(journal.plan(id, movesOf({"/a", "/b"})));
                  static_cast<void>(journal.record(std::vector{movedTo(first, "a")}));
                  valueOf(journal.plan(id, movesOf({"/c"})));
                  return ::kill(::getpid(), SIGKILL) == 0;
              }),
              128 + SIGKILL);
    CleanUpJournal journal = opened();
    EXPECT_EQ(settled(journal), (StoredTotals{1, 10}));
    const CleanUpSummary crashed = valueOf(journal.crashed()).at(0);
    const auto planned = valueOf(journal.moves(crashed.id, {MoveState::planned}, 10));
    EXPECT_FALSE(journal.record(std::vector{movedTo(planned.at(0).row, "b")}));
    EXPECT_FALSE(journal.finish(crashed.id));
    EXPECT_EQ(settled(journal), (StoredTotals{2, 30}));
}

TEST_F(CleanUpTotalsTest, WithConcurrentProcessesAreExact) {
    constexpr int processes = 6;
    constexpr int rounds = 5;
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const pid_t child = ::fork();
        if (child == 0) {
            CleanUpJournal journal = opened();
            DataFile data(own_);
            bool good = true;
            for (int round = 0; round < rounds; ++round) {
                oneMove(journal, 10);
                good = good && !settleTotals(data, journal);
            }
            ::_exit(good ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(stored(), (StoredTotals{processes * rounds, processes * rounds * 10}));
}

TEST_F(CleanUpTotalsTest, ThatCannotBeStoredAreKeptInMemory) {
    folder_.makeFolder("own");
    const Mount mount("none", own_, "tmpfs", 0, "size=200k");
    if (!mount) {
        return;
    }
    CleanUpJournal journal = opened();
    write("3", "500");
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    oneMove(journal, 10);
    // A folder has the name of the temporary file: only the data file cannot be written.
    folder_.makeFolder("own/data.plist.new/inside");
    for (int call = 0; call < 2; ++call) {
        const auto failure = settleTotals(data, journal);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->text, "Is a directory");
        EXPECT_EQ(stored(), (StoredTotals{3, 500}));
        EXPECT_EQ(data.alreadyDeletedCount(), 4);
        EXPECT_EQ(data.alreadyDeletedSize(), 510U);
    }
    std::filesystem::remove_all(own_ + "/data.plist.new");
    EXPECT_FALSE(settleTotals(data, journal));
    EXPECT_EQ(stored(), (StoredTotals{4, 510}));
    EXPECT_EQ(data.alreadyDeletedCount(), 4);
    // The journal has no space left: the data file counts nothing that the journal does not have.
    oneMove(journal, 20);
    folder_.writeFile("own/filling", std::string(300'000, 'x'));
    const auto failure = settleTotals(data, journal);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "No space left on device");
    EXPECT_EQ(stored(), (StoredTotals{4, 510}));
    EXPECT_EQ(data.alreadyDeletedCount(), 5);
    std::filesystem::remove(own_ + "/filling");
    EXPECT_EQ(settled(journal), (StoredTotals{5, 530}));
}

TEST_F(CleanUpTotalsTest, StartWithoutADataFile) {
    CleanUpJournal journal = opened();
    oneMove(journal, 10);
    EXPECT_EQ(settled(journal), (StoredTotals{1, 10}));
    EXPECT_NE(contentOf(data_).find("<key>matchingLevel</key>"), std::string::npos);
}

TEST_F(CleanUpTotalsTest, MoveADamagedDataFileAside) {
    CleanUpJournal journal = opened();
    folder_.writeFile("own/data.plist", "damaged");
    DataFile data(own_);
    EXPECT_TRUE(data.loadDataFile());
    oneMove(journal, 10);
    EXPECT_FALSE(settleTotals(data, journal));
    EXPECT_EQ(data.putAside(), data_ + ".unreadable");
    EXPECT_EQ(contentOf(data_ + ".unreadable"), "damaged");
    EXPECT_EQ(stored(), (StoredTotals{1, 10}));
}

TEST_F(CleanUpTotalsTest, WithNothingToCountKeepADamagedDataFile) {
    CleanUpJournal journal = opened();
    DataFile data(own_);
    EXPECT_FALSE(settleTotals(data, journal));
    EXPECT_FALSE(std::filesystem::exists(data_));
    folder_.writeFile("own/data.plist", "damaged");
    EXPECT_FALSE(settleTotals(data, journal));
    EXPECT_EQ(contentOf(data_), "damaged");
    EXPECT_EQ(data.putAside(), "");
}

TEST_F(CleanUpTotalsTest, ContinueFromMemoryIfTheDataFileIsMissing) {
    CleanUpJournal journal = opened();
    write("3", "500");
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    std::filesystem::remove(data_);
    oneMove(journal, 10);
    EXPECT_FALSE(settleTotals(data, journal));
    EXPECT_EQ(stored(), (StoredTotals{4, 510}));
}

TEST_F(CleanUpTotalsTest, WithoutAFolderAreKeptInMemory) {
    CleanUpJournal journal = opened();
    DataFile data(std::nullopt);
    oneMove(journal, 10);
    EXPECT_FALSE(settleTotals(data, journal));
    EXPECT_EQ(data.alreadyDeletedCount(), 1);
    EXPECT_EQ(data.alreadyDeletedSize(), 10U);
}

TEST_F(CleanUpTotalsTest, InMemoryFollowOtherProcesses) {
    CleanUpJournal journal = opened();
    DataFile one(own_);
    EXPECT_FALSE(one.loadDataFile());
    DataFile other(own_);
    EXPECT_FALSE(addToTotals(other, 6, 60));
    oneMove(journal, 10);
    EXPECT_FALSE(settleTotals(one, journal));
    EXPECT_EQ(one.alreadyDeletedCount(), 7);
    EXPECT_EQ(one.alreadyDeletedSize(), 70U);
    // Also with nothing to settle.
    EXPECT_FALSE(settleTotals(other, journal));
    EXPECT_EQ(other.alreadyDeletedCount(), 7);
}

TEST_F(CleanUpTotalsTest, StayUnchangedIfTheJournalIsDamaged) {
    write("3", "500");
    CleanUpJournal journal = opened();
    oneMove(journal, 10);
    // All but the first page, which contains the size of the file.
    std::string content = contentOf(file_);
    content.replace(4096, std::string::npos, std::string(content.size() - 4096, '\xA5'));
    folder_.writeFile("own/clean-ups.sqlite", content);
    CleanUpJournal damaged = opened();
    DataFile data(own_);
    const auto failure = settleTotals(data, damaged);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "the file is damaged");
    EXPECT_EQ(failure->kind, StoreError::Kind::unusable);
    EXPECT_EQ(stored(), (StoredTotals{3, 500}));
    EXPECT_EQ(data.alreadyDeletedCount(), 3);
}

}  // namespace
}  // namespace tarvin
