#include "scan/own_folder.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace tarvin {

bool isOwnFolder(FileSystem& fileSystem, UnsteadyVolumes& unsteadyVolumes, const std::string& path,
                 const Descriptor& opened, const FileIdentity& identity) {
    const std::optional<FileIdentity> own = fileSystem.ownFolder();
    if (!own || own == identity) {
        return own.has_value();
    }
    if (own->device != identity.device) {
        return false;
    }
    if (!unsteadyVolumes.contains(identity.device)) {
        // One more answer shows a made-up inode number.
        const Result<FileAttributes> again = fileSystem.currentAttributesOf(opened);
        if (!again || again->identity == identity || !unsteadyVolumes.examine(fileSystem, opened)) {
            return false;
        }
    }
    std::error_code failure;
    const std::filesystem::path real = std::filesystem::canonical(path, failure);
    return (failure ? std::filesystem::path(path) : real).filename() == ownFolderName;
}

}  // namespace tarvin
