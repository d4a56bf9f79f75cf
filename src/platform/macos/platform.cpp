#include "platform/platform.h"

#include "platform/macos/mount_list.h"
#include "platform/macos/mounts.h"
#include "platform/macos/user_folders.h"
#include "platform/posix/running_instances.h"
#include "platform/posix/user_environment.h"

#include <sys/syslimits.h>
#include <unistd.h>

#include <array>
#include <cstddef>

namespace tarvin {

namespace {

/// The user's private folder for temporary files; empty if it is unknown.
std::string privateTemporaryFolder() {
    std::array<char, PATH_MAX> path{};
    const std::size_t length = ::confstr(_CS_DARWIN_USER_TEMP_DIR, path.data(), path.size());
    return length == 0 || length > path.size() ? std::string() : std::string(path.data());
}

class MacPlatform final : public Platform {
 public:
    FileSystem& fileSystem() override { return systemFileSystem(); }
    Clock& clock() override { return systemClock(); }
    std::unique_ptr<TrashMover> makeTrashMover() override { return tarvin::makeTrashMover(); }
    RunningInstances& runningInstances() override { return *runningInstances_; }

    std::vector<Volume> mountedVolumes() override { return macos::volumesOf(macos::readMounts()); }

    MountPlaces mountPlaces() override {
        const std::vector<macos::Mount> mounts = macos::readMounts();
        return mounts.empty() ? MountPlaces{} : macos::mountPlacesOf(mounts);
    }

    bool isOnNetwork(const std::string& path) override {
        return macos::isOnNetwork(path, macos::readMounts());
    }

    std::optional<std::string> userName() override { return userNameOf(processEnvironment()); }

    std::optional<std::string> userFolder(UserFolder folder) override {
        return macos::userFolderOf(folder, processEnvironment());
    }

    std::optional<std::string> applicationSupportFolder() override {
        return macos::applicationSupportFolderOf(processEnvironment());
    }

 private:
    std::unique_ptr<RunningInstances> runningInstances_ =
        makeRunningInstances(macos::meetingFolders(privateTemporaryFolder(), ::geteuid()));
};

}  // namespace

Platform& systemPlatform() {
    static MacPlatform platform;
    return platform;
}

}  // namespace tarvin
