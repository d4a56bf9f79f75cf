#pragma once

#include "platform/file_system.h"

#include <string>
#include <string_view>

namespace tarvin {

/// Whether it is the name of the Trash of a volume: ".Trash-UID". Pure.
[[nodiscard]] bool isVolumeTrash(std::string_view name);

/// Whether the folder is a Trash folder or inside one. Resolves symbolic links first; false if that
/// fails. Blocks while a drive does not respond. Any thread.
[[nodiscard]] bool isInTrash(FileSystem& fileSystem, const std::string& folder);

}  // namespace tarvin
