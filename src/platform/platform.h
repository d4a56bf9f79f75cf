#pragma once

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/mount_places.h"
#include "platform/running_instances.h"
#include "platform/trash_move.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// The kind of drive of a volume; decides its icon and whether it is listed.
enum class VolumeKind {
    internal,   ///< a disk with a common native file system
    removable,  ///< removable, on USB, or with a DOS or Windows file system
    network,    ///< on another machine
    other       ///< any other with files
};

/// One mounted volume that is listed as a drive.
struct Volume {
    std::string path;            ///< mount point; native bytes
    std::string fileSystemType;  ///< the system's name of the type, such as "ext4"
    VolumeKind kind = VolumeKind::other;

    bool operator==(const Volume&) const = default;
};

enum class UserFolder { home, desktop, documents, pictures };

/// The program's interface to the operating system. One object for the process. Any thread. Tests
/// use a fake with a settable result for each call.
class Platform {
 public:
    virtual ~Platform() = default;

    virtual FileSystem& fileSystem() = 0;
    virtual Clock& clock() = 0;
    /// The user's Trash, for one clean-up.
    virtual std::unique_ptr<TrashMover> makeTrashMover() = 0;
    /// This process is not one of the instances until it joins them.
    virtual RunningInstances& runningInstances() = 0;

    /// The volumes mounted now: the root first, then the others in the order of mounting, without
    /// pseudo file systems.
    virtual std::vector<Volume> mountedVolumes() = 0;

    /// Where volumes are mounted now, and where those may be mounted that are not.
    virtual MountPlaces mountPlaces() = 0;

    /// Whether a path is on a network volume, also one that mountedVolumes() does not list.
    virtual bool isOnNetwork(const std::string& path) = 0;

    /// The login name of the user of this process; nullopt if unknown.
    virtual std::optional<std::string> userName() = 0;

    /// The absolute path of one of the user's folders, which need not exist; nullopt if not set up.
    virtual std::optional<std::string> userFolder(UserFolder folder) = 0;

    /// The program's data folder, ".../Tarvin Software/Tarvin Duplicate File Remover", which need
    /// not exist; nullopt if the user has no home folder.
    virtual std::optional<std::string> applicationSupportFolder() = 0;
};

/// The real system; one object for the process.
Platform& systemPlatform();

}  // namespace tarvin
