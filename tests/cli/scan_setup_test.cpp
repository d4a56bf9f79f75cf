#include "cli/scan_setup.h"

#include "support/fake_platform.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

namespace tarvin {
namespace {

constexpr const char* listOfTwo =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><array><string>/a.jpg</string><string>/b.jpg</string></array></plist>)";

using Paths = std::vector<std::string>;

TEST(ScanInputs, EachFolderBecomesACheckedRowWithItsAbsolutePath) {
    ScanOptions options;
    options.folders = {"/photos/", "/music/./new"};
    const ScanFolders folders = foldersOf(options);
    ASSERT_EQ(folders.rows.size(), 2U);
    EXPECT_EQ(folders.rows[0].name, "/photos");
    EXPECT_EQ(folders.rows[1].name, "/music/new");
    for (const LocationRow& row : folders.rows) {
        EXPECT_TRUE(row.state);
        EXPECT_TRUE(row.folder);
    }
    EXPECT_TRUE(folders.unreadable.empty());
}

TEST(ScanInputs, APathThatEndsAsAFolderCannotBeAFile) {
    ScanOptions options;
    options.folders = {"/a", "/a/", "/a/.", "/a//", "/a.", "/.a", "/", "a"};
    const std::vector<bool> expected{true, false, false, false, true, true, false, true};
    std::vector<bool> mayBeFile;
    for (const LocationRow& row : foldersOf(options).rows) {
        mayBeFile.push_back(row.mayBeFile);
    }
    EXPECT_EQ(mayBeFile, expected);
}

TEST(ScanInputs, AFolderWithoutAPathIsUnreadable) {
    ScanOptions options;
    options.folders = {"", "/photos"};
    const ScanFolders folders = foldersOf(options);
    ASSERT_EQ(folders.rows.size(), 1U);
    EXPECT_EQ(folders.rows[0].name, "/photos");
    ASSERT_EQ(folders.unreadable.size(), 1U);
    EXPECT_EQ(folders.unreadable[0].path, "");
    EXPECT_EQ(folders.unreadable[0].error.code, ENOENT);
}

TEST(ScanInputs, UsesTheUsersListByDefault) {
    const TemporaryFolder folder;
    folder.writeFile("exception.plist", listOfTwo);
    FakePlatform platform;
    platform.setApplicationSupportFolder(folder.path());
    const ExceptionList list = exceptionsOf(ScanOptions(), platform);
    EXPECT_EQ(list.paths, (Paths{"/a.jpg", "/b.jpg"}));
    EXPECT_FALSE(list.error.has_value());
}

TEST(ScanInputs, AMissingUsersListIsEmpty) {
    const TemporaryFolder folder;
    FakePlatform platform;
    EXPECT_FALSE(exceptionsOf(ScanOptions(), platform).error.has_value());
    platform.setApplicationSupportFolder(folder.pathOf("none"));
    const ExceptionList list = exceptionsOf(ScanOptions(), platform);
    EXPECT_FALSE(list.error.has_value());
    EXPECT_TRUE(list.paths.empty());
}

TEST(ScanInputs, ADamagedUsersListIsAnError) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("exception.plist", "damaged");
    FakePlatform platform;
    platform.setApplicationSupportFolder(folder.path());
    const ExceptionList list = exceptionsOf(ScanOptions(), platform);
    ASSERT_TRUE(list.error.has_value());
    EXPECT_EQ(list.error->path, path);
    EXPECT_TRUE(list.paths.empty());
}

TEST(ScanInputs, AListByOptionReplacesTheUsersList) {
    const TemporaryFolder folder;
    folder.writeFile("exception.plist", "damaged");
    FakePlatform platform;
    platform.setApplicationSupportFolder(folder.path());
    ScanOptions options;
    options.exceptionsFile = folder.writeFile("other.plist", listOfTwo);
    EXPECT_EQ(exceptionsOf(options, platform).paths, (Paths{"/a.jpg", "/b.jpg"}));
}

TEST(ScanInputs, AListByOptionMustExist) {
    const TemporaryFolder folder;
    FakePlatform platform;
    ScanOptions options;
    options.exceptionsFile = folder.pathOf("none.plist");
    const ExceptionList list = exceptionsOf(options, platform);
    ASSERT_TRUE(list.error.has_value());
    EXPECT_EQ(list.error->kind, StoreError::Kind::missing);
}

TEST(ScanInputs, WithoutExceptionsNoListIsRead) {
    const TemporaryFolder folder;
    folder.writeFile("exception.plist", "damaged");
    FakePlatform platform;
    platform.setApplicationSupportFolder(folder.path());
    ScanOptions options;
    options.useExceptions = false;
    const ExceptionList list = exceptionsOf(options, platform);
    EXPECT_FALSE(list.error.has_value());
    EXPECT_TRUE(list.paths.empty());
}

}  // namespace
}  // namespace tarvin
