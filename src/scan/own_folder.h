#pragma once

#include "platform/file_system.h"
#include "platform/unsteady_volumes.h"

#include <string>
#include <string_view>

namespace tarvin {

/// The last component of the path of the folder with the program's own files.
inline constexpr std::string_view ownFolderName = "Tarvin Duplicate File Remover";

/// Whether an open folder is the one with the program's own files, which are not collected. On an
/// unsteady volume every folder counts as such that has its name, after symbolic links in `path`
/// are resolved, and its device. `identity` is that of the open folder. May ask the volume whether
/// it is unsteady. Blocks while a drive does not respond. Any thread.
[[nodiscard]] bool isOwnFolder(FileSystem& fileSystem, UnsteadyVolumes& unsteadyVolumes,
                               const std::string& path, const Descriptor& opened,
                               const FileIdentity& identity);

}  // namespace tarvin
