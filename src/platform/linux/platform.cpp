#include "platform/platform.h"

#include "platform/linux/block_devices.h"
#include "platform/linux/mount_table.h"
#include "platform/linux/user_folders.h"
#include "platform/linux/volumes.h"
#include "platform/posix/running_instances.h"
#include "platform/posix/small_file.h"

#include <cstddef>
#include <memory>

namespace tarvin {

namespace {

// Bytes; desktops and installers write about ten lines.
constexpr std::size_t maxSettingsBytes = std::size_t{1} << 20;

/// The content of user-dirs.dirs; empty if there is none.
std::string readUserDirectories(const UserEnvironment& environment) {
    const auto path = userDirectoriesFile(environment);
    return path ? readSmallFile(*path, maxSettingsBytes).value_or("") : "";
}

class LinuxPlatform final : public Platform {
 public:
    FileSystem& fileSystem() override { return systemFileSystem(); }
    Clock& clock() override { return systemClock(); }
    std::unique_ptr<TrashMover> makeTrashMover() override { return tarvin::makeTrashMover(); }
    RunningInstances& runningInstances() override { return *runningInstances_; }

    std::vector<Volume> mountedVolumes() override {
        return volumesOf(readMountInfo().value_or(std::vector<MountEntry>()),
                         [](const MountEntry& mount) { return isRemovableDevice(mount.device); });
    }

    MountPlaces mountPlaces() override {
        const auto mounts = readMountInfo();
        if (!mounts) {
            return {};
        }
        const std::string table = readSmallFile("/etc/fstab", maxSettingsBytes).value_or("");
        return mountPlacesOf(*mounts, parseFileSystemTable(table));
    }

    bool isOnNetwork(const std::string& path) override {
        return tarvin::isOnNetwork(path, readMountInfo().value_or(std::vector<MountEntry>()));
    }

    std::optional<std::string> userName() override { return userNameOf(processEnvironment()); }

    std::optional<std::string> userFolder(UserFolder folder) override {
        // Not cached: the user may move a folder while the program runs.
        const UserEnvironment& environment = processEnvironment();
        return userFolderOf(folder, environment, readUserDirectories(environment));
    }

    std::optional<std::string> applicationSupportFolder() override {
        return applicationSupportFolderOf(processEnvironment());
    }

 private:
    std::unique_ptr<RunningInstances> runningInstances_ =
        makeRunningInstances(meetingFolders(processEnvironment()));
};

}  // namespace

Platform& systemPlatform() {
    static LinuxPlatform platform;
    return platform;
}

}  // namespace tarvin
