#include "controller/location_folders.h"

#include "support/faulty_file_system.h"
#include "support/file_tree.h"

#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

#include <QLocale>
#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

class FolderBrowser : public ::testing::Test {
 protected:
    Paths foldersAt(const std::string& path) { return getFoldersAtPath(fileSystem_, path); }

    /// The same, sorted.
    Paths sortedFoldersAt(const std::string& path) {
        Paths folders = foldersAt(path);
        std::sort(folders.begin(), folders.end());
        return folders;
    }

    void makeFolders(const Paths& names) {
        for (const std::string& name : names) {
            tree_.makeFolder(name);
        }
    }

    Paths namesAt(const std::string& path) {
        Paths names;
        for (const std::string& folder : foldersAt(path)) {
            names.push_back(folder.substr(folder.rfind('/') + 1));
        }
        return names;
    }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
};

/// Sets the user's locale during its lifetime.
class Locale final {
 public:
    explicit Locale(QLocale::Language language) { QLocale::setDefault(QLocale(language)); }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;
    ~Locale() { QLocale::setDefault(before_); }

 private:
    QLocale before_;
};

TEST_F(FolderBrowser, ListsFoldersAndNothingElse) {
    tree_.makeFolder("a");
    tree_.makeFolder("b/inner");
    tree_.writeFile("file");
    tree_.makePipe("pipe");
    tree_.makeSocket("socket");
    EXPECT_EQ(sortedFoldersAt(tree_.path()), (Paths{tree_.pathOf("a"), tree_.pathOf("b")}));
}

TEST_F(FolderBrowser, FollowsLinksToFolders) {
    tree_.makeFolder("real");
    tree_.writeFile("file");
    tree_.makeLink("to folder", "real");
    tree_.makeLink("to link", "to folder");
    tree_.makeLink("to file", "file");
    tree_.makeLink("to nothing", "nowhere");
    tree_.makeLink("to itself", "to itself");
    EXPECT_EQ(sortedFoldersAt(tree_.path()),
              (Paths{tree_.pathOf("real"), tree_.pathOf("to folder"), tree_.pathOf("to link")}));
    tree_.makeFolder("real/inner");
    EXPECT_EQ(foldersAt(tree_.pathOf("to folder")), Paths{tree_.pathOf("to folder/inner")});
}

TEST_F(FolderBrowser, AsksWhereTheListingDoesNotTellTypes) {
    tree_.makeFolder("folder");
    tree_.writeFile("file");
    fileSystem_.hideEntryTypes();
    EXPECT_EQ(foldersAt(tree_.path()), Paths{tree_.pathOf("folder")});
}

TEST_F(FolderBrowser, SortsByNameAsPeopleDo) {
    const Locale english(QLocale::English);
    const Paths sorted{"_tmp",         "2",       "10",       "apple",     "Banana", "cherry",
                       "\xc3\x89tude", "Photo 9", "photo 10", "Photo 100", "zoo"};
    makeFolders(sorted);
    for (const ListingOrder order : {ListingOrder::sorted, ListingOrder::reversed}) {
        fileSystem_.setListingOrder(order);
        EXPECT_EQ(namesAt(tree_.path()), sorted);
    }
}

TEST_F(FolderBrowser, SortsByTheLanguageOfTheUser) {
    makeFolders({"zebra", "\xc3\xa4pple", "apple", "azure"});
    {
        const Locale german(QLocale::German);
        EXPECT_EQ(namesAt(tree_.path()), (Paths{"apple", "\xc3\xa4pple", "azure", "zebra"}));
    }
    const Locale swedish(QLocale::Swedish);
    EXPECT_EQ(namesAt(tree_.path()), (Paths{"apple", "azure", "zebra", "\xc3\xa4pple"}));
}

TEST_F(FolderBrowser, SortsNumbersByValueWithoutALanguage) {
    const Locale none(QLocale::C);
    makeFolders({"10", "9", "B", "a"});
    EXPECT_EQ(namesAt(tree_.path()), (Paths{"9", "10", "a", "B"}));
}

TEST_F(FolderBrowser, SortsNamesThatAreNotUtf8ByBytes) {
    makeFolders({"a\xff", "a\xfe", "b"});
    for (const ListingOrder order : {ListingOrder::sorted, ListingOrder::reversed}) {
        fileSystem_.setListingOrder(order);
        EXPECT_EQ(namesAt(tree_.path()), (Paths{"a\xfe", "a\xff", "b"}));
    }
}

TEST_F(FolderBrowser, HidesFoldersThatBeginWithASign) {
    for (const char* name :
         {".hidden", "#sharp", "(bracket", "_under", "1digit", "Letter", "\xc3\xa9"}) {
        tree_.makeFolder(name);
    }
    EXPECT_EQ(sortedFoldersAt(tree_.path()),
              (Paths{tree_.pathOf("1digit"), tree_.pathOf("Letter"), tree_.pathOf("_under"),
                     tree_.pathOf("\xc3\xa9")}));
}

TEST_F(FolderBrowser, KeepsNamesThatAreNotUtf8) {
    tree_.makeFolder("\xff\xfe");
    EXPECT_EQ(foldersAt(tree_.path()), Paths{tree_.pathOf("\xff\xfe")});
}

TEST_F(FolderBrowser, JoinsWithASingleSlash) {
    const Paths atRoot = foldersAt("/");
    EXPECT_NE(std::find(atRoot.begin(), atRoot.end(), "/usr"), atRoot.end());
    tree_.makeFolder("a");
    EXPECT_EQ(foldersAt(tree_.path() + "/"), Paths{tree_.pathOf("a")});
}

TEST_F(FolderBrowser, IsEmptyForOtherFiles) {
    tree_.writeFile("file");
    tree_.makeLink("link", "nowhere");
    EXPECT_EQ(foldersAt(tree_.pathOf("file")), Paths{});
    EXPECT_EQ(foldersAt(tree_.pathOf("link")), Paths{});
    EXPECT_EQ(foldersAt(tree_.pathOf("missing")), Paths{});
    EXPECT_EQ(foldersAt(""), Paths{});
}

TEST_F(FolderBrowser, IsEmptyForAFolderThatIsClosedToTheUser) {
    tree_.makeFolder("closed/inner");
    ASSERT_EQ(::chmod(tree_.pathOf("closed").c_str(), 0), 0);
    const int before = ::setfsuid(65534);  // without root's privileges
    const Paths folders = foldersAt(tree_.pathOf("closed"));
    ::setfsuid(static_cast<uid_t>(before));
    ASSERT_EQ(::chmod(tree_.pathOf("closed").c_str(), 0700), 0);
    EXPECT_EQ(folders, Paths{});
    EXPECT_EQ(foldersAt(tree_.pathOf("closed")).size(), 1u);
}

TEST_F(FolderBrowser, IsEmptyForAFolderThatCannotBeListedToItsEnd) {
    tree_.makeFolder("a");
    EXPECT_EQ(foldersAt(tree_.path()).size(), 1u);
    // The folder is in the first batch; reading the next one fails.
    fileSystem_.failCall(FileCall::listEntries, 2, EIO);
    EXPECT_EQ(foldersAt(tree_.path()), Paths{});
}

TEST_F(FolderBrowser, SkipsEntriesThatCannotBeRead) {
    tree_.makeFolder("a");
    tree_.makeFolder("b");
    fileSystem_.hideEntryTypes();
    fileSystem_.failCall(FileCall::targetAttributesAt, FaultyFileSystem::each, EACCES, "/a");
    EXPECT_EQ(foldersAt(tree_.path()), Paths{tree_.pathOf("b")});
}

TEST(SpecialFolder, BeginsWithOneOfThirtySigns) {
    const std::string signs = "!~`@#$%^&*-+();:={}[],.<>?\\/\"'";
    ASSERT_EQ(signs.size(), 30u);
    for (int byte = 1; byte < 256; ++byte) {
        const std::string name{static_cast<char>(byte), 'x'};
        EXPECT_EQ(isSpecialFolder(name), signs.find(name.front()) != std::string::npos) << byte;
    }
    EXPECT_TRUE(isSpecialFolder("."));
    EXPECT_FALSE(isSpecialFolder("x."));
    EXPECT_FALSE(isSpecialFolder(""));
}

const std::vector<Volume> drives{{"/", "ext4", VolumeKind::internal},
                                 {"/media/ann/STICK", "vfat", VolumeKind::removable},
                                 {"/mnt/nas", "cifs", VolumeKind::network},
                                 {"/mnt/nas/inner", "ext4", VolumeKind::internal},
                                 {"/mnt/#scratch", "ext4", VolumeKind::internal},
                                 {"/mnt/ram", "tmpfs", VolumeKind::other}};

TEST(ListedVolumes, AreNeitherOnTheNetworkNorHidden) {
    const std::vector<Volume> expected{drives[0], drives[1], drives[3], drives[5]};
    EXPECT_EQ(listedVolumes(drives), expected);
}

TEST(ImageName, IsThatOfTheDesktop) {
    EXPECT_EQ(imageNameOfPath("/home/ann/Desktop", drives, "/home/ann/Desktop"), "mymac.png");
    EXPECT_EQ(imageNameOfPath("/elsewhere/Desktop", drives, std::nullopt), "mymac.png");
    EXPECT_EQ(imageNameOfPath("/home/ann/Bureau", drives, "/home/ann/Bureau"), "mymac.png");
    EXPECT_EQ(imageNameOfPath("/home/ann/Bureau", drives, std::nullopt), "folder.png");
    EXPECT_EQ(imageNameOfPath("/home/ann/desktop", drives, std::nullopt), "folder.png");
}

TEST(ImageName, IsThatOfTheKindOfVolume) {
    EXPECT_EQ(imageNameOfPath("/", drives, std::nullopt), "g5_apple_drive.png");
    EXPECT_EQ(imageNameOfPath("/media/ann/STICK", drives, std::nullopt), "usb_drive.png");
    EXPECT_EQ(imageNameOfPath("/mnt/nas", drives, std::nullopt), "network_drive.png");
    EXPECT_EQ(imageNameOfPath("/mnt/ram", drives, std::nullopt), "folder.png");
}

TEST(ImageName, IsThatOfAFolderForAnyOther) {
    EXPECT_EQ(imageNameOfPath("/home/ann/Documents", drives, std::nullopt), "folder.png");
    EXPECT_EQ(imageNameOfPath("/mnt/nas/folder", drives, std::nullopt), "folder.png");
}

TEST(LastPathComponent, IsBehindTheLastSlash) {
    EXPECT_EQ(lastPathComponent("/Users/x"), "x");
    EXPECT_EQ(lastPathComponent("/Users/x//"), "x");
    EXPECT_EQ(lastPathComponent("x"), "x");
    EXPECT_EQ(lastPathComponent("/"), "/");
    EXPECT_EQ(lastPathComponent("//"), "/");
    EXPECT_EQ(lastPathComponent(""), "");
}

}  // namespace
}  // namespace tarvin
