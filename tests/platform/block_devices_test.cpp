#include "platform/linux/block_devices.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/sysmacros.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {
namespace {

constexpr std::string_view ataWay = "pci0000:00/0000:00:17.0/ata1/host0/target0:0:0/0:0:0:0/block";
constexpr std::string_view usbWay = "pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/host6/6:0:0:0/block";
constexpr std::string_view virtualWay = "virtual/block";

/// A fake sysfs and mount table.
class BlockDevices : public testing::Test {
 protected:
    void addDisk(std::string_view way, std::string_view name, std::string_view number,
                 std::string_view rotational, std::string_view removable = "0\n") {
        const std::string folder = folderOf(way, name);
        tree_.writeFile(folder + "/queue/rotational", rotational);
        tree_.writeFile(folder + "/removable", removable);
        tree_.makeFolder(folder + "/slaves");
        addLinks(folder, name, number);
    }

    void addPartition(std::string_view way, std::string_view disk, std::string_view name,
                      std::string_view number) {
        const std::string folder = folderOf(way, disk) + '/' + std::string(name);
        tree_.writeFile(folder + "/partition", "1\n");
        addLinks(folder, name, number);
    }

    /// A volume stacked on devices added before. Its own flag has no effect.
    void addVolumeOn(std::string_view name, std::string_view number,
                     std::initializer_list<std::string_view> slaves) {
        addDisk(virtualWay, name, number, "0\n");
        for (const std::string_view slave : slaves) {
            const std::string link = folderOf(virtualWay, name) + "/slaves/" + std::string(slave);
            tree_.makeLink(link, tree_.pathOf("class/block/" + std::string(slave)));
        }
    }

    void setMounts(std::string_view text) { tree_.writeFile("mounts", text); }

    [[nodiscard]] bool isRotational(unsigned major, unsigned minor) const {
        return rotationalDisk(major, minor).has_value();
    }

    [[nodiscard]] std::optional<std::uint64_t> rotationalDisk(unsigned major,
                                                              unsigned minor) const {
        return rotationalDiskUnder(makedev(major, minor), tree_.path(), tree_.pathOf("mounts"));
    }

    [[nodiscard]] bool isRemovable(unsigned major, unsigned minor) const {
        return isRemovableDevice(makedev(major, minor), tree_.path(), tree_.pathOf("mounts"));
    }

    TemporaryFolder tree_;

 private:
    static std::string folderOf(std::string_view way, std::string_view name) {
        return std::string("devices/").append(way).append("/").append(name);
    }

    void addLinks(const std::string& folder, std::string_view name, std::string_view number) {
        tree_.makeLink(std::string("dev/block/").append(number), "../../" + folder);
        tree_.makeLink(std::string("class/block/").append(name), "../../" + folder);
    }
};

TEST_F(BlockDevices, VolumesOfADiskHaveItInCommon) {
    addDisk(ataWay, "sda", "8:0", "1\n");
    addPartition(ataWay, "sda", "sda1", "8:1");
    addPartition(ataWay, "sda", "sda2", "8:2");
    addDisk(ataWay, "sdb", "8:16", "1\n");
    addDisk(ataWay, "sdc", "8:32", "0\n");
    addVolumeOn("dm-0", "253:0", {"sda2"});
    const auto disk = rotationalDisk(8, 1);
    EXPECT_TRUE(disk);
    EXPECT_EQ(rotationalDisk(8, 2), disk);
    EXPECT_EQ(rotationalDisk(253, 0), disk);
    EXPECT_TRUE(rotationalDisk(8, 16));
    EXPECT_NE(rotationalDisk(8, 16), disk);
    EXPECT_FALSE(rotationalDisk(8, 32));
}

TEST_F(BlockDevices, RotationalFlagOfTheDiskCounts) {
    addDisk(ataWay, "sda", "8:0", "1\n");
    EXPECT_TRUE(isRotational(8, 0));
}

TEST_F(BlockDevices, DiskWithoutRotationalFlagIsNot) {
    addDisk(ataWay, "sda", "8:0", "0\n");
    EXPECT_FALSE(isRotational(8, 0));
}

TEST_F(BlockDevices, PartitionCountsAsItsDisk) {
    addDisk(ataWay, "sda", "8:0", "1\n", "1\n");
    addPartition(ataWay, "sda", "sda1", "8:1");
    addDisk(ataWay, "sdb", "8:16", "0\n", "0\n");
    addPartition(ataWay, "sdb", "sdb1", "8:17");
    EXPECT_TRUE(isRotational(8, 1));
    EXPECT_TRUE(isRemovable(8, 1));
    EXPECT_FALSE(isRotational(8, 17));
    EXPECT_FALSE(isRemovable(8, 17));
}

TEST_F(BlockDevices, ParavirtualDiskIsNotRotational) {
    addDisk("pci0000:00/virtio1/block", "vda", "254:0", "1\n");
    addPartition("pci0000:00/virtio1/block", "vda", "vda2", "254:2");
    addDisk("vbd-51712/block", "xvda", "202:0", "1\n");
    EXPECT_FALSE(isRotational(254, 0));
    EXPECT_FALSE(isRotational(254, 2));
    EXPECT_FALSE(isRotational(202, 0));
}

TEST_F(BlockDevices, SimilarNameIsNotParavirtual) {
    addDisk(ataWay, "xsda", "8:0", "1\n");
    addDisk(ataWay, "vd0", "8:16", "1\n");
    addDisk(ataWay, "vd", "8:32", "1\n");
    EXPECT_TRUE(isRotational(8, 0));
    EXPECT_TRUE(isRotational(8, 16));
    EXPECT_TRUE(isRotational(8, 32));
}

TEST_F(BlockDevices, JoinedVolumeIsRotationalIfAnyDiskIs) {
    addDisk(ataWay, "sda", "8:0", "0\n");
    addPartition(ataWay, "sda", "sda1", "8:1");
    addDisk(ataWay, "sdb", "8:16", "1\n");
    addPartition(ataWay, "sdb", "sdb1", "8:17");
    addVolumeOn("md0", "9:0", {"sda1", "sdb1"});
    addVolumeOn("md1", "9:1", {"sda1"});
    EXPECT_TRUE(isRotational(9, 0));
    EXPECT_FALSE(isRotational(9, 1));
}

TEST_F(BlockDevices, StackedVolumeCountsAsItsDisk) {
    addDisk(ataWay, "sda", "8:0", "1\n");
    addPartition(ataWay, "sda", "sda1", "8:1");
    addVolumeOn("md0", "9:0", {"sda1"});
    addVolumeOn("dm-0", "253:0", {"md0"});
    addVolumeOn("dm-1", "253:1", {"dm-0"});
    EXPECT_TRUE(isRotational(253, 1));
}

TEST_F(BlockDevices, StackOnAParavirtualDiskIsNotRotational) {
    addDisk("pci0000:00/virtio1/block", "vda", "254:0", "1\n");
    addVolumeOn("dm-0", "253:0", {"vda"});
    EXPECT_FALSE(isRotational(253, 0));
}

TEST_F(BlockDevices, CircularStackEndsTheSearch) {
    addVolumeOn("dm-0", "253:0", {"dm-1"});
    addVolumeOn("dm-1", "253:1", {"dm-0"});
    EXPECT_FALSE(isRotational(253, 0));
    EXPECT_FALSE(isRemovable(253, 0));
}

TEST_F(BlockDevices, UnknownDeviceIsNeither) {
    EXPECT_FALSE(isRotational(8, 0));
    EXPECT_FALSE(isRemovable(8, 0));
    EXPECT_FALSE(rotationalDiskUnder(makedev(8, 0), tree_.pathOf("missing")));
    EXPECT_FALSE(isRemovableDevice(makedev(8, 0), tree_.pathOf("missing")));
}

TEST_F(BlockDevices, DeviceWithoutQueueIsNotRotational) {
    tree_.makeFolder("devices/virtual/block/odd");
    tree_.makeLink("dev/block/8:0", "../../devices/virtual/block/odd");
    EXPECT_FALSE(isRotational(8, 0));
    EXPECT_FALSE(isRemovable(8, 0));
}

TEST_F(BlockDevices, InvalidFlagCountsAsFalse) {
    addDisk(ataWay, "sda", "8:0", "", "x1");
    EXPECT_FALSE(isRotational(8, 0));
    EXPECT_FALSE(isRemovable(8, 0));
}

TEST_F(BlockDevices, RemovableMediumIsRemovable) {
    addDisk(ataWay, "sr0", "11:0", "1\n", "1\n");
    EXPECT_TRUE(isRemovable(11, 0));
}

TEST_F(BlockDevices, UsbDiskIsRemovable) {
    addDisk(usbWay, "sdc", "8:32", "1\n", "0\n");
    addPartition(usbWay, "sdc", "sdc1", "8:33");
    EXPECT_TRUE(isRemovable(8, 32));
    EXPECT_TRUE(isRemovable(8, 33));
}

TEST_F(BlockDevices, InternalDiskIsNotRemovable) {
    addDisk(ataWay, "sda", "8:0", "1\n");
    EXPECT_FALSE(isRemovable(8, 0));
}

TEST_F(BlockDevices, UsbInThePathOfTheRootDoesNotCount) {
    const TemporaryFolder outer;
    outer.writeFile("usb/devices/block/sda/removable", "0\n");
    outer.makeLink("usb/dev/block/8:0", "../../devices/block/sda");
    EXPECT_FALSE(isRemovableDevice(makedev(8, 0), outer.pathOf("usb")));
}

TEST_F(BlockDevices, EncryptedVolumeOnUsbIsRemovable) {
    addDisk(usbWay, "sdc", "8:32", "0\n");
    addPartition(usbWay, "sdc", "sdc1", "8:33");
    addVolumeOn("dm-3", "253:3", {"sdc1"});
    EXPECT_TRUE(isRemovable(253, 3));
}

TEST_F(BlockDevices, BtrfsIsLookedUpInTheMountTable) {
    addDisk(usbWay, "tarvin-disk", "8:32", "1\n");
    addPartition(usbWay, "tarvin-disk", "tarvin-disk1", "8:33");
    setMounts("40 1 0:38 /@ /mnt/data rw - btrfs /dev/tarvin-disk1 rw,subvol=/@\n");
    EXPECT_TRUE(isRotational(0, 38));
    EXPECT_TRUE(isRemovable(0, 38));
}

TEST_F(BlockDevices, DeviceNameWithASlashIsFound) {
    addDisk(ataWay, "tarvin!disk", "104:0", "1\n");
    setMounts("40 1 0:38 / /mnt/data rw - btrfs /dev/tarvin/disk rw\n");
    EXPECT_TRUE(isRotational(0, 38));
}

TEST_F(BlockDevices, AnyBtrfsVolumeCountsForAnUnlistedSubvolume) {
    addDisk(ataWay, "tarvin-fast", "8:0", "0\n");
    addDisk(usbWay, "tarvin-slow", "8:16", "1\n");
    setMounts(
        "40 1 0:38 / / rw - btrfs /dev/tarvin-fast rw\n"
        "41 1 0:39 / /mnt/data rw - btrfs /dev/tarvin-slow rw\n");
    EXPECT_FALSE(isRotational(0, 38));
    EXPECT_TRUE(isRotational(0, 77));
    EXPECT_FALSE(isRemovable(0, 77));
}

TEST_F(BlockDevices, OtherFormatsDoNotCountForAnUnlistedNumber) {
    addDisk(ataWay, "tarvin-slow", "8:0", "1\n");
    setMounts("40 1 8:0 / / rw - ext4 /dev/tarvin-slow rw\n");
    EXPECT_FALSE(isRotational(0, 77));
}

TEST_F(BlockDevices, SourceThatIsNotADeviceIsIgnored) {
    addDisk(ataWay, "tarvin-disk", "8:0", "1\n");
    setMounts(
        "40 1 0:38 / /a rw - nfs server:/tarvin-disk rw\n"
        "41 1 0:39 / /b rw - overlay tarvin-disk rw\n"
        "42 1 0:40 / /c rw - btrfs /dev/tarvin-other rw\n");
    EXPECT_FALSE(isRotational(0, 38));
    EXPECT_FALSE(isRotational(0, 39));
    EXPECT_FALSE(isRotational(0, 40));
}

TEST_F(BlockDevices, MissingMountTableCountsAsFalse) {
    EXPECT_FALSE(isRotational(0, 38));
    EXPECT_FALSE(isRemovable(0, 38));
}

}  // namespace
}  // namespace tarvin
