#include "platform/linux/volumes.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// For failure messages.
static std::ostream& operator<<(std::ostream& out, const Volume& volume) {
    return out << volume.path << " (" << volume.fileSystemType << ", kind "
               << static_cast<int>(volume.kind) << ')';
}

namespace {

const Volume unknownRoot{"/", "", VolumeKind::other};

bool neverRemovable(const MountEntry&) {
    return false;
}
bool alwaysRemovable(const MountEntry&) {
    return true;
}

/// The volumes of a mount table; no device is removable.
std::vector<Volume> volumesIn(std::string_view table) {
    return volumesOf(parseMountInfo(table), neverRemovable);
}

/// The kind of a drive with this file system.
VolumeKind kindOfType(const std::string& type, const RemovableQuery& isRemovable) {
    return volumesOf({{1, "/mnt/drive", type, "/dev/x"}}, isRemovable).back().kind;
}

TEST(Volumes, AreTheRootAndDrivesInThreeFolders) {
    const auto volumes = volumesIn(
        "22 27 0:21 / /proc rw - proc proc rw\n"
        "27 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
        "28 27 8:2 / /home rw - ext4 /dev/sda2 rw\n"
        "29 27 8:17 / /media/ann/My\\040Stick rw - vfat /dev/sdb1 rw\n"
        "30 27 8:33 / /run/media/ann/backup rw - xfs /dev/sdc1 rw\n"
        "31 27 8:49 / /mnt/data rw - btrfs /dev/sdd1 rw\n"
        "32 27 0:50 / /run/user/1000 rw - tmpfs tmpfs rw\n");
    const std::vector<Volume> expected{{"/", "ext4", VolumeKind::internal},
                                       {"/media/ann/My Stick", "vfat", VolumeKind::removable},
                                       {"/run/media/ann/backup", "xfs", VolumeKind::internal},
                                       {"/mnt/data", "btrfs", VolumeKind::internal}};
    EXPECT_EQ(volumes, expected);
}

TEST(Volumes, BeginWithTheRoot) {
    const auto volumes = volumesIn(
        "26 27 8:17 / /mnt/data rw - ext4 /dev/sdb1 rw\n"
        "27 1 8:1 / / rw - ext4 /dev/sda1 rw\n");
    const std::vector<Volume> expected{{"/", "ext4", VolumeKind::internal},
                                       {"/mnt/data", "ext4", VolumeKind::internal}};
    EXPECT_EQ(volumes, expected);
}

TEST(Volumes, KeepTheOrderOfMounting) {
    const auto volumes = volumesIn(
        "1 0 8:3 / /mnt/z rw - ext4 /dev/c rw\n"
        "2 0 8:2 / /media/m rw - ext4 /dev/b rw\n"
        "3 0 8:1 / /mnt/a rw - ext4 /dev/a rw\n");
    ASSERT_EQ(volumes.size(), 4u);
    EXPECT_EQ(volumes[1].path, "/mnt/z");
    EXPECT_EQ(volumes[2].path, "/media/m");
    EXPECT_EQ(volumes[3].path, "/mnt/a");
}

TEST(Volumes, IncludeTheRootIfNotListed) {
    EXPECT_EQ(volumesIn(""), std::vector<Volume>{unknownRoot});
}

TEST(Volumes, IncludeTheRootOfAnyType) {
    const std::vector<Volume> container{{"/", "overlay", VolumeKind::other}};
    EXPECT_EQ(volumesIn("1 0 0:30 / / rw - overlay overlay rw\n"), container);
}

TEST(Volumes, ShowTheLastMountAtAMountPoint) {
    const auto volumes = volumesIn(
        "1 0 0:2 / / rw - rootfs rootfs rw\n"
        "2 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
        "3 2 0:40 / /mnt/nas rw - autofs systemd-1 rw\n"
        "4 2 8:17 / /mnt/data rw - xfs /dev/sdb1 rw\n"
        "5 3 0:41 / /mnt/nas rw - cifs //nas/share rw\n");
    const std::vector<Volume> expected{{"/", "ext4", VolumeKind::internal},
                                       {"/mnt/data", "xfs", VolumeKind::internal},
                                       {"/mnt/nas", "cifs", VolumeKind::network}};
    EXPECT_EQ(volumes, expected);
}

TEST(Volumes, HideADriveUnderAPseudoFileSystem) {
    const auto volumes = volumesIn(
        "1 0 8:17 / /mnt/data rw - ext4 /dev/sdb1 rw\n"
        "2 1 0:21 / /mnt/data rw - proc proc rw\n");
    EXPECT_EQ(volumes, std::vector<Volume>{unknownRoot});
}

TEST(Volumes, OmitPseudoFileSystems) {
    const auto volumes = volumesIn(
        "1 0 0:21 / /mnt/proc rw - proc proc rw\n"
        "2 0 0:22 / /media/auto rw - autofs x rw\n"
        "3 0 0:23 / /run/media/ann/sys rw - sysfs sysfs rw\n");
    EXPECT_EQ(volumes, std::vector<Volume>{unknownRoot});
}

TEST(Volumes, MayBeMountedAtMntItself) {
    const auto volumes = volumesIn("1 0 8:17 / /mnt rw - ext4 /dev/sdb1 rw\n");
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_EQ(volumes[1].path, "/mnt");
}

TEST(Volumes, OmitTheParentFoldersOfDrives) {
    const auto volumes = volumesIn(
        "1 0 0:40 / /media rw - tmpfs tmpfs rw\n"
        "2 0 0:41 / /run/media rw - tmpfs tmpfs rw\n");
    EXPECT_EQ(volumes, std::vector<Volume>{unknownRoot});
}

TEST(Volumes, OmitFoldersWithSimilarNames) {
    const auto volumes = volumesIn(
        "1 0 8:1 / /mnt2/a rw - ext4 /dev/a rw\n"
        "2 0 8:2 / /mediatheque rw - ext4 /dev/b rw\n"
        "3 0 8:3 / /home/media/c rw - ext4 /dev/c rw\n"
        "4 0 8:4 / /run/mediaserver/d rw - ext4 /dev/d rw\n");
    EXPECT_EQ(volumes, std::vector<Volume>{unknownRoot});
}

TEST(Volumes, KeepPathsThatAreNotUtf8) {
    const auto volumes = volumesIn("1 0 8:1 / /mnt/\xff rw - ext4 /dev/a rw\n");
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_EQ(volumes[1].path, "/mnt/\xff");
}

TEST(Network, IsDecidedByTheInnermostMount) {
    const auto mounts = parseMountInfo(
        "27 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
        "28 27 0:40 / /home rw - cifs //server/homes rw\n"
        "29 28 8:2 / /home/ann/disk rw - ext4 /dev/sda2 rw\n"
        "30 27 0:41 / /srv rw - smb3 //server/srv rw\n"
        "31 30 8:3 / /srv rw - ext4 /dev/sda3 rw\n");
    EXPECT_TRUE(isOnNetwork("/home", mounts));
    EXPECT_TRUE(isOnNetwork("/home/ann/Desktop", mounts));
    EXPECT_FALSE(isOnNetwork("/home/ann/disk/Desktop", mounts));
    EXPECT_FALSE(isOnNetwork("/homes/ann/Desktop", mounts));
    EXPECT_FALSE(isOnNetwork("/srv/Desktop", mounts));
    EXPECT_FALSE(isOnNetwork("/root", mounts));
    EXPECT_FALSE(isOnNetwork("/root", {}));
}

TEST(VolumeKind, IsNetworkForShares) {
    for (const char* type : {"cifs", "smb3", "smbfs"}) {
        EXPECT_EQ(kindOfType(type, neverRemovable), VolumeKind::network) << type;
    }
}

TEST(VolumeKind, IsRemovableForDosTypes) {
    for (const char* type : {"vfat", "exfat", "msdos", "ntfs", "ntfs3", "fuseblk"}) {
        EXPECT_EQ(kindOfType(type, neverRemovable), VolumeKind::removable) << type;
    }
}

TEST(VolumeKind, IsInternalForNativeTypes) {
    for (const char* type :
         {"ext2", "ext3", "ext4", "xfs", "btrfs", "f2fs", "zfs", "hfs", "hfsplus", "apfs"}) {
        EXPECT_EQ(kindOfType(type, neverRemovable), VolumeKind::internal) << type;
    }
}

TEST(VolumeKind, IsOtherForTheRest) {
    for (const char* type :
         {"tmpfs", "nfs", "nfs4", "iso9660", "fuse.sshfs", "9p", "ext", "EXT4"}) {
        EXPECT_EQ(kindOfType(type, neverRemovable), VolumeKind::other) << type;
    }
}

TEST(VolumeKind, IsRemovableForARemovableDeviceOfAnyType) {
    for (const char* type : {"ext4", "btrfs", "iso9660", "vfat"}) {
        EXPECT_EQ(kindOfType(type, alwaysRemovable), VolumeKind::removable) << type;
    }
}

TEST(VolumeKind, NetworkTakesPrecedenceOverRemovable) {
    EXPECT_EQ(kindOfType("cifs", alwaysRemovable), VolumeKind::network);
}

TEST(VolumeKind, IsQueriedForEachDevice) {
    const std::vector<MountEntry> mounts{{1, "/", "ext4", "/dev/a"},
                                         {2, "/mnt/b", "ext4", "/dev/b"},
                                         {3, "/mnt/c", "ext4", "/dev/c"}};
    const auto volumes =
        volumesOf(mounts, [](const MountEntry& mount) { return mount.source == "/dev/b"; });
    ASSERT_EQ(volumes.size(), 3u);
    EXPECT_EQ(volumes[0].kind, VolumeKind::internal);
    EXPECT_EQ(volumes[1].kind, VolumeKind::removable);
    EXPECT_EQ(volumes[2].kind, VolumeKind::internal);
}

/// The places of a computer with these mounts and "/backup" in its table.
MountPlaces placesIn(std::string_view mountInfo) {
    return mountPlacesOf(parseMountInfo(mountInfo), {"/backup"});
}

constexpr const char* rootAndRun =
    "27 1 254:0 / / rw - ext4 /dev/vda rw\n"
    "28 27 0:20 / /run rw - tmpfs tmpfs rw\n"
    "29 28 0:21 / /run/user/1000 rw - tmpfs tmpfs rw\n"
    "30 29 0:22 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n";

TEST(MountPlaces, WhatIsOnAMountedVolumeIsAttached) {
    const MountPlaces places = placesIn(rootAndRun);
    EXPECT_FALSE(places.isOnUnmountedVolume("/home/ann/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/run/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/backups/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/mntx/a.jpg"));
}

TEST(MountPlaces, BelowTheFoldersOfDrivesAVolumeIsExpected) {
    const MountPlaces places = placesIn(rootAndRun);
    EXPECT_TRUE(places.isOnUnmountedVolume("/media/ann/STICK/a.jpg"));
    EXPECT_TRUE(places.isOnUnmountedVolume("/media/cdrom/a.jpg"));
    EXPECT_TRUE(places.isOnUnmountedVolume("/run/media/ann/STICK/a.jpg"));
    EXPECT_TRUE(places.isOnUnmountedVolume("/mnt/disk/a.jpg"));
    EXPECT_TRUE(places.isOnUnmountedVolume("/backup/2026/a.jpg"));
}

TEST(MountPlaces, AMountedDriveIsAttachedAndItsNeighbourIsNot) {
    const MountPlaces places = placesIn(std::string(rootAndRun) +
                                        "31 27 8:17 / /media/ann/STICK rw - vfat /dev/sdb1 rw\n"
                                        "32 27 8:18 / /backup rw - ext4 /dev/sdb2 rw\n"
                                        "33 27 8:19 / /mnt rw - ext4 /dev/sdb3 rw\n");
    EXPECT_FALSE(places.isOnUnmountedVolume("/media/ann/STICK/a.jpg"));
    EXPECT_TRUE(places.isOnUnmountedVolume("/media/ann/STICK 2/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/backup/a.jpg"));
    EXPECT_FALSE(places.isOnUnmountedVolume("/mnt/a.jpg"));
}

TEST(MountPlaces, AnAutomounterAloneIsNoVolume) {
    const std::string automounter =
        std::string(rootAndRun) + "31 27 0:40 / /net rw - autofs /etc/auto.net rw\n";
    EXPECT_TRUE(placesIn(automounter).isOnUnmountedVolume("/net/nas/a.jpg"));
    EXPECT_FALSE(placesIn(automounter + "32 31 0:41 / /net/nas rw - nfs4 nas:/ rw\n")
                     .isOnUnmountedVolume("/net/nas/a.jpg"));
}

TEST(MountPlaces, SharesOfASessionCountAsNotMounted) {
    EXPECT_TRUE(
        placesIn(rootAndRun)
            .isOnUnmountedVolume("/run/user/1000/gvfs/smb-share:server=nas,share=photos/a.jpg"));
}

TEST(MountPlaces, WithoutTheRootInTheTableItIsMounted) {
    EXPECT_FALSE(placesIn("").isOnUnmountedVolume("/home/ann/a.jpg"));
}

TEST(MountPlaces, WithoutATableNothingIsKnown) {
    EXPECT_TRUE(MountPlaces().isOnUnmountedVolume("/home/ann/a.jpg"));
}

}  // namespace
}  // namespace tarvin
