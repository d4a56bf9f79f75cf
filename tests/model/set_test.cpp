#include "model/set.h"

#include "model/file_store.h"
#include "model/result_tree.h"
#include "support/recording_trash.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;
using Marks = std::vector<CheckState>;

void addAllTo(RecordingTrash& trash, const Set& set) {
    for (const std::string& path : pathsOf(set)) {
        trash.addExisting(path);
    }
}

TEST(Set, StartsEmptyAndOff) {
    const Set set;
    EXPECT_TRUE(set.files().empty());
    EXPECT_EQ(levelOf(set), (Level{off, 0, 0, 0, 0}));
}

TEST(Set, AddingFilesKeepsTheirOrderAndChangesNoCounter) {
    Set set;
    const auto first = FileStore::standalone("/a", 10);
    const auto second = FileStore::standalone("/b", 20);
    second->setState(on);
    set.addFiles(first);
    set.addFiles(second);
    EXPECT_EQ(set.files(), (std::vector{first, second}));
    EXPECT_EQ(levelOf(set), (Level{off, 0, 0, 0, 0}));
}

TEST(Set, SettersStoreTheirValues) {
    Set set;
    set.setTotalFilesInSet(1);
    set.setTotalFilesInSetSize(2);
    set.setTotalFilesSelectedInSet(3);
    set.setTotalFilesSelectedInSetSize(4);
    set.setSetsState(mixed);
    EXPECT_EQ(levelOf(set), (Level{mixed, 1, 2, 3, 4}));
}

TEST(Set, ReplacingTheFilesChangesNoCounter) {
    const auto set = makeSet("f", {10, 10, 10});
    set->markAllFiles();
    const auto only = FileStore::standalone("/x", 99);
    set->setFiles({only});
    EXPECT_EQ(set->files(), (std::vector{only}));
    EXPECT_EQ(levelOf(*set), (Level{on, 2, 20, 2, 20}));
}

TEST(Set, NameContainsTheNumberOfCopies) {
    EXPECT_EQ(makeSet("f", {1, 1})->nameOfSet(), "Set(1)");
    EXPECT_EQ(makeSet("f", {1, 1, 1})->nameOfSet(), "Set(2)");
    EXPECT_EQ(makeSet("f", {1})->nameOfSet(), "Set(0)");
}

TEST(Set, NameOfAnEmptySetHasZeroCopies) {
    EXPECT_EQ(Set().nameOfSet(), "Set(0)");
}

TEST(Set, MarkingAllLeavesTheFirstFileAlone) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->markAllFiles();
    EXPECT_EQ(marksOf(*set), (Marks{off, on, on}));
    EXPECT_EQ(levelOf(*set), (Level{on, 2, 320, 2, 320}));
}

TEST(Set, UnmarkingOneAfterMarkingAllIsMixed) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->markAllFiles();
    set->changeStateOfFile(set->files()[2]);
    EXPECT_EQ(marksOf(*set), (Marks{off, on, off}));
    EXPECT_EQ(levelOf(*set), (Level{mixed, 2, 320, 1, 20}));
}

TEST(Set, MarkingAllTwiceCountsOnce) {
    const auto set = makeSet("f", {10, 10, 10});
    set->markAllFiles();
    set->markAllFiles();
    EXPECT_EQ(levelOf(*set), (Level{on, 2, 20, 2, 20}));
}

TEST(Set, OfOneFileIsOnWithoutMarksAfterMarkingAll) {
    const auto set = makeSet("f", {10});
    set->markAllFiles();
    EXPECT_EQ(marksOf(*set), (Marks{off}));
    EXPECT_EQ(levelOf(*set), (Level{on, 0, 0, 0, 0}));
    EXPECT_EQ(set->determineSelfState(), off);
}

TEST(Set, WithoutFilesIsOnAfterMarkingAll) {
    Set set;
    set.markAllFiles();
    EXPECT_EQ(levelOf(set), (Level{on, 0, 0, 0, 0}));
    EXPECT_EQ(set.determineSelfState(), off);
}

TEST(Set, MarkingAllKeepsButDoesNotCountAMarkOnTheFirstFile) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->changeStateOfFile(set->files()[0]);
    EXPECT_EQ(levelOf(*set), (Level{mixed, 2, 320, 1, 1000}));
    set->markAllFiles();
    EXPECT_EQ(marksOf(*set), (Marks{on, on, on}));
    EXPECT_EQ(levelOf(*set), (Level{on, 2, 320, 2, 320}));
}

TEST(Set, UnmarkingAllClearsEveryMark) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->changeStateOfFile(set->files()[0]);
    set->markAllFiles();
    set->unmarkAllFiles();
    EXPECT_EQ(marksOf(*set), (Marks{off, off, off}));
    EXPECT_EQ(levelOf(*set), (Level{off, 2, 320, 0, 0}));
}

TEST(Set, TogglingMarksAndUnmarksOneFile) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(marksOf(*set), (Marks{off, on, off}));
    EXPECT_EQ(levelOf(*set), (Level{mixed, 2, 320, 1, 20}));
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(marksOf(*set), (Marks{off, off, off}));
    EXPECT_EQ(levelOf(*set), (Level{off, 2, 320, 0, 0}));
}

TEST(Set, IsOnIfExactlyOneFileIsUnmarked) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->changeStateOfFile(set->files()[0]);
    set->changeStateOfFile(set->files()[2]);
    EXPECT_EQ(marksOf(*set), (Marks{on, off, on}));
    EXPECT_EQ(levelOf(*set), (Level{on, 2, 320, 2, 1300}));
}

TEST(Set, TogglingCanMarkTheLastFileWhichTurnsItOff) {
    const auto set = makeSet("f", {1000, 20, 300});
    for (const auto& file : set->files()) {
        set->changeStateOfFile(file);
    }
    EXPECT_EQ(marksOf(*set), (Marks{on, on, on}));
    EXPECT_EQ(levelOf(*set), (Level{off, 2, 320, 3, 1320}));
    EXPECT_EQ(set->determineSelfState(), off);
}

TEST(Set, UnmarkingAnUncountedMarkStopsAtZero) {
    const auto set = makeSet("f", {10});
    set->changeStateOfFile(set->files()[0]);
    set->markAllFiles();
    ASSERT_EQ(marksOf(*set), (Marks{on}));
    ASSERT_EQ(levelOf(*set), (Level{on, 0, 0, 0, 0}));
    set->changeStateOfFile(set->files()[0]);
    EXPECT_EQ(marksOf(*set), (Marks{off}));
    EXPECT_EQ(levelOf(*set), (Level{off, 0, 0, 0, 0}));
}

TEST(Set, UnmarkingAnUncountedMarkSubtractsItFromTheOthers) {
    const auto set = makeSet("f", {10, 10, 10});
    set->changeStateOfFile(set->files()[0]);
    set->markAllFiles();
    set->changeStateOfFile(set->files()[0]);
    EXPECT_EQ(marksOf(*set), (Marks{off, on, on}));
    EXPECT_EQ(levelOf(*set), (Level{mixed, 2, 20, 1, 10}));
}

TEST(Set, TogglingTreatsAnyStateButOffAsMarked) {
    const auto set = makeSet("f", {10, 10, 10});
    set->markAllFiles();
    set->files()[1]->setState(unexpected);
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(marksOf(*set), (Marks{off, off, on}));
    EXPECT_EQ(levelOf(*set), (Level{mixed, 2, 20, 1, 10}));
}

struct StateRow {
    std::size_t files;
    std::uint64_t marked;
    CheckState state;
};

void PrintTo(const StateRow& row, std::ostream* out) {
    *out << row.files << " files " << row.marked << " marked";
}

class SetState : public testing::TestWithParam<StateRow> {};

TEST_P(SetState, FollowsFromTheCounterAndTheNumberOfFiles) {
    Set set;
    for (std::size_t i = 0; i < GetParam().files; ++i) {
        set.addFiles(FileStore::standalone(numbered("/f", i), 1));
    }
    set.setTotalFilesSelectedInSet(GetParam().marked);
    EXPECT_EQ(set.determineSelfState(), GetParam().state);
    EXPECT_EQ(set.setsState(), off) << "asking must not change the state";
}

INSTANTIATE_TEST_SUITE_P(Table, SetState,
                         testing::Values(StateRow{0, 0, off}, StateRow{0, 5, mixed},
                                         StateRow{0, wrapped, on}, StateRow{1, 0, off},
                                         StateRow{1, 1, off}, StateRow{2, 0, off},
                                         StateRow{2, 1, on}, StateRow{2, 2, off},
                                         StateRow{3, 0, off}, StateRow{3, 1, mixed},
                                         StateRow{3, 2, on}, StateRow{3, 3, off},
                                         StateRow{3, 4, off}, StateRow{3, wrapped, off}));

TEST(Set, RemovingMovesTheMarkedFilesInOrder) {
    const auto set = makeSet("f", {1000, 20, 300, 4});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->changeStateOfFile(set->files()[0]);
    set->changeStateOfFile(set->files()[3]);
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{2, 1004}));
    EXPECT_EQ(trash.attempts(), (Paths{"/f0", "/f3"}));
    EXPECT_EQ(pathsOf(*set), (Paths{"/f1", "/f2"}));
}

TEST(Set, RemovingLowersAllFourCounters) {
    const auto set = makeSet("f", {10, 20, 30});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{1, 20}));
    EXPECT_EQ(levelOf(*set), (Level{off, 1, 30, 0, 0}));
}

TEST(Set, RemovingAllCopiesKeepsTheSetWithOneFile) {
    const auto set = makeSet("f", {10, 10, 10});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->markAllFiles();
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{2, 20}));
    EXPECT_EQ(pathsOf(*set), (Paths{"/f0"}));
    EXPECT_EQ(levelOf(*set), (Level{off, 0, 0, 0, 0}));
}

TEST(Set, KeepsARefusedFileMarkedAndCounted) {
    const auto set = makeSet("f", {1000, 20, 300, 4});
    RecordingTrash trash;
    addAllTo(trash, *set);
    trash.refuse("/f2");
    set->markAllFiles();
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{2, 24}));
    EXPECT_EQ(trash.attempts(), (Paths{"/f1", "/f2", "/f3"}));
    EXPECT_EQ(pathsOf(*set), (Paths{"/f0", "/f2"}));
    EXPECT_EQ(marksOf(*set), (Marks{off, on}));
    EXPECT_EQ(levelOf(*set), (Level{on, 1, 300, 1, 300}));
}

TEST(Set, KeepsAMissingFileMarkedAndCounted) {
    const auto set = makeSet("f", {10, 20, 30});
    RecordingTrash trash;
    addAllTo(trash, *set);
    trash.vanish("/f1");
    set->markAllFiles();
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{1, 30}));
    EXPECT_EQ(trash.attempts(), (Paths{"/f2"}));
    EXPECT_EQ(pathsOf(*set), (Paths{"/f0", "/f1"}));
    EXPECT_EQ(levelOf(*set), (Level{on, 1, 20, 1, 20}));
}

TEST(Set, ChangesNothingWhenEveryMoveFails) {
    const auto set = makeSet("f", {10, 20, 30, 40});
    RecordingTrash trash;
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{0, 0}));
    EXPECT_EQ(pathsOf(*set), (Paths{"/f0", "/f1", "/f2", "/f3"}));
    EXPECT_EQ(levelOf(*set), (Level{mixed, 3, 90, 1, 20}));
}

TEST(Set, RemovingWithoutMarksMovesNothingAndUpdatesTheState) {
    const auto set = makeSet("f", {10});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->markAllFiles();
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{0, 0}));
    EXPECT_TRUE(trash.attempts().empty());
    EXPECT_EQ(levelOf(*set), (Level{off, 0, 0, 0, 0}));
}

TEST(Set, RemainingFilesKeepTheirIndex) {
    const auto set = makeSet("f", {10, 10, 10});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->changeStateOfFile(set->files()[0]);
    set->removeSelectedFilesInSet(trash);
    ASSERT_EQ(set->files().size(), 2u);
    EXPECT_EQ(set->files()[0]->index(), 1);
    EXPECT_EQ(set->files()[1]->index(), 2);
}

TEST(Set, RemovingMovesUncountedMarksAndStopsAtZero) {
    const auto set = makeSet("f", {1000, 20, 300});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->changeStateOfFile(set->files()[0]);
    set->markAllFiles();
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{3, 1320}));
    EXPECT_TRUE(set->files().empty());
    EXPECT_EQ(levelOf(*set), (Level{off, 0, 0, 0, 0}));
}

TEST(Set, RemovesEveryOccurrenceOfAMovedFile) {
    Set set;
    const auto file = FileStore::standalone("/a", 10);
    const auto other = FileStore::standalone("/b", 10);
    file->setState(on);
    set.setFiles({file, other, file});
    RecordingTrash trash;
    trash.addExisting("/a");
    EXPECT_EQ(set.removeSelectedFilesInSet(trash), (RemovalResult{1, 10}));
    EXPECT_EQ(pathsOf(set), (Paths{"/b"}));
}

TEST(Set, ExcludingRemovesTheMarkedFilesInOrder) {
    const auto set = makeSet("f", {1000, 20, 300, 4});
    set->changeStateOfFile(set->files()[3]);
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(set->addSelectedFilesInSetToException(), (Paths{"/f1", "/f3"}));
    EXPECT_EQ(pathsOf(*set), (Paths{"/f0", "/f2"}));
}

TEST(Set, ExcludingLowersTheMarkedCountersButNotTheTotals) {
    const auto set = makeSet("f", {1000, 20, 300});
    set->markAllFiles();
    EXPECT_EQ(set->addSelectedFilesInSetToException(), (Paths{"/f1", "/f2"}));
    EXPECT_EQ(levelOf(*set), (Level{off, 2, 320, 0, 0}));
}

TEST(Set, ExcludingWithoutMarksReturnsNothing) {
    const auto set = makeSet("f", {10, 10});
    EXPECT_TRUE(set->addSelectedFilesInSetToException().empty());
    EXPECT_EQ(levelOf(*set), (Level{off, 1, 10, 0, 0}));
}

TEST(Set, ExcludingEveryFileLeavesAnEmptySetThatIsOff) {
    const auto set = makeSet("f", {10, 20});
    set->changeStateOfFile(set->files()[0]);
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(set->addSelectedFilesInSetToException(), (Paths{"/f0", "/f1"}));
    EXPECT_TRUE(set->files().empty());
    EXPECT_EQ(levelOf(*set), (Level{off, 1, 20, 0, 0}));
}

TEST(Set, ExcludingAnUncountedMarkStopsAtZero) {
    const auto set = makeSet("f", {1000, 20});
    set->changeStateOfFile(set->files()[0]);
    set->markAllFiles();
    EXPECT_EQ(set->addSelectedFilesInSetToException(), (Paths{"/f0", "/f1"}));
    EXPECT_EQ(levelOf(*set), (Level{off, 1, 20, 0, 0}));
}

TEST(Set, CountsFromZeroAfterAnUncountedMark) {
    const auto set = makeSet("f", {10, 10, 10, 10});
    RecordingTrash trash;
    addAllTo(trash, *set);
    set->changeStateOfFile(set->files()[0]);
    set->markAllFiles();
    set->changeStateOfFile(set->files()[0]);
    // Three files are marked, and two are counted.
    EXPECT_EQ(set->removeSelectedFilesInSet(trash), (RemovalResult{3, 30}));
    EXPECT_EQ(levelOf(*set), (Level{off, 0, 0, 0, 0}));
    set->changeStateOfFile(set->files()[0]);
    EXPECT_EQ(levelOf(*set), (Level{off, 0, 0, 1, 10}));
}

TEST(Set, KeepsAnInvalidStateUntilTheNextOperation) {
    const auto set = makeSet("f", {10, 10});
    set->setSetsState(unexpected);
    EXPECT_EQ(set->setsState(), unexpected);
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(set->setsState(), on);
}

TEST(Set, CopiesTakeTheSizeOfAllFilesButOne) {
    Set set;
    EXPECT_EQ(set.sizeOfCopies(), 0U);
    set.addFiles(FileStore::standalone("/a", 10));
    EXPECT_EQ(set.sizeOfCopies(), 0U);
    set.addFiles(FileStore::standalone("/b", 10));
    set.addFiles(FileStore::standalone("/c", 10));
    EXPECT_EQ(set.sizeOfCopies(), 20U);
}

TEST(Set, CopiesTakeAtMostWhatFitsInto64Bits) {
    Set set;
    for (const char* const path : {"/a", "/b", "/c"}) {
        set.addFiles(FileStore::standalone(path, 9'223'372'036'854'775'808U));
    }
    EXPECT_EQ(set.sizeOfCopies(), 18'446'744'073'709'551'615U);
}

}  // namespace
}  // namespace tarvin
