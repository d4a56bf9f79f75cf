#include "model/modal.h"

#include "model/result_tree.h"
#include "support/recording_trash.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;
using Marks = std::vector<CheckState>;

/// Two categories and their joined list. Images: "jpg" with a set of three files of 10 bytes and a
/// set of two of 100. Documents: "txt" with a set of three files of 1000 bytes.
struct Lists {
    std::shared_ptr<Set> three = makeSet("three", {10, 10, 10});
    std::shared_ptr<Set> two = makeSet("two", {100, 100});
    std::shared_ptr<Set> text = makeSet("text", {1000, 1000, 1000});
    std::shared_ptr<Extensions> jpg = makeExtension("jpg", {three, two});
    std::shared_ptr<Extensions> txt = makeExtension("txt", {text});
    Modal images;
    Modal documents;
    Modal all;
    RecordingTrash trash;

    Lists() {
        fill(images, {jpg});
        fill(documents, {txt});
        all.addExtensionFromArray(images.extensions());
        all.addExtensionFromArray(documents.extensions());
        all.setTotalFiles(images.totalFiles() + documents.totalFiles());
        all.setTotalFilesSize(images.totalFilesSize() + documents.totalFilesSize());
        for (const auto& set : {three, two, text}) {
            for (const std::string& path : pathsOf(*set)) {
                trash.addExisting(path);
            }
        }
    }
};

TEST(Modal, StartsEmpty) {
    const Modal modal;
    EXPECT_EQ(modal.extensionCount(), 0u);
    EXPECT_TRUE(modal.extensions().empty());
    EXPECT_EQ(levelOf(modal), (Level{off, 0, 0, 0, 0}));
}

TEST(Modal, AddingExtensionsKeepsTheirOrderAndChangesNoCounter) {
    Lists lists;
    Modal modal;
    modal.addExtension(lists.txt);
    modal.addExtension(lists.jpg);
    EXPECT_EQ(modal.extensions(), (std::vector{lists.txt, lists.jpg}));
    EXPECT_EQ(modal.extensionCount(), 2u);
    EXPECT_EQ(levelOf(modal), (Level{off, 0, 0, 0, 0}));
}

TEST(Modal, AddingAnArrayAppendsEveryElementInOrder) {
    Lists lists;
    const auto png = makeExtension("png", {});
    Modal modal;
    modal.addExtension(png);
    modal.addExtensionFromArray(lists.all.extensions());
    EXPECT_EQ(modal.extensions(), (std::vector{png, lists.jpg, lists.txt}));
    EXPECT_EQ(levelOf(modal), (Level{off, 0, 0, 0, 0}));
}

TEST(Modal, AppendsItsOwnArray) {
    Lists lists;
    lists.all.addExtensionFromArray(lists.all.extensions());
    EXPECT_EQ(lists.all.extensions(), (std::vector{lists.jpg, lists.txt, lists.jpg, lists.txt}));
}

TEST(Modal, ReturnsTheListByReference) {
    Lists lists;
    EXPECT_EQ(&lists.all.extensions(), &lists.all.extensions());
    EXPECT_EQ(&lists.all.extensions(), &lists.all.extensionsArray());
}

TEST(Modal, SettersStoreTheirValues) {
    Modal modal;
    modal.setTotalFiles(1);
    modal.setTotalFilesSize(2);
    modal.setTotalFilesSelected(3);
    modal.setTotalFilesSelectedSize(4);
    EXPECT_EQ(levelOf(modal), (Level{off, 1, 2, 3, 4}));
}

TEST(Modal, FindsAnExtensionByItsExactName) {
    Lists lists;
    EXPECT_EQ(lists.all.getExtensionWithName("jpg"), lists.jpg);
    EXPECT_EQ(lists.all.getExtensionWithName("txt"), lists.txt);
    EXPECT_EQ(lists.all.getExtensionWithName("JPG"), nullptr);
    EXPECT_EQ(lists.all.getExtensionWithName("jp"), nullptr);
    EXPECT_EQ(lists.all.getExtensionWithName(""), nullptr);
    EXPECT_EQ(lists.images.getExtensionWithName("txt"), nullptr);
}

TEST(Modal, FindsTheExtensionWithoutAName) {
    Modal modal;
    const auto nameless = makeExtension("", {});
    modal.addExtension(nameless);
    EXPECT_EQ(modal.getExtensionWithName(""), nameless);
}

TEST(Modal, FindsTheFirstExtensionOfAName) {
    Modal modal;
    const auto first = makeExtension("jpg", {});
    const auto second = makeExtension("jpg", {});
    fill(modal, {first, second});
    EXPECT_EQ(modal.getExtensionWithName("jpg"), first);
    modal.setExtensionsArray({second, first});
    EXPECT_EQ(modal.getExtensionWithName("jpg"), second);
}

TEST(Modal, FindsAnExtensionByItsNewName) {
    Lists lists;
    lists.jpg->setName("txt");
    EXPECT_EQ(lists.all.getExtensionWithName("jpg"), nullptr);
    EXPECT_EQ(lists.all.getExtensionWithName("txt"), lists.jpg);
    EXPECT_EQ(lists.images.getExtensionWithName("txt"), lists.jpg);
    EXPECT_EQ(lists.documents.getExtensionWithName("txt"), lists.txt);
}

TEST(Modal, FindsExtensionsAddedAfterARenaming) {
    Lists lists;
    lists.jpg->setName("png");
    const auto late = makeExtension("jpg", {});
    lists.all.addExtension(late);
    EXPECT_EQ(lists.all.getExtensionWithName("jpg"), late);
    EXPECT_EQ(lists.all.getExtensionWithName("png"), lists.jpg);
}

TEST(Modal, ReplacingTheArrayChangesNoCounterAndDropsOldNames) {
    Lists lists;
    const auto png = makeExtension("png", {});
    lists.all.setExtensionsArray({png, lists.txt});
    EXPECT_EQ(lists.all.extensionsArray(), (std::vector{png, lists.txt}));
    EXPECT_EQ(lists.all.getExtensionWithName("jpg"), nullptr);
    EXPECT_EQ(lists.all.getExtensionWithName("png"), png);
    EXPECT_EQ(lists.all.getExtensionWithName("txt"), lists.txt);
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 0, 0}));
}

TEST(Modal, MarkingAllMarksEveryCopyOnEveryLevel) {
    Lists lists;
    lists.all.markAllExtension();
    EXPECT_EQ(marksOf(*lists.three), (Marks{off, on, on}));
    EXPECT_EQ(marksOf(*lists.two), (Marks{off, on}));
    EXPECT_EQ(levelOf(*lists.two), (Level{on, 1, 100, 1, 100}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{on, 3, 120, 3, 120}));
    EXPECT_EQ(levelOf(*lists.txt), (Level{on, 2, 2000, 2, 2000}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 5, 2120}));
}

TEST(Modal, MarkingAllTwiceCountsOnce) {
    Lists lists;
    lists.all.markAllExtension();
    lists.all.markAllExtension();
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 5, 2120}));
}

TEST(Modal, UnmarkingAllClearsEveryLevel) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.jpg, lists.two, lists.two->files()[0]);
    lists.all.markAllExtension();
    lists.all.unmarkAllExtension();
    EXPECT_EQ(marksOf(*lists.two), (Marks{off, off}));
    EXPECT_EQ(levelOf(*lists.two), (Level{off, 1, 100, 0, 0}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{off, 3, 120, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 0, 0}));
}

TEST(Modal, TogglingAnExtensionUpdatesEveryLevel) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.jpg, nullptr, nullptr);
    EXPECT_EQ(levelOf(*lists.three), (Level{on, 2, 20, 2, 20}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{on, 3, 120, 3, 120}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 3, 120}));
    lists.all.changeStateOfExtension(lists.jpg, nullptr, nullptr);
    EXPECT_EQ(levelOf(*lists.jpg), (Level{off, 3, 120, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 0, 0}));
}

TEST(Modal, TogglingASetUpdatesEveryLevel) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.txt, lists.text, nullptr);
    lists.all.changeStateOfExtension(lists.jpg, lists.two, nullptr);
    EXPECT_EQ(levelOf(*lists.two), (Level{on, 1, 100, 1, 100}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{mixed, 3, 120, 1, 100}));
    EXPECT_EQ(levelOf(*lists.txt), (Level{on, 2, 2000, 2, 2000}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 3, 2100}));
    lists.all.changeStateOfExtension(lists.txt, lists.text, nullptr);
    EXPECT_EQ(levelOf(*lists.txt), (Level{off, 2, 2000, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 1, 100}));
}

TEST(Modal, TogglingAFileUpdatesEveryLevel) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.jpg, lists.three, lists.three->files()[2]);
    EXPECT_EQ(marksOf(*lists.three), (Marks{off, off, on}));
    EXPECT_EQ(levelOf(*lists.three), (Level{mixed, 2, 20, 1, 10}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{mixed, 3, 120, 1, 10}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 1, 10}));
    lists.all.changeStateOfExtension(lists.jpg, lists.three, lists.three->files()[2]);
    EXPECT_EQ(levelOf(*lists.jpg), (Level{off, 3, 120, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 0, 0}));
}

TEST(Modal, TogglingAnExtensionInAnInvalidStateChangesNothing) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.jpg, lists.two, nullptr);
    lists.jpg->setExtensionState(unexpected);
    lists.all.changeStateOfExtension(lists.jpg, nullptr, nullptr);
    EXPECT_EQ(levelOf(*lists.jpg), (Level{unexpected, 3, 120, 1, 100}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 1, 100}));
}

TEST(Modal, RemovingUpdatesEveryLevel) {
    Lists lists;
    lists.all.markAllExtension();
    EXPECT_EQ(lists.all.removeSelectedFilesInSet(lists.three, lists.jpg, lists.trash),
              (RemovalResult{2, 20}));
    EXPECT_EQ(lists.trash.moves(), (Paths{"/three1", "/three2"}));
    EXPECT_EQ(levelOf(*lists.three), (Level{off, 0, 0, 0, 0}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{mixed, 1, 100, 1, 100}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 3, 2100, 3, 2100}));
}

TEST(Modal, RemovingKeepsRefusedAndMissingFilesCounted) {
    Lists lists;
    lists.trash.refuse("/three1");
    lists.trash.vanish("/two1");
    lists.all.markAllExtension();
    EXPECT_EQ(lists.all.removeSelectedFilesInSet(lists.three, lists.jpg, lists.trash),
              (RemovalResult{1, 10}));
    EXPECT_EQ(lists.all.removeSelectedFilesInSet(lists.two, lists.jpg, lists.trash),
              (RemovalResult{0, 0}));
    EXPECT_EQ(levelOf(*lists.three), (Level{on, 1, 10, 1, 10}));
    EXPECT_EQ(levelOf(*lists.two), (Level{on, 1, 100, 1, 100}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{on, 2, 110, 2, 110}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 4, 2110, 4, 2110}));
}

TEST(Modal, RemovingAnUncountedMarkStopsAtZero) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.jpg, lists.two, lists.two->files()[0]);
    lists.all.markAllExtension();
    EXPECT_EQ(lists.all.removeSelectedFilesInSet(lists.two, lists.jpg, lists.trash),
              (RemovalResult{2, 200}));
    EXPECT_EQ(levelOf(*lists.two), (Level{off, 0, 0, 0, 0}));
    EXPECT_EQ(levelOf(*lists.jpg), (Level{mixed, 2, 20, 2, 20}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 4, 2020, 4, 2020}));
}

TEST(Modal, RemovingUncountedTotalsStopsAtZero) {
    Lists lists;
    lists.jpg->setTotalFilesInExtension(1);
    lists.jpg->setTotalFilesInExtensionSize(1);
    lists.all.setTotalFiles(0);
    lists.all.setTotalFilesSize(0);
    lists.all.removeSelectedFilesInSet(lists.two, lists.jpg, lists.trash);
    EXPECT_EQ(levelOf(*lists.jpg), (Level{off, 1, 100, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 1, 100, 0, 0}));
}

TEST(Modal, ExcludingLowersTheMarksButNotTheTotalsOnEveryLevel) {
    Lists lists;
    lists.all.markAllExtension();
    EXPECT_EQ(lists.all.addSelectedFilesToExceptionInSet(lists.text, lists.txt),
              (Paths{"/text1", "/text2"}));
    EXPECT_EQ(pathsOf(*lists.text), (Paths{"/text0"}));
    EXPECT_EQ(levelOf(*lists.text), (Level{off, 2, 2000, 0, 0}));
    EXPECT_EQ(levelOf(*lists.txt), (Level{off, 2, 2000, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 3, 120}));
}

TEST(Modal, MarkingThroughOneListIsVisibleInTheOther) {
    Lists lists;
    lists.all.changeStateOfExtension(lists.jpg, lists.three, nullptr);
    const auto& seen = lists.images.getExtensionWithName("jpg");
    ASSERT_EQ(seen, lists.jpg);
    EXPECT_EQ(levelOf(*seen), (Level{mixed, 3, 120, 2, 20}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 2, 20}));
    EXPECT_EQ(levelOf(lists.images), (Level{off, 3, 120, 0, 0})) << "its own totals go stale";
}

TEST(Modal, RemovingThroughOneListLeavesTheTotalsOfTheOtherStale) {
    Lists lists;
    lists.images.markAllExtension();
    lists.images.removeSelectedFilesInSet(lists.three, lists.jpg, lists.trash);
    EXPECT_EQ(pathsOf(*lists.all.extensions()[0]->sets()[0]), (Paths{"/three0"}));
    EXPECT_EQ(levelOf(lists.images), (Level{off, 1, 100, 1, 100}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 0, 0}));
}

TEST(Modal, CalculatingTheTotalsDoesNotUpdateStaleMarks) {
    Lists lists;
    lists.images.markAllExtension();
    lists.images.removeSelectedFilesInSet(lists.three, lists.jpg, lists.trash);
    lists.all.calculateTotalFilesAndSize();
    EXPECT_EQ(levelOf(lists.all), (Level{off, 3, 2100, 0, 0}));
    lists.all.setTotalFilesSelected(42);
    lists.all.setTotalFilesSelectedSize(43);
    lists.all.calculateTotalFilesAndSize();
    EXPECT_EQ(levelOf(lists.all), (Level{off, 3, 2100, 42, 43}));
}

TEST(Modal, SubtractingStaleMarksStopsAtZero) {
    Lists lists;
    lists.all.markAllExtension();
    lists.images.changeStateOfExtension(lists.jpg, nullptr, nullptr);
    EXPECT_EQ(levelOf(lists.images), (Level{off, 3, 120, 0, 0}));
    EXPECT_EQ(levelOf(lists.all), (Level{off, 5, 2120, 5, 2120}));
}

TEST(Modal, UnmarkingAllCorrectsStaleMarks) {
    Lists lists;
    lists.all.markAllExtension();
    lists.images.changeStateOfExtension(lists.jpg, nullptr, nullptr);
    lists.images.unmarkAllExtension();
    lists.images.changeStateOfExtension(lists.jpg, lists.two, nullptr);
    EXPECT_EQ(levelOf(lists.images), (Level{off, 3, 120, 1, 100}));
}

TEST(Modal, ExtensionsOutliveTheirLists) {
    auto jpg = makeExtension("jpg", {makeSet("f", {10, 10})});
    {
        Modal modal;
        fill(modal, {jpg});
        modal.markAllExtension();
    }
    jpg->changeState();
    EXPECT_EQ(levelOf(*jpg), (Level{off, 1, 10, 0, 0}));
}

}  // namespace
}  // namespace tarvin
