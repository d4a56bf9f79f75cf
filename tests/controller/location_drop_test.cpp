#include "controller/location_list.h"
#include "controller/rows.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

constexpr Addition nothing{0, LocationNotice::none};
constexpr Addition alreadyAdded{0, LocationNotice::fileAlreadyAdded};
constexpr Addition unsupported{0, LocationNotice::unsupportedFile};
constexpr Addition oneRow{1, LocationNotice::none};

class Drop : public ::testing::Test {
 protected:
    Addition drop(const Paths& paths) { return list_.acceptDrop(list_.rows().size(), paths); }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
    FakePlatform platform_{fileSystem_};
    LocationList list_{platform_};
};

TEST_F(Drop, OfAFolderAddsACheckedFolderRow) {
    const std::string folder = tree_.makeFolder("folder.old");
    EXPECT_EQ(drop({folder}), oneRow);
    ASSERT_EQ(list_.rows().size(), 1u);
    const LocationRow& row = list_.rows().front();
    EXPECT_EQ(row.name, folder);
    EXPECT_EQ(row.image, "");
    EXPECT_EQ(row.size, "");
    EXPECT_TRUE(row.state);
    EXPECT_TRUE(row.folder);
    EXPECT_EQ(list_.stateArray(), Paths{});
}

TEST_F(Drop, OfAnImageAddsACheckedFileRow) {
    const std::string image = tree_.writeFile("Photo.JPG", std::string(2'500'000, 'x'));
    EXPECT_EQ(drop({image}), oneRow);
    const LocationRow& row = list_.rows().front();
    EXPECT_EQ(row.name, image);
    EXPECT_EQ(row.image, "");
    EXPECT_EQ(row.size, "2.50 MB");
    EXPECT_TRUE(row.state);
    EXPECT_FALSE(row.folder);
}

TEST_F(Drop, OfAFileOfAnotherKindIsUnsupported) {
    EXPECT_EQ(drop({tree_.writeFile("text.txt")}), unsupported);
    EXPECT_EQ(drop({tree_.writeFile("no extension")}), unsupported);
    // An image for a scan, but not here.
    EXPECT_EQ(drop({tree_.writeFile("a.wpg")}), unsupported);
    EXPECT_TRUE(list_.rows().empty());
}

TEST_F(Drop, OfAListedFolderIsAlreadyAdded) {
    const std::string folder = tree_.makeFolder("folder");
    list_.addFolders({folder});
    EXPECT_EQ(drop({folder}), alreadyAdded);
    EXPECT_EQ(drop({tree_.makeFolder("folder/inner")}), alreadyAdded);
    EXPECT_EQ(drop({tree_.writeFile("folder/a.png")}), alreadyAdded);
    EXPECT_EQ(list_.rows().size(), 1u);
}

TEST_F(Drop, OfAListedFolderAndANewImageAddsTheImageAndSaysNothing) {
    const std::string folder = tree_.makeFolder("folder");
    const std::string image = tree_.writeFile("a.png");
    list_.addFolders({folder});
    EXPECT_EQ(drop({folder, image}), oneRow);
    EXPECT_EQ(namesOf(list_), (Paths{folder, image}));
}

TEST_F(Drop, OfAListedFolderAndATextIsAlreadyAdded) {
    const std::string folder = tree_.makeFolder("folder");
    list_.addFolders({folder});
    EXPECT_EQ(drop({tree_.writeFile("a.txt"), folder}), alreadyAdded);
    EXPECT_EQ(drop({folder, tree_.writeFile("a.txt")}), alreadyAdded);
}

TEST_F(Drop, OfNothingChangesNothing) {
    EXPECT_EQ(drop({}), nothing);
}

TEST_F(Drop, OfAVanishedFileIsUnsupported) {
    EXPECT_EQ(drop({tree_.pathOf("gone.png")}), unsupported);
    EXPECT_EQ(drop({tree_.pathOf("gone")}), unsupported);
    EXPECT_TRUE(list_.rows().empty());
}

TEST_F(Drop, JudgesALinkByItsOwnName) {
    const std::string folder = tree_.makeFolder("folder");
    EXPECT_EQ(drop({tree_.makeLink("to folder", folder)}), unsupported);
    const std::string toNothing = tree_.makeLink("link.png", "nowhere");
    EXPECT_EQ(drop({toNothing}), oneRow);
    EXPECT_FALSE(list_.rows().front().folder);
    EXPECT_EQ(list_.rows().front().size, "0.01 KB");
}

TEST_F(Drop, OfAnUnreadableFolderIsUnsupported) {
    const std::string folder = tree_.makeFolder("folder");
    fileSystem_.failCall(FileCall::attributesAtPath, FaultyFileSystem::each, EACCES);
    EXPECT_EQ(drop({folder}), unsupported);
    EXPECT_EQ(drop({tree_.writeFile("a.png")}), unsupported);
}

TEST_F(Drop, KeepsTheOrderAndGoesBeforeTheRowDroppedOn) {
    list_.addFolders({"/first", "/last"});
    const std::string b = tree_.makeFolder("b");
    const std::string a = tree_.makeFolder("a");
    const std::string image = tree_.writeFile("c.png");
    EXPECT_EQ(list_.acceptDrop(1, {b, a, tree_.writeFile("x.txt"), image}).rows, 3u);
    EXPECT_EQ(namesOf(list_), (Paths{"/first", b, a, image, "/last"}));
    const std::string top = tree_.makeFolder("top");
    EXPECT_EQ(list_.acceptDrop(0, {top}), oneRow);
    EXPECT_EQ(list_.rows().front().name, top);
}

TEST_F(Drop, BehindTheLastRowGoesToTheEnd) {
    list_.addFolders({"/first"});
    const std::string folder = tree_.makeFolder("folder");
    EXPECT_EQ(list_.acceptDrop(7, {folder}), oneRow);
    EXPECT_EQ(namesOf(list_), (Paths{"/first", folder}));
}

TEST_F(Drop, AddsAPathThatOccursTwiceOnce) {
    const std::string folder = tree_.makeFolder("folder");
    const std::string inner = tree_.makeFolder("folder/inner");
    EXPECT_EQ(drop({folder, folder, inner}), oneRow);
    EXPECT_EQ(namesOf(list_), Paths{folder});
}

TEST_F(Drop, AddsAFolderBehindOneOfItsOwn) {
    // Only a folder above a path covers it.
    const std::string folder = tree_.makeFolder("folder");
    const std::string inner = tree_.makeFolder("folder/inner");
    EXPECT_EQ(drop({inner, folder}).rows, 2u);
}

TEST_F(Drop, KeepsNamesThatAreNotUtf8) {
    const std::string image = tree_.writeFile("\xff\xfe.png");
    EXPECT_EQ(drop({image}), oneRow);
    EXPECT_EQ(namesOf(list_), Paths{image});
}

}  // namespace
}  // namespace tarvin
