#include "controller/location_folders.h"
#include "support/fake_platform.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

class VolumeName : public testing::Test {
 protected:
    VolumeName() {
        platform_.setUserName("ann");
        platform_.setUserFolder(UserFolder::home, "/home/ann");
    }

    void mount(const std::vector<std::string>& paths) {
        std::vector<Volume> volumes;
        volumes.reserve(paths.size());
        for (const std::string& path : paths) {
            volumes.push_back({path, "ext4", VolumeKind::internal});
        }
        platform_.setMountedVolumes(volumes);
    }

    FakePlatform platform_;
};

TEST_F(VolumeName, IsThatOfTheVolumeWithTheFolderOfTheHome) {
    mount({"/", "/mnt/data"});
    EXPECT_EQ(getVolumeName(platform_), "/");
    platform_.setUserFolder(UserFolder::home, "/mnt/data/homes/ann");
    EXPECT_EQ(getVolumeName(platform_), "data");
    platform_.setUserFolder(UserFolder::home, "/mnt/data/ann");
    EXPECT_EQ(getVolumeName(platform_), "data");
}

TEST_F(VolumeName, OfAVolumeInAVolumeIsThatOfTheInnerOne) {
    platform_.setUserFolder(UserFolder::home, "/mnt/data/homes/staff/ann");
    mount({"/mnt/data/homes", "/", "/mnt/data"});
    EXPECT_EQ(getVolumeName(platform_), "homes");
}

TEST_F(VolumeName, IsNotThatOfAVolumeWhosePathOnlyBeginsAlike) {
    platform_.setUserFolder(UserFolder::home, "/mnt/database/ann");
    mount({"/", "/mnt/data"});
    EXPECT_EQ(getVolumeName(platform_), "/");
}

TEST_F(VolumeName, IsTheUsersNameWhereVolumesAreMounted) {
    platform_.setUserFolder(UserFolder::home, "/media/ann");
    mount({"/", "/media/STICK"});
    EXPECT_EQ(getVolumeName(platform_), "ann");
    platform_.setUserName(std::nullopt);
    EXPECT_EQ(getVolumeName(platform_), "");
}

TEST_F(VolumeName, IsEmptyIfNothingIsKnown) {
    EXPECT_EQ(getVolumeName(platform_), "");
    mount({"/"});
    platform_.setUserFolder(UserFolder::home, std::nullopt);
    EXPECT_EQ(getVolumeName(platform_), "");
}

}  // namespace
}  // namespace tarvin
