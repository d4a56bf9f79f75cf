#pragma once

#include "platform/file_system.h"
#include "platform/result.h"

#include <string>
#include <string_view>

namespace tarvin {

/// The last component of the path of every home Trash.
inline constexpr std::string_view homeTrashName = "Trash";

/// Whether it is the name of the Trash of a volume: ".Trash-UID". Pure.
[[nodiscard]] bool isVolumeTrash(std::string_view name);

/// Whether the folder is a Trash folder or inside one, of Linux or of macOS, whose drives have
/// ".Trashes". Resolves symbolic links first, unless
/// the path is too long for that. Fails if that, or reading a folder above it, fails: then it is
/// not known, and nothing may be moved. On a volume whose inode numbers change every folder that
/// has the name and the device of the home Trash counts as one. Blocks while a drive does not
/// respond. Any thread.
[[nodiscard]] Result<bool> isInTrash(FileSystem& fileSystem, const std::string& folder);

}  // namespace tarvin
