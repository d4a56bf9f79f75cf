#include "platform/linux/lasting_volume.h"

#include "support/loop_volume.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tarvin {
namespace {

std::uint64_t deviceOf(const std::string& folder) {
    const Result<FileAttributes> attributes = systemFileSystem().attributesAtPath(folder);
    EXPECT_TRUE(attributes);
    return attributes ? attributes->identity.device : 0;
}

std::optional<std::string> nameOf(const std::string& folder) {
    return systemFileSystem().lastingVolumeName(folder, deviceOf(folder));
}

TEST(LastingVolume, KeepsItsNameWhenItIsMountedAgain) {
    LoopVolume volume;
    if (!volume) {
        return;
    }
    const std::optional<std::string> name = nameOf(volume.path());
    ASSERT_TRUE(name);
    EXPECT_TRUE(name->starts_with("0000ef53:")) << *name;
    ASSERT_TRUE(volume.remount());
    EXPECT_EQ(nameOf(volume.path()), name);
}

TEST(LastingVolume, HasAnotherNameThanEveryOtherVolume) {
    const LoopVolume one;
    const LoopVolume other;
    if (one && other) {
        EXPECT_NE(nameOf(one.path()), nameOf(other.path()));
    }
}

TEST(LastingVolume, HasTheNameInEachOfItsFolders) {
    const LoopVolume volume;
    if (volume) {
        EXPECT_EQ(nameOf(volume.pathOf("lost+found")), nameOf(volume.path()));
    }
}

TEST(LastingVolume, HasNoNameOnAFileSystemThatDoesNotLast) {
    EXPECT_EQ(nameOf("/proc/self"), std::nullopt);
    EXPECT_EQ(nameOf("/dev/shm"), std::nullopt);
}

TEST(LastingVolume, HasNoNameWhereTheFolderIsOfAnotherDevice) {
    const TemporaryFolder folder;
    EXPECT_EQ(systemFileSystem().lastingVolumeName(folder.path(), deviceOf(folder.path()) + 1),
              std::nullopt);
    EXPECT_EQ(systemFileSystem().lastingVolumeName(folder.pathOf("missing"), 1), std::nullopt);
}

TEST(LastingVolume, NeedsAKernelThatWritesBackSoon) {
    EXPECT_TRUE(writesBackSoon("3000\n", "500\n"));
    EXPECT_TRUE(writesBackSoon("4000\n", "500\n"));
    EXPECT_FALSE(writesBackSoon("4001\n", "500\n"));
    EXPECT_FALSE(writesBackSoon("3000\n", "0\n"));
    EXPECT_FALSE(writesBackSoon("3000\n", ""));
    EXPECT_FALSE(writesBackSoon("many\n", "500\n"));
    EXPECT_FALSE(writesBackSoon("-1\n", "500\n"));
    EXPECT_FALSE(writesBackSoon("9223372036854775807\n", "500\n"));
}

}  // namespace
}  // namespace tarvin
