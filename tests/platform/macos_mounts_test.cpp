#include "platform/macos/mounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvin::macos {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::uint64_t systemDevice = 0x1000004;
constexpr std::uint64_t dataDevice = 0x1000005;

/// As a Mac with macOS 13 answers, with a USB stick, a disk of another Mac and a share.
std::vector<Mount> mountsOfAMac() {
    return {
        {systemDevice, "/", "apfs", false, false},
        {1, "/dev", "devfs", false, true},
        {0x1000006, "/System/Volumes/VM", "apfs", false, true},
        {0x1000007, "/System/Volumes/Preboot", "apfs", false, true},
        {dataDevice, "/System/Volumes/Data", "apfs", false, true},
        {2, "/System/Volumes/Data/home", "autofs", false, true},
        {0x1000008, "/Volumes/STICK", "msdos", true, false},
        {0x1000009, "/Volumes/Archive", "hfs", false, false},
        {0x2d000003, "/Volumes/photos", "smbfs", false, false},
        {0x100000a, "/Volumes/Recovery", "apfs", false, true},
        {0x100000b, "/Volumes/Archive/inside", "hfs", false, false},
    };
}

TEST(MacVolumes, AreTheRootAndTheFoldersInVolumes) {
    EXPECT_THAT(volumesOf(mountsOfAMac()),
                ElementsAre(Volume{"/", "apfs", VolumeKind::internal},
                            Volume{"/Volumes/STICK", "msdos", VolumeKind::removable},
                            Volume{"/Volumes/Archive", "hfs", VolumeKind::internal},
                            Volume{"/Volumes/photos", "smbfs", VolumeKind::network}));
}

TEST(MacVolumes, OfAnInternalTypeAreRemovableIfTheirMediumIs) {
    EXPECT_THAT(volumesOf({{7, "/Volumes/Backup", "apfs", true, false}}),
                Contains(Volume{"/Volumes/Backup", "apfs", VolumeKind::removable}));
}

TEST(MacVolumes, OfADosTypeAreRemovableOnEveryMedium) {
    EXPECT_THAT(volumesOf({{7, "/Volumes/EFI", "msdos", false, false}}),
                Contains(Volume{"/Volumes/EFI", "msdos", VolumeKind::removable}));
}

TEST(MacVolumes, OfATypeThatIsNotKnownAreOther) {
    EXPECT_THAT(volumesOf({{7, "/Volumes/NAS", "nfs", false, false}}),
                Contains(Volume{"/Volumes/NAS", "nfs", VolumeKind::other}));
}

TEST(MacVolumes, HaveARootWithoutAType) {
    EXPECT_THAT(volumesOf({}), ElementsAre(Volume{"/", {}, VolumeKind::other}));
}

TEST(MacVolumes, OfSeveralAtOneMountPointTheLastCounts) {
    EXPECT_THAT(volumesOf({{1, "/", "hfs", false, false},
                           {2, "/Volumes/Disk", "hfs", false, false},
                           {3, "/", "apfs", false, false},
                           {4, "/Volumes/Disk", "smbfs", false, false}}),
                ElementsAre(Volume{"/", "apfs", VolumeKind::internal},
                            Volume{"/Volumes/Disk", "smbfs", VolumeKind::network}));
}

TEST(MacVolumes, OfPseudoFileSystemsAreNotListed) {
    EXPECT_THAT(volumesOf({{7, "/Volumes/net", "autofs", false, false}}),
                ElementsAre(Volume{"/", {}, VolumeKind::other}));
}

TEST(MacMountPlaces, ExpectVolumesWhereTheFinderMountsThem) {
    const MountPlaces places = mountPlacesOf(mountsOfAMac());
    EXPECT_TRUE(places.isOnUnmountedVolume("/Volumes/Gone/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/Volumes/STICK/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/Users/ann/a.jpg"));
}

TEST(MacMountPlaces, ExpectVolumesAtAnAutomounter) {
    const MountPlaces places = mountPlacesOf(mountsOfAMac());
    EXPECT_TRUE(places.isOnUnmountedVolume("/System/Volumes/Data/home/ann/a.jpg"));
    EXPECT_THAT(places.mounted, Not(Contains("/System/Volumes/Data/home")));
}

TEST(MacNetwork, IsTheInnermostMount) {
    const std::vector<Mount> mounts = mountsOfAMac();
    EXPECT_TRUE(isOnNetwork("/Volumes/photos", mounts));
    EXPECT_TRUE(isOnNetwork("/Volumes/photos/2024/a.jpg", mounts));
    EXPECT_FALSE(isOnNetwork("/Volumes/photos2/a.jpg", mounts));
    EXPECT_FALSE(isOnNetwork("/Users/ann", mounts));
    EXPECT_FALSE(isOnNetwork("/Users/ann", {}));
}

TEST(MacNetwork, OfSeveralMountsAtOneMountPointIsTheLast) {
    EXPECT_TRUE(isOnNetwork("/Volumes/a/b", {{1, "/Volumes/a", "hfs", false, false},
                                             {2, "/Volumes/a", "smbfs", false, false}}));
    EXPECT_FALSE(isOnNetwork("/Volumes/a/b", {{1, "/Volumes/a", "smbfs", false, false},
                                              {2, "/Volumes/a", "hfs", false, false}}));
}

TEST(MacDevice, IsLeftOutIfItHoldsTheKernelsData) {
    EXPECT_TRUE(isLeftOut(1, mountsOfAMac()));
    EXPECT_FALSE(isLeftOut(dataDevice, mountsOfAMac()));
    EXPECT_FALSE(isLeftOut(0x99, mountsOfAMac()));
}

TEST(MacDevice, IsLeftOutIfItIsASnapshotElsewhereThanAtTheRoot) {
    std::vector<Mount> mounts = mountsOfAMac();
    mounts.front().isSnapshot = true;
    mounts.push_back({.device = 0x100000c,
                      .mountPoint = "/Volumes/com.apple.TimeMachine.localsnapshots/now",
                      .fileSystemType = "apfs",
                      .isSnapshot = true});
    EXPECT_FALSE(isLeftOut(systemDevice, mounts));
    EXPECT_TRUE(isLeftOut(0x100000c, mounts));
}

TEST(MacVolumes, AreNotListedIfTheyAreSnapshots) {
    EXPECT_THAT(volumesOf({{.device = 7,
                            .mountPoint = "/Volumes/now",
                            .fileSystemType = "apfs",
                            .isSnapshot = true}}),
                ElementsAre(Volume{"/", {}, VolumeKind::other}));
}

TEST(MacPseudoFileSystems, HoldTheKernelsData) {
    for (const char* type : {"autofs", "devfs", "fdesc", "volfs"}) {
        EXPECT_TRUE(isPseudoFileSystemType(type)) << type;
    }
    for (const char* type :
         {"apfs", "hfs", "msdos", "exfat", "smbfs", "nfs", "udf", "cd9660", ""}) {
        EXPECT_FALSE(isPseudoFileSystemType(type)) << type;
    }
}

TEST(MacMountedFolders, AreTheMountsAndTheFirmlinks) {
    const std::vector<Mount> mounts{{systemDevice, "/", "apfs", false, false},
                                    {dataDevice, "/System/Volumes/Data", "apfs", false, true}};
    EXPECT_THAT(mountedFoldersOf(mounts, "/Users\tUsers\n/usr/local\tusr/local\n"),
                ElementsAre(MountedFolder{systemDevice, "/", "/"},
                            MountedFolder{dataDevice, "/", "/System/Volumes/Data"},
                            MountedFolder{dataDevice, "/Users", "/Users"},
                            MountedFolder{dataDevice, "/usr/local", "/usr/local"}));
}

TEST(MacMountedFolders, HaveNoFirmlinksWithoutAVolumeOfTheirOwn) {
    EXPECT_THAT(mountedFoldersOf({{systemDevice, "/", "hfs", false, false}}, "/Users\tUsers\n"),
                ElementsAre(MountedFolder{systemDevice, "/", "/"}));
    EXPECT_THAT(mountedFoldersOf({}, "/Users\tUsers\n"), IsEmpty());
}

TEST(MacMountedFolders, SkipMalformedLines) {
    const std::vector<Mount> mounts{{dataDevice, "/System/Volumes/Data", "apfs", false, true}};
    EXPECT_THAT(mountedFoldersOf(mounts,
                                 "\n/Users\n/Users\t\n\tUsers\n/\tUsers\nUsers\tUsers\n"
                                 "/Users\t/Users\n/opt\topt"),
                ElementsAre(MountedFolder{dataDevice, "/", "/System/Volumes/Data"},
                            MountedFolder{dataDevice, "/opt", "/opt"}));
}

}  // namespace
}  // namespace tarvin::macos
