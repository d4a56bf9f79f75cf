#include "platform/macos/user_folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tarvin::macos {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t firstUser = 501;

UserEnvironment ann() {
    UserEnvironment environment;
    environment.accountName = "ann";
    environment.accountHome = "/Users/ann";
    environment.home = "/Users/ann";
    // As a program of another system may have set them.
    environment.xdgDataHome = "/Users/ann/.local/share";
    environment.xdgConfigHome = "/Users/ann/.config";
    return environment;
}

TEST(MacUserFolder, HasItsEnglishName) {
    EXPECT_EQ(userFolderOf(UserFolder::home, ann()), "/Users/ann");
    EXPECT_EQ(userFolderOf(UserFolder::desktop, ann()), "/Users/ann/Desktop");
    EXPECT_EQ(userFolderOf(UserFolder::documents, ann()), "/Users/ann/Documents");
    EXPECT_EQ(userFolderOf(UserFolder::pictures, ann()), "/Users/ann/Pictures");
}

TEST(MacUserFolder, IsNulloptWithoutAHomeFolder) {
    EXPECT_EQ(userFolderOf(UserFolder::home, {}), std::nullopt);
    EXPECT_EQ(userFolderOf(UserFolder::pictures, {}), std::nullopt);
}

TEST(MacApplicationSupportFolder, IsInTheLibrary) {
    EXPECT_EQ(applicationSupportFolderOf(ann()),
              "/Users/ann/Library/Application Support/Tarvin Software/"
              "Tarvin Duplicate File Remover");
    EXPECT_EQ(applicationSupportFolderOf({}), std::nullopt);
}

TEST(MacHomeTrash, IsInTheHomeFolder) {
    EXPECT_EQ(homeTrashFolder(ann()), "/Users/ann/.Trash");
    EXPECT_EQ(homeTrashFolder({}), std::nullopt);
}

TEST(MacTrashes, OfAFileInTheHomeFolderIsTheHomeTrash) {
    EXPECT_THAT(trashesFor("/Users/ann/a.jpg", ann(), firstUser), ElementsAre("/Users/ann/.Trash"));
}

TEST(MacTrashes, OfAFileOnAVolumeIsThatOfTheUserThere) {
    EXPECT_THAT(trashesFor("/Volumes/My Disk/2024/a.jpg", ann(), firstUser),
                ElementsAre("/Volumes/My Disk/.Trashes/501", "/Users/ann/.Trash"));
    EXPECT_THAT(trashesFor("/Volumes/Disk/a.jpg", {}, firstUser),
                ElementsAre("/Volumes/Disk/.Trashes/501"));
}

TEST(MacTrashes, OfAFileInICloudDriveMayBeItsOwn) {
    EXPECT_THAT(trashesFor("/Users/ann/Library/Mobile Documents/com~apple~CloudDocs/a.jpg", ann(),
                           firstUser),
                ElementsAre("/Users/ann/Library/Mobile Documents/com~apple~CloudDocs/.Trash",
                            "/Users/ann/.Trash"));
}

TEST(MacTrashes, AreUnknownWithoutAHomeFolder) {
    EXPECT_THAT(trashesFor("/Users/ann/a.jpg", {}, firstUser), IsEmpty());
}

TEST(MacMeetingFolders, AreThePrivateTemporaryFolderThenTmp) {
    EXPECT_THAT(meetingFolders("/var/folders/zz/zyx/T/", firstUser),
                ElementsAre("/var/folders/zz/zyx/T/tarvin-duplicate-file-remover",
                            "/tmp/tarvin-duplicate-file-remover-501"));
    EXPECT_THAT(meetingFolders("", firstUser),
                ElementsAre("/tmp/tarvin-duplicate-file-remover-501"));
}

// A socket's path has 104 bytes there, the last one a null.
TEST(MacMeetingFolders, LeaveRoomForASocket) {
    const std::string longest = "/var/folders/zz/zyxvpxvq6csfxvn_n0000000000000/T/";
    EXPECT_LT((meetingFolders(longest, firstUser).front() + "/copy-99999999.socket").size(), 104U);
}

}  // namespace
}  // namespace tarvin::macos
