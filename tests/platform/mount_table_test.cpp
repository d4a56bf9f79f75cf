#include "platform/linux/mount_table.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

TEST(MountTable, ReadsTheFieldsOfALine) {
    const auto entries = parseMountInfo(
        "36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 - ext3 /dev/root rw,errors=continue\n");
    const std::vector<MountEntry> expected{{makedev(98, 0), "/mnt2", "ext3", "/dev/root", "/mnt1"}};
    EXPECT_EQ(entries, expected);
}

TEST(MountTable, KeepsTheOrderOfTheLines) {
    const auto entries = parseMountInfo(
        "22 27 0:21 / /proc rw,relatime - proc proc rw\n"
        "27 1 254:0 / / rw,relatime - ext4 /dev/vda rw,discard\n"
        "31 27 8:17 / /media/ann/STICK rw,nosuid - vfat /dev/sdb1 rw,utf8\n");
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].mountPoint, "/proc");
    EXPECT_EQ(entries[1].mountPoint, "/");
    EXPECT_EQ(entries[2].mountPoint, "/media/ann/STICK");
}

TEST(MountTable, SkipsAnyNumberOfOptionalFields) {
    const auto entries = parseMountInfo(
        "1 0 8:1 / /none rw - ext4 /dev/sda1 rw\n"
        "2 0 8:2 / /one rw shared:1 - ext4 /dev/sda2 rw\n"
        "3 0 8:3 / /many rw shared:1 master:2 propagate_from:3 unbindable - ext4 /dev/sda3 rw\n");
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].source, "/dev/sda1");
    EXPECT_EQ(entries[1].source, "/dev/sda2");
    EXPECT_EQ(entries[2].source, "/dev/sda3");
}

TEST(MountTable, UnescapesNames) {
    const auto entries = parseMountInfo(
        R"(1 0 8:1 / /mnt/my\040disk\011a\012b\134c\043d rw - fuse.some\040fs //nas/my\040share rw)");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].mountPoint, "/mnt/my disk\ta\nb\\c#d");
    EXPECT_EQ(entries[0].fileSystemType, "fuse.some fs");
    EXPECT_EQ(entries[0].source, "//nas/my share");
}

TEST(MountTable, UnescapesOnce) {
    const auto entries = parseMountInfo(R"(1 0 8:1 / /mnt/a\134040b rw - ext4 /dev/sda1 rw)");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].mountPoint, R"(/mnt/a\040b)");
}

TEST(MountTable, KeepsABackslashWithoutAnEscape) {
    const auto entries = parseMountInfo(R"(1 0 8:1 / /mnt/a\9b\04 rw - ext4 \400\18\058\081 rw)"
                                        "\n"
                                        R"(2 0 8:1 / /mnt/\3777 rw - ext4 x rw)");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].mountPoint, R"(/mnt/a\9b\04)");
    EXPECT_EQ(entries[0].source, R"(\400\18\058\081)");
    EXPECT_EQ(entries[1].mountPoint,
              "/mnt/\xff"
              "7");
}

TEST(MountTable, KeepsBytesThatAreNotText) {
    const auto entries = parseMountInfo("1 0 8:1 / /mnt/\xff\xfe\r\xc3 rw - ext4 /dev/sda1 rw\n");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].mountPoint, "/mnt/\xff\xfe\r\xc3");
}

TEST(MountTable, AcceptsAnEmptySource) {
    const auto entries = parseMountInfo("1 0 0:44 / /mnt/ram rw - tmpfs  rw,size=4k\n");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].fileSystemType, "tmpfs");
    EXPECT_EQ(entries[0].source, "");
}

TEST(MountTable, ReadsLargeDeviceNumbers) {
    const auto entries = parseMountInfo("1 0 4095:1048575 / /a rw - ext4 /dev/x rw\n");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].device, makedev(4095, 1048575));
}

TEST(MountTable, SkipsMalformedLines) {
    const std::vector<std::string_view> lines{
        "",
        " ",
        "words",
        "1 0 8:1 / /mnt/a rw shared:1",
        "1 0 8:1 / /mnt/a rw - ",
        "1 0 8:1 / relative rw - ext4 /dev/sda1 rw",
        "1 0 8 / /mnt/a rw - ext4 /dev/sda1 rw",
        "1 0 8: / /mnt/a rw - ext4 /dev/sda1 rw",
        "1 0 :1 / /mnt/a rw - ext4 /dev/sda1 rw",
        "1 0 8:x / /mnt/a rw - ext4 /dev/sda1 rw",
        "1 0 8:1x / /mnt/a rw - ext4 /dev/sda1 rw",
        "1 0 8:-1 / /mnt/a rw - ext4 /dev/sda1 rw",
        "1 0 8:99999999999 / /mnt/a rw - ext4 /dev/sda1 rw",
    };
    for (const std::string_view line : lines) {
        EXPECT_TRUE(parseMountInfo(line).empty()) << line;
    }
}

TEST(MountTable, ContinuesAfterAMalformedLine) {
    const auto entries = parseMountInfo("bad\n\n1 0 8:1 / /good rw - ext4 /dev/sda1 rw");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].mountPoint, "/good");
}

TEST(MountTable, IsEmptyForAnEmptyText) {
    EXPECT_TRUE(parseMountInfo("").empty());
}

TEST(MountTable, IsReadFromAFile) {
    const TemporaryFolder folder;
    const auto path = folder.writeFile("mounts", "1 0 8:1 / / rw - ext4 /dev/sda1 rw\n");
    const auto entries = readMountInfo(path);
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 1u);
}

TEST(MountTable, FindsAMountByItsId) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("mountinfo",
                                              "36 1 8:1 / /a rw - ext4 /dev/sda1 rw\n"
                                              "3 36 8:2 / /b\\040c rw - vfat /dev/sda2 rw\n");
    EXPECT_EQ(findMount(3, path), (MountEntry{makedev(8, 2), "/b c", "vfat", "/dev/sda2"}));
    EXPECT_EQ(findMount(36, path)->mountPoint, "/a");
    EXPECT_EQ(findMount(1, path), std::nullopt);
    EXPECT_EQ(findMount(3, folder.pathOf("missing")), std::nullopt);
}

TEST(MountTable, IsNulloptIfUnreadable) {
    const TemporaryFolder folder;
    EXPECT_FALSE(readMountInfo(folder.pathOf("missing")));
    EXPECT_FALSE(readMountInfo(folder.path()));
}

TEST(MountTable, OfThisProcessListsProcfs) {
    const auto entries = readMountInfo();
    ASSERT_TRUE(entries);
    struct stat status{};
    ASSERT_EQ(::stat("/proc/self/status", &status), 0);
    const auto found = std::find_if(entries->begin(), entries->end(), [&](const MountEntry& entry) {
        return entry.device == status.st_dev;
    });
    ASSERT_NE(found, entries->end());
    EXPECT_EQ(found->fileSystemType, "proc");
}

TEST(PseudoFileSystemType, IsTrueForKernelDataAndViews) {
    const std::vector<std::string_view> types{
        "proc",        "sysfs",   "devtmpfs",  "devpts",      "cgroup",     "cgroup2",
        "securityfs",  "debugfs", "tracefs",   "pstore",      "bpf",        "configfs",
        "efivarfs",    "fusectl", "mqueue",    "autofs",      "hugetlbfs",  "rpc_pipefs",
        "binfmt_misc", "nsfs",    "selinuxfs", "fuse.portal", "fuse.lxcfs", "smackfs",
        "nfsd",        "pipefs",  "sockfs",    "resctrl",     "xenfs",      "usbfs"};
    for (const std::string_view type : types) {
        EXPECT_TRUE(isPseudoFileSystemType(type)) << type;
    }
}

TEST(PseudoFileSystemType, IsFalseForTypesWithFiles) {
    const std::vector<std::string_view> types{
        "tmpfs", "ramfs",    "overlay",  "fuse", "fuse.sshfs", "fuseblk", "ext4",     "btrfs",
        "xfs",   "vfat",     "nfs",      "nfs4", "cifs",       "9p",      "squashfs", "rootfs",
        "zfs",   "virtiofs", "ecryptfs", "Proc", "procs",      "pro",     ""};
    for (const std::string_view type : types) {
        EXPECT_FALSE(isPseudoFileSystemType(type)) << type;
    }
}

TEST(FileSystemTable, HasTheMountPointsOfItsRows) {
    EXPECT_EQ(parseFileSystemTable("# <file system> <mount point> <type>\n"
                                   "UUID=1 / ext4 errors=remount-ro 0 1\n"
                                   "\n"
                                   "UUID=2 none swap sw 0 0\n"
                                   "  UUID=3\t/backup/\text4\tnoauto 0 2\n"
                                   "#UUID=4 /old ext4 defaults 0 2\n"
                                   "//nas/photos /srv/my\\040photos cifs user\n"
                                   "word\n"
                                   "UUID=5 /last"),
              (std::vector<std::string>{"/backup", "/srv/my photos", "/last"}));
}

}  // namespace
}  // namespace tarvin
