#include "controller/browse_history.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Levels = std::vector<std::string>;

/// The state of a history.
struct Position {
    std::int64_t current;
    std::int64_t parent;
    std::int64_t child;

    bool operator==(const Position&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Position& position) {
    return out << "current " << position.current << ", parent " << position.parent << ", child "
               << position.child;
}

Position positionOf(const BrowseHistory& history) {
    return {history.currentPath(), history.parentPath(), history.childPath()};
}

class History : public ::testing::Test {
 protected:
    History() { history_.enter(); }

    void open(const Levels& names) {
        for (const std::string& name : names) {
            history_.open(name);
        }
    }

    BrowseHistory history_;
};

TEST(EmptyHistory, IsAtTheTopLevel) {
    BrowseHistory history;
    EXPECT_TRUE(history.isAtTopLevel());
    EXPECT_FALSE(history.isBackEnabled());
    EXPECT_FALSE(history.isNextEnabled());
    EXPECT_FALSE(history.back());
    EXPECT_FALSE(history.next());
    EXPECT_EQ(positionOf(history), (Position{0, -1, -1}));
}

// Single events.

TEST_F(History, BeginsAtTheTopLevelWhenTheListIsEntered) {
    EXPECT_EQ(history_.folderBrowser(), Levels{"Default"});
    EXPECT_EQ(positionOf(history_), (Position{0, -1, -1}));
    EXPECT_EQ(history_.current(), "Default");
    EXPECT_TRUE(history_.isAtTopLevel());
}

TEST_F(History, MovesToANewFolderWithoutAChild) {
    open({"/u"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/u"}));
    EXPECT_EQ(positionOf(history_), (Position{1, 0, -1}));
    open({"/u/a"});
    EXPECT_EQ(positionOf(history_), (Position{2, 1, -1}));
    EXPECT_EQ(history_.current(), "/u/a");
    EXPECT_FALSE(history_.isAtTopLevel());
}

TEST_F(History, MovesToANewFolderWithAChildByOneMore) {
    open({"/mnt/v"});
    ASSERT_TRUE(history_.back());
    ASSERT_EQ(positionOf(history_), (Position{0, -1, 1}));
    // Deeper than what is in the history, so that nothing is dropped.
    open({"/home/u/Desktop"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/mnt/v", "/home/u/Desktop"}));
    EXPECT_EQ(positionOf(history_), (Position{2, 0, 2}));
}

TEST_F(History, MovesToTheLastEntryWhenAFolderIsOpenedAgain) {
    open({"/u", "/u/a", "/u/a/b"});
    open({"/u"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/u"}));
    EXPECT_EQ(positionOf(history_), (Position{1, 0, -1}));
}

TEST_F(History, MovesToTheLastEntryWhenEntriesWereDropped) {
    open({"/u", "/u/a", "/u/a/b"});
    ASSERT_TRUE(history_.back());
    ASSERT_TRUE(history_.back());
    ASSERT_EQ(positionOf(history_), (Position{1, 0, 2}));
    open({"/u/c"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/u", "/u/c"}));
    EXPECT_EQ(positionOf(history_), (Position{2, 1, -1}));
}

TEST_F(History, GoesBackToTheParent) {
    open({"/u", "/u/a"});
    EXPECT_TRUE(history_.back());
    EXPECT_EQ(positionOf(history_), (Position{1, 0, 2}));
    EXPECT_EQ(history_.current(), "/u");
    EXPECT_TRUE(history_.back());
    EXPECT_EQ(positionOf(history_), (Position{0, -1, 1}));
    EXPECT_TRUE(history_.isAtTopLevel());
}

TEST_F(History, GoesNoFurtherBackThanTheTopLevel) {
    open({"/u"});
    EXPECT_TRUE(history_.back());
    EXPECT_FALSE(history_.back());
    EXPECT_EQ(positionOf(history_), (Position{0, -1, 1}));
}

TEST_F(History, GoesForwardByOneMore) {
    open({"/u", "/u/a"});
    history_.back();
    history_.back();
    EXPECT_TRUE(history_.next());
    EXPECT_EQ(positionOf(history_), (Position{1, 0, 2}));
    EXPECT_TRUE(history_.next());
    EXPECT_EQ(positionOf(history_), (Position{2, 1, 3}));
    EXPECT_EQ(history_.current(), "/u/a");
}

TEST_F(History, GoesNoFurtherForwardThanItsLastEntry) {
    open({"/u"});
    EXPECT_FALSE(history_.next());
    history_.back();
    EXPECT_TRUE(history_.next());
    EXPECT_FALSE(history_.next());
    EXPECT_EQ(positionOf(history_), (Position{1, 0, 2}));
}

// Dropped entries.

TEST_F(History, DropsFoldersAsDeepAsTheNewOneOrDeeper) {
    open({"/a", "/a/b", "/a/b/c", "/x/y"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/a", "/x/y"}));
    EXPECT_EQ(positionOf(history_), (Position{2, 1, -1}));
}

TEST_F(History, NeverDropsTheTopLevel) {
    open({"/a/b", "/c"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/c"}));
    EXPECT_EQ(positionOf(history_), (Position{1, 0, -1}));
}

TEST_F(History, KeepsEntriesThatAreLessDeep) {
    open({"/mnt/v"});
    history_.back();
    open({"/home/u/Desktop", "/home/u/Desktop/a"});
    EXPECT_EQ(history_.folderBrowser(),
              (Levels{"Default", "/mnt/v", "/home/u/Desktop", "/home/u/Desktop/a"}));
}

TEST_F(History, KeepsTheRootFolderAboveItsFolders) {
    open({"/", "/home"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/", "/home"}));
    EXPECT_EQ(positionOf(history_), (Position{2, 1, -1}));
    open({"/"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/"}));
}

TEST_F(History, DropsEverythingForTheRootFolder) {
    open({"/a", "/a/b", "/"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/"}));
    EXPECT_EQ(positionOf(history_), (Position{1, 0, -1}));
}

TEST_F(History, ReturnsToAFolderAhead) {
    open({"/u", "/u/a", "/u/a/b"});
    history_.back();
    history_.back();
    open({"/u/a"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/u", "/u/a"}));
    EXPECT_EQ(positionOf(history_), (Position{2, 1, -1}));
}

TEST_F(History, GoesBackFromAFolderThatWasOpenedBesideAnother) {
    // The way back includes the folder that was left.
    open({"/mnt/v"});
    history_.back();
    open({"/home/u/Desktop"});
    EXPECT_TRUE(history_.back());
    EXPECT_EQ(positionOf(history_), (Position{0, -1, 2}));
    EXPECT_TRUE(history_.next());
    EXPECT_EQ(history_.current(), "/mnt/v");
    EXPECT_EQ(positionOf(history_), (Position{1, 0, 3}));
}

TEST_F(History, ComparesPathsByteForByte) {
    open({"/u/\xff", "/u/\xff/a"});
    open({"/u/\xff"});
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/u/\xff"}));
}

// Entering and leaving the list.

TEST_F(History, KeepsItsEntriesWhenTheListIsEnteredAgain) {
    open({"/u"});
    history_.enter();
    EXPECT_EQ(history_.folderBrowser(), (Levels{"Default", "/u", "Default"}));
    EXPECT_EQ(positionOf(history_), (Position{0, -1, -1}));
    EXPECT_TRUE(history_.isAtTopLevel());
}

TEST_F(History, ForgetsAllEntriesAtTheReset) {
    open({"/u", "/u/a"});
    history_.clear();
    EXPECT_EQ(history_.folderBrowser(), Levels{});
    EXPECT_TRUE(history_.isAtTopLevel());
    EXPECT_FALSE(history_.next());
    history_.enter();
    EXPECT_EQ(history_.folderBrowser(), Levels{"Default"});
    EXPECT_EQ(positionOf(history_), (Position{0, -1, -1}));
}

// The buttons.

TEST_F(History, OffersBackBelowTheTopLevel) {
    EXPECT_FALSE(history_.isBackEnabled());
    open({"/u"});
    EXPECT_TRUE(history_.isBackEnabled());
    history_.back();
    EXPECT_FALSE(history_.isBackEnabled());
}

TEST_F(History, OffersNextWhereThereIsAnEntryAhead) {
    EXPECT_FALSE(history_.isNextEnabled());
    open({"/u", "/u/a"});
    EXPECT_FALSE(history_.isNextEnabled());
    history_.back();
    EXPECT_TRUE(history_.isNextEnabled());
    history_.next();
    // The child's index is now past the last entry.
    EXPECT_EQ(history_.childPath(), 3);
    EXPECT_FALSE(history_.isNextEnabled());
}

TEST_F(History, KeepsItsIndicesIfTheLevelIsEmpty) {
    // The caller finds that "/u/a" no longer exists: the position is past the level shown.
    open({"/u", "/u/a", "/u/a/b"});
    history_.back();
    history_.back();
    history_.next();
    EXPECT_EQ(history_.current(), "/u/a");
    EXPECT_EQ(positionOf(history_), (Position{2, 1, 3}));
    // The next step starts from there.
    history_.next();
    EXPECT_EQ(history_.current(), "/u/a/b");
}

}  // namespace
}  // namespace tarvin
