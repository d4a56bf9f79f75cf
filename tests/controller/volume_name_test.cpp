#include "controller/location_folders.h"
#include "support/fake_platform.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

class VolumeName : public testing::Test {
 protected:
    VolumeName() {
        platform.setUserName("ann");
        platform.setUserFolder(UserFolder::home, "/home/ann");
    }

    void mount(const std::vector<std::string>& paths) {
        std::vector<Volume> volumes;
        for (const std::string& path : paths) {
            volumes.push_back({path, "ext4", VolumeKind::internal});
        }
        platform.setMountedVolumes(volumes);
    }

    FakePlatform platform;
};

TEST_F(VolumeName, IsThatOfTheVolumeWithTheFolderOfTheHome) {
    mount({"/", "/mnt/data"});
    EXPECT_EQ(getVolumeName(platform), "/");
    platform.setUserFolder(UserFolder::home, "/mnt/data/homes/ann");
    EXPECT_EQ(getVolumeName(platform), "data");
    platform.setUserFolder(UserFolder::home, "/mnt/data/ann");
    EXPECT_EQ(getVolumeName(platform), "data");
}

TEST_F(VolumeName, OfAVolumeInAVolumeIsThatOfTheInnerOne) {
    platform.setUserFolder(UserFolder::home, "/mnt/data/homes/staff/ann");
    mount({"/mnt/data/homes", "/", "/mnt/data"});
    EXPECT_EQ(getVolumeName(platform), "homes");
}

TEST_F(VolumeName, IsNotThatOfAVolumeWhosePathOnlyBeginsAlike) {
    platform.setUserFolder(UserFolder::home, "/mnt/database/ann");
    mount({"/", "/mnt/data"});
    EXPECT_EQ(getVolumeName(platform), "/");
}

TEST_F(VolumeName, IsTheUsersNameWhereVolumesAreMounted) {
    platform.setUserFolder(UserFolder::home, "/media/ann");
    mount({"/", "/media/STICK"});
    EXPECT_EQ(getVolumeName(platform), "ann");
    platform.setUserName(std::nullopt);
    EXPECT_EQ(getVolumeName(platform), "");
}

TEST_F(VolumeName, IsEmptyWhereNothingIsKnown) {
    EXPECT_EQ(getVolumeName(platform), "");
    mount({"/"});
    platform.setUserFolder(UserFolder::home, std::nullopt);
    EXPECT_EQ(getVolumeName(platform), "");
}

}  // namespace
}  // namespace tarvin
