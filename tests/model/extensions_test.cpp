#include "model/extensions.h"

#include "model/result_tree.h"
#include "support/recording_trash.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;
using Marks = std::vector<CheckState>;

/// Two sets of three files, of 10 and 100 bytes each.
struct TwoSets {
    std::shared_ptr<Set> small = makeSet("s", {10, 10, 10});
    std::shared_ptr<Set> large = makeSet("l", {100, 100, 100});
    std::shared_ptr<Extensions> extension = makeExtension("jpg", {small, large});

    RecordingTrash trash;

    TwoSets() {
        for (const auto& set : extension->sets()) {
            for (const std::string& path : pathsOf(*set)) {
                trash.addExisting(path);
            }
        }
    }
};

TEST(Extensions, StartsEmptyAndOffWithItsName) {
    const Extensions extension("jpg");
    EXPECT_EQ(extension.name(), "jpg");
    EXPECT_EQ(extension.nummberOfSets(), 0u);
    EXPECT_TRUE(extension.sets().empty());
    EXPECT_EQ(levelOf(extension), (Level{off, 0, 0, 0, 0}));
}

TEST(Extensions, AddingASetChangesNoCounter) {
    Extensions extension("jpg");
    const auto set = makeSet("f", {10, 10});
    set->markAllFiles();
    extension.addSet(set);
    EXPECT_EQ(extension.sets(), (std::vector{set}));
    EXPECT_EQ(extension.nummberOfSets(), 1u);
    EXPECT_EQ(levelOf(extension), (Level{off, 0, 0, 0, 0}));
}

TEST(Extensions, SettersStoreTheirValues) {
    Extensions extension("jpg");
    extension.setName("png");
    extension.setTotalFilesInExtension(1);
    extension.setTotalFilesInExtensionSize(2);
    extension.setTotalFilesSelectedInExtension(3);
    extension.setTotalFilesSelectedInExtensionSize(4);
    extension.setExtensionState(mixed);
    EXPECT_EQ(extension.name(), "png");
    EXPECT_EQ(levelOf(extension), (Level{mixed, 1, 2, 3, 4}));
}

TEST(Extensions, MarkingAllMarksTheCopiesOfEverySet) {
    TwoSets tree;
    tree.extension->markAllSet();
    EXPECT_EQ(marksOf(*tree.small), (Marks{off, on, on}));
    EXPECT_EQ(marksOf(*tree.large), (Marks{off, on, on}));
    EXPECT_EQ(levelOf(*tree.small), (Level{on, 2, 20, 2, 20}));
    EXPECT_EQ(levelOf(*tree.large), (Level{on, 2, 200, 2, 200}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 4, 220, 4, 220}));
}

TEST(Extensions, UnmarkingAllClearsEverySet) {
    TwoSets tree;
    tree.extension->markAllSet();
    tree.extension->unmarkAllSet();
    EXPECT_EQ(marksOf(*tree.small), (Marks{off, off, off}));
    EXPECT_EQ(levelOf(*tree.large), (Level{off, 2, 200, 0, 0}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 0, 0}));
}

TEST(Extensions, WithoutSetsMarkingAndUnmarkingSetTheState) {
    Extensions extension("jpg");
    extension.markAllSet();
    EXPECT_EQ(levelOf(extension), (Level{on, 0, 0, 0, 0}));
    extension.unmarkAllSet();
    EXPECT_EQ(levelOf(extension), (Level{off, 0, 0, 0, 0}));
}

TEST(Extensions, WithoutSetsKeepsItsCountersWhenAllAreUnmarked) {
    Extensions extension("jpg");
    extension.setTotalFilesSelectedInExtension(3);
    extension.setTotalFilesSelectedInExtensionSize(30);
    extension.unmarkAllSet();
    EXPECT_EQ(levelOf(extension), (Level{off, 0, 0, 3, 30}));
    extension.markAllSet();
    EXPECT_EQ(levelOf(extension), (Level{on, 0, 0, 0, 0}));
}

TEST(Extensions, TogglingMarksAllWhenOff) {
    TwoSets tree;
    tree.extension->changeState();
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 4, 220, 4, 220}));
}

TEST(Extensions, TogglingMarksAllWhenMixed) {
    TwoSets tree;
    tree.extension->changeStateOfSet(tree.small);
    ASSERT_EQ(tree.extension->extensionState(), mixed);
    tree.extension->changeState();
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 4, 220, 4, 220}));
}

TEST(Extensions, TogglingUnmarksAllWhenOn) {
    TwoSets tree;
    tree.extension->markAllSet();
    tree.extension->changeState();
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 0, 0}));
    EXPECT_EQ(marksOf(*tree.large), (Marks{off, off, off}));
}

TEST(Extensions, TogglingDoesNothingInAnInvalidState) {
    TwoSets tree;
    tree.extension->changeStateOfSet(tree.small);
    tree.extension->setExtensionState(unexpected);
    tree.extension->changeState();
    EXPECT_EQ(levelOf(*tree.extension), (Level{unexpected, 4, 220, 2, 20}));
    EXPECT_EQ(marksOf(*tree.large), (Marks{off, off, off}));
}

TEST(Extensions, TogglingASetMarksItsCopiesWhenOff) {
    TwoSets tree;
    tree.extension->changeStateOfSet(tree.large);
    EXPECT_EQ(levelOf(*tree.large), (Level{on, 2, 200, 2, 200}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 4, 220, 2, 200}));
}

TEST(Extensions, TogglingASetMarksItsCopiesWhenMixed) {
    TwoSets tree;
    tree.extension->changeStateOfFile(tree.large->files()[2], tree.large);
    ASSERT_EQ(tree.large->setsState(), mixed);
    tree.extension->changeStateOfSet(tree.large);
    EXPECT_EQ(levelOf(*tree.large), (Level{on, 2, 200, 2, 200}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 4, 220, 2, 200}));
}

TEST(Extensions, TogglingASetUnmarksItWhenOn) {
    TwoSets tree;
    tree.extension->markAllSet();
    tree.extension->changeStateOfSet(tree.large);
    EXPECT_EQ(levelOf(*tree.large), (Level{off, 2, 200, 0, 0}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 4, 220, 2, 20}));
}

TEST(Extensions, TogglingASetInAnInvalidStateUpdatesTheExtension) {
    TwoSets tree;
    tree.extension->markAllSet();
    tree.large->setSetsState(unexpected);
    tree.extension->changeStateOfSet(tree.large);
    EXPECT_EQ(levelOf(*tree.large), (Level{unexpected, 2, 200, 2, 200}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 4, 220, 4, 220}));
}

TEST(Extensions, TogglingTheLastSetTurnsItOn) {
    TwoSets tree;
    tree.extension->changeStateOfSet(tree.small);
    tree.extension->changeStateOfSet(tree.large);
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 4, 220, 4, 220}));
}

TEST(Extensions, TogglingAFileUpdatesItsSet) {
    TwoSets tree;
    tree.extension->changeStateOfFile(tree.large->files()[1], tree.large);
    EXPECT_EQ(levelOf(*tree.large), (Level{mixed, 2, 200, 1, 100}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 4, 220, 1, 100}));
    tree.extension->changeStateOfFile(tree.large->files()[1], tree.large);
    EXPECT_EQ(levelOf(*tree.large), (Level{off, 2, 200, 0, 0}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 0, 0}));
}

TEST(Extensions, WithoutSetsReportsOn) {
    Extensions extension("jpg");
    extension.setTotalFilesSelectedInExtension(5);
    extension.setTotalFilesSelectedInExtensionSize(50);
    EXPECT_EQ(extension.determineSelfState(), on);
    EXPECT_EQ(levelOf(extension), (Level{off, 0, 0, 0, 0})) << "the state is the caller's to set";
}

struct StatesRow {
    std::vector<CheckState> sets;
    CheckState state;
};

void PrintTo(const StatesRow& row, std::ostream* out) {
    *out << "sets";
    for (const CheckState state : row.sets) {
        *out << ' ' << static_cast<int>(state);
    }
}

class ExtensionsState : public testing::TestWithParam<StatesRow> {};

TEST_P(ExtensionsState, FollowsFromTheStatesOfTheSets) {
    Extensions extension("jpg");
    for (const CheckState state : GetParam().sets) {
        extension.addSet(makeSet("f", {1, 1}));
        extension.sets().back()->setSetsState(state);
    }
    EXPECT_EQ(extension.determineSelfState(), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(Table, ExtensionsState,
                         testing::Values(StatesRow{{}, on}, StatesRow{{off}, off},
                                         StatesRow{{mixed}, on}, StatesRow{{on}, on},
                                         StatesRow{{on, on}, on}, StatesRow{{on, mixed}, on},
                                         StatesRow{{mixed, mixed}, on}, StatesRow{{on, off}, mixed},
                                         StatesRow{{off, mixed}, mixed}, StatesRow{{off, off}, off},
                                         StatesRow{{on, mixed, off}, mixed},
                                         StatesRow{{unexpected}, off},
                                         StatesRow{{unexpected, on}, mixed}));

TEST(Extensions, DetermineSelfStateSumsTheMarks) {
    TwoSets tree;
    tree.small->setTotalFilesSelectedInSet(3);
    tree.small->setTotalFilesSelectedInSetSize(30);
    tree.large->setTotalFilesSelectedInSet(4);
    tree.large->setTotalFilesSelectedInSetSize(400);
    EXPECT_EQ(tree.extension->determineSelfState(), off);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 7, 430}));
}

TEST(Extensions, SumsOfMarksWrap) {
    TwoSets tree;
    tree.small->setTotalFilesSelectedInSet(std::numeric_limits<std::uint64_t>::max());
    tree.large->setTotalFilesSelectedInSet(3);
    tree.extension->determineSelfState();
    EXPECT_EQ(tree.extension->totalFilesSelectedInExtension(), 2u);
}

TEST(Extensions, SumsFollowDirectChangesOfASet) {
    TwoSets tree;
    tree.small->markAllFiles();
    tree.large->changeStateOfFile(tree.large->files()[1]);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 0, 0})) << "not before it is asked";
    EXPECT_EQ(tree.extension->determineSelfState(), on);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 3, 120}));

    tree.small->unmarkAllFiles();
    EXPECT_EQ(tree.extension->determineSelfState(), mixed);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 1, 100}));

    tree.large->addSelectedFilesInSetToException();
    EXPECT_EQ(tree.extension->determineSelfState(), off);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 0, 0}));
}

TEST(Extensions, CountsTheMarksOfAnAddedSet) {
    Extensions extension("jpg");
    const auto set = makeSet("f", {10, 20, 30});
    set->markAllFiles();
    extension.addSet(set);
    EXPECT_EQ(extension.determineSelfState(), on);
    EXPECT_EQ(levelOf(extension), (Level{off, 0, 0, 2, 50}));
}

TEST(Extensions, RemovingLowersAllFourCounters) {
    TwoSets tree;
    tree.extension->markAllSet();
    EXPECT_EQ(tree.extension->removeSelectedFilesInSet(tree.large, tree.trash),
              (RemovalResult{2, 200}));
    EXPECT_EQ(tree.trash.moves(), (Paths{"/l1", "/l2"}));
    EXPECT_EQ(levelOf(*tree.large), (Level{off, 0, 0, 0, 0}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 2, 20, 2, 20}));
    EXPECT_EQ(tree.extension->nummberOfSets(), 2u) << "a set stays when its copies have gone";
}

TEST(Extensions, RemovingKeepsRefusedFilesCounted) {
    TwoSets tree;
    tree.trash.refuse("/l1");
    tree.extension->markAllSet();
    EXPECT_EQ(tree.extension->removeSelectedFilesInSet(tree.large, tree.trash),
              (RemovalResult{1, 100}));
    EXPECT_EQ(levelOf(*tree.large), (Level{on, 1, 100, 1, 100}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 3, 120, 3, 120}));
}

TEST(Extensions, RemovingKeepsAnExistingErrorOfTheTotals) {
    TwoSets tree;
    tree.extension->setTotalFilesInExtension(1004);
    tree.extension->setTotalFilesInExtensionSize(5220);
    tree.extension->markAllSet();
    tree.extension->removeSelectedFilesInSet(tree.small, tree.trash);
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 1002, 5200, 2, 200}));
}

TEST(Extensions, ExcludingLowersTheMarksButNotTheTotals) {
    TwoSets tree;
    tree.extension->markAllSet();
    EXPECT_EQ(tree.extension->addSelectedFilesInExtensionToExceptionOfSet(tree.small),
              (Paths{"/s1", "/s2"}));
    EXPECT_EQ(levelOf(*tree.small), (Level{off, 2, 20, 0, 0}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{mixed, 4, 220, 2, 200}));
}

TEST(Extensions, ReplacingTheSetsChangesNoCounter) {
    TwoSets tree;
    tree.extension->markAllSet();
    const auto other = makeSet("o", {1, 1});
    tree.extension->setSets({other, tree.small});
    EXPECT_EQ(tree.extension->sets(), (std::vector{other, tree.small}));
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 4, 220, 4, 220}));
    EXPECT_EQ(tree.extension->determineSelfState(), mixed);
    EXPECT_EQ(levelOf(*tree.extension), (Level{on, 4, 220, 2, 20}));
}

TEST(Extensions, ReplacedSetsNoLongerCount) {
    TwoSets tree;
    tree.extension->setSets({tree.small});
    tree.large->markAllFiles();
    EXPECT_EQ(tree.extension->determineSelfState(), off);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 0, 0}));
}

TEST(Extensions, AdoptsASetReleasedByItsFormerExtension) {
    TwoSets tree;
    tree.small->markAllFiles();
    tree.extension->setSets({});
    Extensions heir("jpeg");
    heir.addSet(tree.small);
    tree.small->changeStateOfFile(tree.small->files()[1]);
    EXPECT_EQ(heir.determineSelfState(), on);
    EXPECT_EQ(levelOf(heir), (Level{off, 0, 0, 1, 10}));
    EXPECT_EQ(tree.extension->determineSelfState(), on);
    EXPECT_EQ(tree.extension->totalFilesSelectedInExtension(), 0u);
}

TEST(Extensions, SetsMayOutliveTheirExtension) {
    TwoSets tree;
    tree.extension->markAllSet();
    tree.extension.reset();
    tree.small->unmarkAllFiles();
    tree.large->changeStateOfFile(tree.large->files()[1]);
    EXPECT_EQ(levelOf(*tree.small), (Level{off, 2, 20, 0, 0}));
    EXPECT_EQ(levelOf(*tree.large), (Level{mixed, 2, 200, 1, 100}));

    Extensions heir("jpeg");
    heir.addSet(tree.large);
    EXPECT_EQ(heir.determineSelfState(), on);
    EXPECT_EQ(levelOf(heir), (Level{off, 0, 0, 1, 100}));
}

TEST(Extensions, SumsAreCorrectWithASetOfAnotherExtension) {
    TwoSets tree;
    const auto own = makeSet("o", {1, 1, 1});
    Extensions guest("jpeg");
    guest.addSet(own);
    guest.addSet(tree.small);

    guest.changeStateOfSet(tree.small);
    EXPECT_EQ(levelOf(guest), (Level{mixed, 0, 0, 2, 20}));
    EXPECT_EQ(tree.extension->determineSelfState(), mixed);
    EXPECT_EQ(tree.extension->totalFilesSelectedInExtension(), 2u);

    tree.extension.reset();
    guest.changeStateOfFile(tree.small->files()[2], tree.small);
    EXPECT_EQ(levelOf(guest), (Level{mixed, 0, 0, 1, 10}));
}

TEST(Extensions, SetOfAnotherExtensionStaysWithItsOwner) {
    TwoSets tree;
    auto guest = std::make_shared<Extensions>("jpeg");
    guest->addSet(tree.small);
    guest->setSets({tree.large});
    guest.reset();
    tree.small->markAllFiles();
    tree.large->markAllFiles();
    EXPECT_EQ(tree.extension->determineSelfState(), on);
    EXPECT_EQ(levelOf(*tree.extension), (Level{off, 4, 220, 4, 220}));
}

TEST(Extensions, CountsASetThatItListsTwiceTwice) {
    const auto set = makeSet("f", {10, 10, 10});
    Extensions extension("jpg");
    extension.addSet(set);
    extension.addSet(set);
    extension.changeStateOfSet(set);
    EXPECT_EQ(levelOf(extension), (Level{on, 0, 0, 4, 40}));
    extension.setSets({set});
    EXPECT_EQ(extension.determineSelfState(), on);
    EXPECT_EQ(levelOf(extension), (Level{on, 0, 0, 2, 20}));
}

}  // namespace
}  // namespace tarvin
