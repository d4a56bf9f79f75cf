#pragma once

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/running_instances.h"
#include "platform/trash_move.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// What kind of drive a volume is; decides its icon and whether it is listed.
enum class VolumeKind {
    internal,   ///< a disk of a common native format
    removable,  ///< removable, on USB, or formatted the DOS way
    network,    ///< on another machine
    other       ///< anything else that holds files
};

/// One mounted volume that a person would call a drive.
struct Volume {
    std::string path;            ///< where it is mounted; native bytes
    std::string fileSystemType;  ///< the system's name for the format, such as "ext4"
    VolumeKind kind = VolumeKind::other;

    bool operator==(const Volume&) const = default;
};

enum class UserFolder { home, desktop, documents, pictures };

/// Everything the program asks of the operating system. One object for the process; every call may
/// be made on any thread. Tests bring a fake with a settable answer for each call.
class Platform {
 public:
    virtual ~Platform() = default;

    virtual FileSystem& fileSystem() = 0;
    virtual Clock& clock() = 0;
    /// The user's Trash, for one clean-up.
    virtual std::unique_ptr<TrashMover> makeTrashMover() = 0;
    /// This process is none of the copies until it joins them.
    virtual RunningInstances& runningInstances() = 0;

    /// The mounted volumes as they are now: the root first, then the others in the order in which
    /// they were mounted. Pseudo file systems are left out.
    virtual std::vector<Volume> mountedVolumes() = 0;

    /// Whether a path is on a volume of another machine. Of all that is mounted, also where no
    /// drives are listed.
    virtual bool isOnNetwork(const std::string& path) = 0;

    /// The short name of the user of this process; none if the system does not know it.
    virtual std::optional<std::string> userName() = 0;

    /// A folder of the user's by its absolute path; none if it is not set up. It need not exist.
    virtual std::optional<std::string> userFolder(UserFolder folder) = 0;

    /// Where the program keeps its files: ".../Tarvin Software/Tarvin Duplicate File Remover". The
    /// folder need not exist; none if the user has no home folder.
    virtual std::optional<std::string> applicationSupportFolder() = 0;
};

/// The machine the program runs on.
Platform& systemPlatform();

}  // namespace tarvin
