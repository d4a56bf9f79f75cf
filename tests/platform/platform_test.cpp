#include "platform/platform.h"

#include "platform/conventions.h"
#include "platform/linux/mount_table.h"
#include "platform/linux/user_folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <set>
#include <string>

namespace tarvin {
namespace {

TEST(LibraryFile, HasTheVersionOfItsAbi) {
    EXPECT_EQ(libraryFile("libheif", 1), "libheif.so.1");
    EXPECT_EQ(libraryFile("libopenjp2", 7), "libopenjp2.so.7");
}

TEST(SystemPlatform, IsOneObject) {
    EXPECT_EQ(&systemPlatform(), &systemPlatform());
}

TEST(SystemPlatform, HasTheSystemFilesAndClock) {
    EXPECT_EQ(&systemPlatform().fileSystem(), &systemFileSystem());
    EXPECT_EQ(&systemPlatform().clock(), &systemClock());
}

TEST(SystemPlatform, ListsTheRootFirstAndEachVolumeOnce) {
    const auto volumes = systemPlatform().mountedVolumes();
    ASSERT_FALSE(volumes.empty());
    EXPECT_EQ(volumes.front().path, "/");
    std::set<std::string> paths;
    for (const Volume& volume : volumes) {
        EXPECT_TRUE(paths.insert(volume.path).second) << volume.path;
        EXPECT_FALSE(isPseudoFileSystemType(volume.fileSystemType)) << volume.path;
    }
}

TEST(SystemPlatform, KnowsTheTypeOfTheRootIfListed) {
    const auto mounts = readMountInfo();
    ASSERT_TRUE(mounts);
    std::string type;
    for (const MountEntry& mount : *mounts) {
        if (mount.mountPoint == "/") {
            type = mount.fileSystemType;
        }
    }
    EXPECT_EQ(systemPlatform().mountedVolumes().front().fileSystemType, type);
}

TEST(SystemPlatform, ReturnsTheUserOfTheProcess) {
    const UserEnvironment& environment = processEnvironment();
    EXPECT_EQ(systemPlatform().userName(), userNameOf(environment));
    EXPECT_EQ(systemPlatform().userFolder(UserFolder::home), homeFolder(environment));
    EXPECT_EQ(systemPlatform().applicationSupportFolder(), applicationSupportFolderOf(environment));
}

/// Describes wrong results in a process with its own environment variables.
std::string wrongAnswersWithVariables() {
    const TemporaryFolder folder;
    folder.writeFile("config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
    // NOLINTBEGIN(concurrency-mt-unsafe): this process has no other thread yet.
    ::setenv("HOME", "/home/ann", 1);
    ::setenv("XDG_CONFIG_HOME", folder.pathOf("config").c_str(), 1);
    ::setenv("XDG_DATA_HOME", "/data/ann", 1);
    ::setenv("LOGNAME", "ann-at-the-terminal", 1);
    // NOLINTEND(concurrency-mt-unsafe)
    std::string wrong;
    const auto expect = [&wrong](const std::optional<std::string>& answer, const char* expected) {
        if (answer != expected) {
            wrong.append(answer.value_or("nothing")).append(" is not ").append(expected);
        }
    };
    Platform& platform = systemPlatform();
    expect(platform.userFolder(UserFolder::home), "/home/ann");
    expect(platform.userFolder(UserFolder::desktop), "/home/ann/Bureau");
    expect(platform.userFolder(UserFolder::documents), "/home/ann/Documents");
    expect(platform.userFolder(UserFolder::pictures), "/home/ann/Pictures");
    expect(platform.applicationSupportFolder(),
           "/data/ann/Tarvin Software/Tarvin Duplicate File Remover");
    expect(processEnvironment().logName, "ann-at-the-terminal");
    // The desktop may rewrite its file at any time.
    folder.writeFile("config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/data/Papers\"\n");
    expect(platform.userFolder(UserFolder::desktop), "/home/ann/Desktop");
    expect(platform.userFolder(UserFolder::documents), "/data/Papers");
    return wrong;
}

TEST(SystemPlatform, FindsTheFoldersByVariablesAndUserDirs) {
    // A separate process, because the variables are read once.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto endWithVerdict = [] {
        const std::string wrong = wrongAnswersWithVariables();
        std::cerr << wrong;
        std::_Exit(wrong.empty() ? 0 : 1);
    };
    EXPECT_EXIT(endWithVerdict(), testing::ExitedWithCode(0), "");
}

TEST(SystemPlatform, TheTemporaryFolderIsOnAMountedVolume) {
    const TemporaryFolder folder;
    const MountPlaces places = systemPlatform().mountPlaces();
    EXPECT_FALSE(places.isOnUnmountedVolume(folder.pathOf("missing.jpg")));
    EXPECT_TRUE(places.isOnUnmountedVolume("/media/nobody/no drive/missing.jpg"));
}

}  // namespace
}  // namespace tarvin
