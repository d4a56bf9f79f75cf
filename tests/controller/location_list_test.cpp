#include "controller/location_list.h"

#include "controller/rows.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;
using States = std::vector<bool>;

class LocationRows : public ::testing::Test {
 protected:
    LocationRows() {
        platform_.setMountedVolumes({{"/", "ext4", VolumeKind::internal},
                                     {"/media/ann/STICK", "vfat", VolumeKind::removable},
                                     {"/mnt/nas", "cifs", VolumeKind::network}});
        platform_.setUserFolder(UserFolder::desktop, "/home/ann/Desktop");
        platform_.setUserFolder(UserFolder::documents, "/home/ann/Documents");
        platform_.setUserFolder(UserFolder::pictures, "/home/ann/Pictures");
    }

    void enterFolderMode() {
        list_.setScanFolderClicked(true);
        list_.setInitialState();
    }

    /// Checked rows of folders of the tree.
    void addFolders(const Paths& names) {
        for (const std::string& name : names) {
            list_.addFolders({tree_.makeFolder(name)});
        }
    }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
    FakePlatform platform_{fileSystem_};
    LocationList list_{platform_};
};

class TopLevel : public LocationRows {};
class BrowsedFolder : public LocationRows {};
class CoveredPath : public LocationRows {};
class FilePanel : public LocationRows {};
class FolderPanel : public LocationRows {};
class OpenedFolders : public LocationRows {};
class CheckedRows : public LocationRows {};

/// Rows added at one level, while another one is shown in between.
class AddedRows : public LocationRows {
 protected:
    AddedRows() {
        tree_.makeFolder("top/inner");
        list_.setInitialState();
    }

    void goDownAndBack() {
        ASSERT_TRUE(list_.loadFolder(tree_.pathOf("top")));
        EXPECT_EQ(namesOf(list_), Paths{tree_.pathOf("top/inner")});
        list_.showTopLevel();
    }
};

TEST_F(TopLevel, IsTheVolumesInDriveMode) {
    list_.setInitialState();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
    EXPECT_FALSE(list_.scanFolderClicked());
}

TEST_F(TopLevel, BeginsWithTheUsersFoldersInFolderMode) {
    enterFolderMode();
    EXPECT_EQ(namesOf(list_), (Paths{"/home/ann/Desktop", "/home/ann/Documents",
                                     "/home/ann/Pictures", "/", "/media/ann/STICK"}));
}

TEST_F(TopLevel, HasUncheckedFolderRowsWithPictures) {
    enterFolderMode();
    Paths images;
    for (const LocationRow& row : list_.rows()) {
        EXPECT_TRUE(row.folder) << row.name;
        EXPECT_FALSE(row.state) << row.name;
        EXPECT_EQ(row.size, "") << row.name;
        images.push_back(row.image);
    }
    EXPECT_EQ(images, (Paths{"mymac.png", "folder.png", "folder.png", "g5_apple_drive.png",
                             "usb_drive.png"}));
    EXPECT_EQ(list_.imageNameOfPath("/media/ann/STICK"), "usb_drive.png");
    EXPECT_EQ(list_.imageNameOfPath("/mnt/nas"), "network_drive.png");
}

TEST_F(TopLevel, NeverHasAVolumeOfAnotherMachine) {
    list_.setInitialState();
    enterFolderMode();
    for (const std::string& name : namesOf(list_)) {
        EXPECT_NE(name, "/mnt/nas");
    }
}

TEST_F(TopLevel, HasNoUsersFolderOnAnotherMachine) {
    platform_.setNetworkFolder("/home/ann/Documents");
    enterFolderMode();
    EXPECT_EQ(namesOf(list_),
              (Paths{"/home/ann/Desktop", "/home/ann/Pictures", "/", "/media/ann/STICK"}));
}

TEST_F(TopLevel, LeavesOutUsersFoldersThatAreNotSetUp) {
    platform_.setUserFolder(UserFolder::desktop, std::nullopt);
    platform_.setUserFolder(UserFolder::pictures, std::nullopt);
    enterFolderMode();
    EXPECT_EQ(namesOf(list_), (Paths{"/home/ann/Documents", "/", "/media/ann/STICK"}));
}

TEST_F(TopLevel, MayBeEmpty) {
    platform_.setMountedVolumes({});
    list_.setInitialState();
    EXPECT_TRUE(list_.rows().empty());
}

TEST_F(TopLevel, ShowsTheVolumesThatAreThereAtEachEntry) {
    list_.setInitialState();
    platform_.setMountedVolumes(
        {{"/", "ext4", VolumeKind::internal}, {"/mnt/new", "xfs", VolumeKind::internal}});
    list_.showTopLevel();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/mnt/new"}));
}

TEST_F(TopLevel, IsAppended) {
    list_.setInitialState();
    list_.setInitialState();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK", "/", "/media/ann/STICK"}));
}

TEST_F(TopLevel, ShowsWhatWasCheckedBefore) {
    enterFolderMode();
    list_.checkButtonExactFirstpage(1, true);
    list_.showTopLevel();
    EXPECT_EQ(statesOf(list_), (States{false, true, false, false, false}));
}

TEST_F(BrowsedFolder, ReplacesTheRowsByItsFolders) {
    const std::string top = tree_.makeFolder("top");
    const std::string inner = tree_.makeFolder("top/inner");
    list_.setInitialState();
    EXPECT_TRUE(list_.loadFolder(top));
    ASSERT_EQ(list_.rows().size(), 1u);
    const LocationRow& row = list_.rows().front();
    EXPECT_EQ(row.name, inner);
    EXPECT_EQ(row.image, "");
    EXPECT_EQ(row.size, "");
    EXPECT_FALSE(row.state);
    EXPECT_TRUE(row.folder);
}

TEST_F(BrowsedFolder, LeavesTheRowsIfItHasNoFolders) {
    const std::string empty = tree_.makeFolder("empty");
    tree_.writeFile("empty/file");
    list_.setInitialState();
    EXPECT_FALSE(list_.loadFolder(empty));
    EXPECT_FALSE(list_.loadFolder(tree_.pathOf("missing")));
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
}

TEST_F(BrowsedFolder, LeavesTheRowsIfItCannotBeRead) {
    tree_.makeFolder("top/inner");
    list_.setInitialState();
    fileSystem_.failCall(FileCall::listEntries, FaultyFileSystem::each, EIO);
    EXPECT_FALSE(list_.loadFolder(tree_.pathOf("top")));
    EXPECT_EQ(list_.getFoldersAtPath(tree_.pathOf("top")), Paths{});
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
}

TEST_F(BrowsedFolder, LeavesTheRowsIfItHasVanished) {
    const std::string stick = tree_.makeFolder("stick");
    tree_.makeFolder("stick/photos");
    platform_.setMountedVolumes({{stick, "vfat", VolumeKind::removable}});
    list_.setInitialState();
    EXPECT_EQ(list_.getFoldersAtPath(stick).size(), 1u);
    std::filesystem::remove_all(stick);
    EXPECT_FALSE(list_.loadFolder(stick));
    EXPECT_EQ(namesOf(list_), Paths{stick});
}

TEST_F(BrowsedFolder, ShowsItsFoldersCheckedIfItIsChecked) {
    const std::string top = tree_.makeFolder("top");
    tree_.makeFolder("top/a");
    tree_.makeFolder("top/b");
    fileSystem_.setListingOrder(ListingOrder::sorted);
    list_.addFolders({top});
    list_.checkButtonExactFirstpage(0, true);
    EXPECT_TRUE(list_.loadFolder(top));
    EXPECT_EQ(statesOf(list_), (States{true, true}));
    EXPECT_EQ(list_.stateArray(), (Paths{top, top + "/a", top + "/b"}));
}

TEST_F(BrowsedFolder, ShowsItsFoldersUncheckedIfItIsNotInTheStateArray) {
    // Adding by a panel checks the row, but does not put it into stateArray().
    const std::string top = tree_.makeFolder("top");
    tree_.makeFolder("top/a");
    list_.addFolders({top});
    EXPECT_TRUE(list_.loadFolder(top));
    EXPECT_EQ(statesOf(list_), States{false});
    EXPECT_EQ(list_.stateArray(), Paths{});
}

TEST_F(BrowsedFolder, NotesItsFoldersAgainEachTime) {
    const std::string top = tree_.makeFolder("top");
    tree_.makeFolder("top/a");
    list_.addFolders({top});
    list_.checkButtonExactFirstpage(0, true);
    EXPECT_TRUE(list_.loadFolder(top));
    EXPECT_TRUE(list_.loadFolder(top));
    EXPECT_EQ(list_.stateArray(), (Paths{top, top + "/a", top + "/a"}));
    list_.checkButtonExactFirstpage(0, false);
    EXPECT_EQ(list_.stateArray(), Paths{top});
}

TEST_F(CoveredPath, IsOneThatIsListedOrBelowAListedFolder) {
    list_.addFolders({"/Users/x", "/Users/x.y"});
    EXPECT_TRUE(list_.imageIsAlreadyThere("/Users/x"));
    EXPECT_TRUE(list_.imageIsAlreadyThere("/Users/x/y"));
    EXPECT_FALSE(list_.imageIsAlreadyThere("/Users/x.y/z"));
    EXPECT_FALSE(list_.imageIsAlreadyThere("/Users"));
}

TEST_F(CoveredPath, CountsRowsOfEveryOrigin) {
    tree_.makeFolder("top/inner");
    const std::string image = tree_.writeFile("a.png");
    list_.setInitialState();
    EXPECT_TRUE(list_.imageIsAlreadyThere("/media/ann/STICK/photo.png"));
    EXPECT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    EXPECT_FALSE(list_.imageIsAlreadyThere("/media/ann/STICK/photo.png"));
    EXPECT_TRUE(list_.imageIsAlreadyThere(tree_.pathOf("top/inner/photo.png")));
    list_.addFiles({image});
    EXPECT_TRUE(list_.imageIsAlreadyThere(image));
}

TEST_F(CoveredPath, IsNoLongerCoveredWithoutItsRow) {
    list_.addFolders({"/Users/x", "/Users/y"});
    list_.checkButtonExactFirstpage(1, false);
    list_.removeFromListExact();
    EXPECT_FALSE(list_.imageIsAlreadyThere("/Users/x"));
    EXPECT_TRUE(list_.imageIsAlreadyThere("/Users/y"));
    list_.removeAllRows();
    EXPECT_FALSE(list_.imageIsAlreadyThere("/Users/y"));
}

TEST_F(CoveredPath, StaysCoveredByTheOtherOfTwoEqualRows) {
    list_.setInitialState();
    list_.setInitialState();
    list_.checkButtonExactFirstpage(0, true);
    list_.removeFromListExact();
    EXPECT_EQ(namesOf(list_), (Paths{"/media/ann/STICK", "/", "/media/ann/STICK"}));
    EXPECT_TRUE(list_.imageIsAlreadyThere("/"));
}

TEST_F(FilePanel, AppendsCheckedFileRows) {
    list_.addFolders({"/Users/x"});
    const std::string image = tree_.writeFile("a.png", std::string(1050, 'x'));
    EXPECT_EQ(list_.addFiles({image}), (Addition{1, LocationNotice::none}));
    ASSERT_EQ(list_.rows().size(), 2u);
    const LocationRow& row = list_.rows().back();
    EXPECT_EQ(row.name, image);
    EXPECT_EQ(row.image, "");
    EXPECT_EQ(row.size, "1.05 KB");
    EXPECT_TRUE(row.state);
    EXPECT_FALSE(row.folder);
    EXPECT_EQ(list_.stateArray(), Paths{});
}

TEST_F(FilePanel, SaysWhatIsThereAlreadyAndAddsTheRest) {
    const std::string one = tree_.writeFile("1.png");
    const std::string other = tree_.writeFile("2.png");
    list_.addFiles({one});
    EXPECT_EQ(list_.addFiles({one, other}), (Addition{1, LocationNotice::imageAlreadyAdded}));
    EXPECT_EQ(namesOf(list_), (Paths{one, other}));
    EXPECT_EQ(list_.addFiles({one}), (Addition{0, LocationNotice::imageAlreadyAdded}));
}

TEST_F(FilePanel, AddsAFileThatIsChosenTwiceOnce) {
    const std::string image = tree_.writeFile("1.png");
    EXPECT_EQ(list_.addFiles({image, image}), (Addition{1, LocationNotice::imageAlreadyAdded}));
    EXPECT_EQ(namesOf(list_), Paths{image});
}

TEST_F(FilePanel, IgnoresVanishedFiles) {
    const std::string image = tree_.writeFile("1.png");
    EXPECT_EQ(list_.addFiles({tree_.pathOf("gone.png"), image}),
              (Addition{1, LocationNotice::none}));
    EXPECT_EQ(list_.addFiles({tree_.pathOf("gone.png")}), (Addition{0, LocationNotice::none}));
    EXPECT_EQ(list_.addFiles({}), (Addition{0, LocationNotice::none}));
}

TEST_F(FolderPanel, AppendsCheckedFolderRowsWithoutSystemCalls) {
    EXPECT_EQ(list_.addFolders({"/gone/b", "/gone/a"}), (Addition{2, LocationNotice::none}));
    EXPECT_EQ(namesOf(list_), (Paths{"/gone/b", "/gone/a"}));
    const LocationRow& row = list_.rows().front();
    EXPECT_EQ(row.image, "");
    EXPECT_EQ(row.size, "");
    EXPECT_TRUE(row.state);
    EXPECT_TRUE(row.folder);
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesAtPath), 0u);
    EXPECT_EQ(list_.stateArray(), Paths{});
}

TEST_F(FolderPanel, SaysWhatIsThereAlreadyAndAddsTheRest) {
    list_.addFolders({"/Users/x"});
    EXPECT_EQ(list_.addFolders({"/Users/x/inner", "/Users/y"}),
              (Addition{1, LocationNotice::folderAlreadyAdded}));
    EXPECT_EQ(namesOf(list_), (Paths{"/Users/x", "/Users/y"}));
}

TEST_F(OpenedFolders, AreCheckedWhereTheyAreListed) {
    enterFolderMode();
    list_.openFolders({"/home/ann/Pictures"});
    EXPECT_EQ(namesOf(list_), (Paths{"/home/ann/Desktop", "/home/ann/Documents",
                                     "/home/ann/Pictures", "/", "/media/ann/STICK"}));
    EXPECT_EQ(statesOf(list_), (States{false, false, true, false, false}));
}

TEST_F(OpenedFolders, AreAppendedAlsoBelowAListedFolder) {
    list_.setInitialState();
    list_.openFolders({"/media/ann/STICK/photos", "/srv", "/srv"});
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK", "/media/ann/STICK/photos", "/srv"}));
    EXPECT_EQ(statesOf(list_), (States{false, false, true, true}));
    EXPECT_EQ(list_.stateArray(), Paths{});
}

TEST_F(AddedRows, ComeBackWithTheirLevelAtTheirPlaces) {
    const std::string photo = tree_.writeFile("photo.png", "1234567890");
    list_.addFolders({"/srv"});
    list_.addFiles({photo});
    list_.openFolders({"/opt"});
    list_.acceptDrop(1, {tree_.makeFolder("dropped")});
    const Paths names{"/", tree_.pathOf("dropped"), "/media/ann/STICK", "/srv", photo, "/opt"};
    ASSERT_EQ(namesOf(list_), names);
    goDownAndBack();
    EXPECT_EQ(namesOf(list_), names);
    EXPECT_EQ(statesOf(list_), (States{false, true, false, true, true, true}));
    EXPECT_EQ(list_.rows()[4].size, "0.01 KB");
    EXPECT_FALSE(list_.rows()[4].folder);
    EXPECT_EQ(list_.stateArray(), Paths{});
    EXPECT_TRUE(list_.imageIsAlreadyThere("/srv/www"));
}

TEST_F(AddedRows, KeepTheirChecks) {
    list_.addFolders({"/a", "/b", "/c"});
    list_.checkButtonExactFirstpage(3, false);
    list_.setState(4, false);
    goDownAndBack();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK", "/a", "/b", "/c"}));
    EXPECT_EQ(statesOf(list_), (States{false, false, true, false, false}));
    list_.unmarkAllExact();
    goDownAndBack();
    EXPECT_EQ(statesOf(list_), (States{false, false, false, false, false}));
}

TEST_F(AddedRows, ThatWereListedAlreadyKeepTheirCheck) {
    list_.openFolders({"/media/ann/STICK"});
    goDownAndBack();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
    EXPECT_EQ(statesOf(list_), (States{false, true}));
    list_.checkButtonExactFirstpage(1, false);
    goDownAndBack();
    EXPECT_EQ(statesOf(list_), (States{false, false}));
}

TEST_F(AddedRows, BelongToTheLevelTheyWereAddedAt) {
    list_.addFolders({"/srv"});
    ASSERT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    list_.addFolders({"/opt"});
    list_.showTopLevel();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK", "/srv"}));
    ASSERT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    EXPECT_EQ(namesOf(list_), (Paths{tree_.pathOf("top/inner"), "/opt"}));
}

TEST_F(AddedRows, FollowTheirCheckBoxAtAnotherLevel) {
    list_.addFolders({tree_.pathOf("top/inner")});
    ASSERT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    list_.checkButtonExactFirstpage(0, true);
    list_.checkButtonExactFirstpage(0, false);
    list_.showTopLevel();
    EXPECT_EQ(statesOf(list_), (States{false, false, false}));
}

TEST_F(AddedRows, DoNotComeBackOnceTheyWereRemoved) {
    list_.addFolders({"/a", "/b"});
    list_.removeRow(2);
    goDownAndBack();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK", "/b"}));
    list_.removeFromListExact();
    goDownAndBack();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
}

TEST_F(AddedRows, ComeBehindALevelThatHasBecomeShorter) {
    list_.addFolders({"/srv"});
    ASSERT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    platform_.setMountedVolumes({});
    list_.showTopLevel();
    EXPECT_EQ(namesOf(list_), Paths{"/srv"});
}

TEST_F(AddedRows, AreForgottenWhenTheListIsEmptied) {
    list_.addFolders({"/srv"});
    ASSERT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    list_.addFolders({"/opt"});
    list_.removeAllRows();
    list_.setInitialState();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
    goDownAndBack();
    EXPECT_EQ(namesOf(list_), (Paths{"/", "/media/ann/STICK"}));
}

TEST_F(CheckedRows, AreNotedInTheStateArray) {
    list_.setInitialState();
    list_.checkButtonExactFirstpage(0, true);
    EXPECT_EQ(statesOf(list_), (States{true, false}));
    EXPECT_EQ(list_.stateArray(), Paths{"/"});
    list_.checkButtonExactFirstpage(0, true);
    list_.checkButtonExactFirstpage(1, true);
    EXPECT_EQ(list_.stateArray(), (Paths{"/", "/", "/media/ann/STICK"}));
    list_.checkButtonExactFirstpage(0, false);
    EXPECT_EQ(statesOf(list_), (States{false, true}));
    EXPECT_EQ(list_.stateArray(), Paths{"/media/ann/STICK"});
}

TEST_F(CheckedRows, IgnoreRowsPastTheEnd) {
    list_.checkButtonExactFirstpage(0, true);
    list_.checkButtonExactFirstpage(static_cast<std::size_t>(-1), true);
    EXPECT_EQ(list_.stateArray(), Paths{});
}

TEST_F(CheckedRows, MayBeAllOrNoneWithoutAChangeOfTheStateArray) {
    list_.setInitialState();
    list_.checkButtonExactFirstpage(0, true);
    list_.markAllExact();
    EXPECT_EQ(statesOf(list_), (States{true, true}));
    EXPECT_EQ(list_.stateArray(), Paths{"/"});
    list_.unmarkAllExact();
    EXPECT_EQ(statesOf(list_), (States{false, false}));
    EXPECT_EQ(list_.stateArray(), Paths{"/"});
}

TEST_F(CheckedRows, AreRemovedTogether) {
    addFolders({"a", "b", "c", "d"});
    list_.checkButtonExactFirstpage(1, false);
    list_.removeFromListExact();
    EXPECT_EQ(namesOf(list_), Paths{tree_.pathOf("b")});
    list_.removeFromListExact();
    EXPECT_EQ(namesOf(list_), Paths{tree_.pathOf("b")});
    list_.markAllExact();
    list_.removeFromListExact();
    EXPECT_EQ(namesOf(list_), Paths{});
    list_.removeFromListExact();
}

TEST_F(CheckedRows, AreForgottenWithTheStateArray) {
    list_.setInitialState();
    list_.checkButtonExactFirstpage(0, true);
    list_.clearStateArray();
    EXPECT_EQ(statesOf(list_), (States{true, false}));
    EXPECT_EQ(list_.stateArray(), Paths{});
}

}  // namespace
}  // namespace tarvin
